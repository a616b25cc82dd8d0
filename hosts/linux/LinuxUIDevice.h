// What the device says of itself: the release of the phone's system that it stands in for.

#pragma once

#include <string>
#include <utility>

#include "platform/uikit/UIDevice.h"

namespace zephyl::linux_host {

class LinuxUIDevice : public UIDevice {
 public:
  explicit LinuxUIDevice(std::string systemVersion) : systemVersion_(std::move(systemVersion)) {}

  std::string systemVersion() override { return systemVersion_; }

 private:
  const std::string systemVersion_;
};

}  // namespace zephyl::linux_host
