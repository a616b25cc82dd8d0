// The system log. No message text and no full phone number ever goes into it.

#pragma once

#include <string>

#include "platform/Export.h"

namespace zephyl {

class SystemLog {
 public:
  virtual ~SystemLog() = default;

  // One line, without its end. Any thread.
  virtual void log(const std::string& line) = 0;
};

// What stands before the message of every error that the library logs, up to the place in the
// source; the place ends with kErrorPlaceEnd.
inline constexpr char kErrorPrefix[] = "com.vantor.Zephyls: Error => ";
inline constexpr char kErrorPlaceEnd[] = "], ";

// Logs an error with the function and line that found it: those of the caller. Any thread.
ZP_EXPORT void logError(const std::string& message, const char* function = __builtin_FUNCTION(),
                        int line = __builtin_LINE());

}  // namespace zephyl
