// What the device says of itself.

#pragma once

#include <string>

namespace zephyl {

class UIDevice {
 public:
  virtual ~UIDevice() = default;

  // "14.4.1". Asked afresh each time; any thread.
  [[nodiscard]] virtual std::string systemVersion() = 0;
};

}  // namespace zephyl
