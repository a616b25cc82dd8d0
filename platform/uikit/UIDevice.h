// What the device says of itself.

#pragma once

#include <string>

#include "platform/Export.h"

namespace zephyl {

// With the platform's values.
enum class UIUserInterfaceIdiom { kPhone = 0, kPad = 1 };

class UIDevice {
 public:
  virtual ~UIDevice() = default;

  // "14.4.1". Asked afresh each time; any thread.
  [[nodiscard]] virtual std::string systemVersion() = 0;

  // Always the same; any thread.
  [[nodiscard]] virtual UIUserInterfaceIdiom userInterfaceIdiom() = 0;
};

// This release of the system or a later one, by the leading decimal number of its version in single
// precision. Asked afresh each time; any thread.
[[nodiscard]] ZP_EXPORT bool systemVersionIsAtLeast(float version);

}  // namespace zephyl
