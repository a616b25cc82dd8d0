// The system log. No message text and no full phone number ever goes into it.

#pragma once

#include <string>

namespace zephyl {

class SystemLog {
 public:
  virtual ~SystemLog() = default;

  // One line, without its end. Any thread.
  virtual void log(const std::string& line) = 0;
};

}  // namespace zephyl
