// What the device says of itself: the release of the phone's system that it stands in for.

#pragma once

#include <string>
#include <utility>

#include "platform/uikit/UIDevice.h"

namespace zephyl::linux_host {

class LinuxUIDevice : public UIDevice {
 public:
  LinuxUIDevice(std::string systemVersion, UIUserInterfaceIdiom idiom)
      : systemVersion_(std::move(systemVersion)), idiom_(idiom) {}

  std::string systemVersion() override { return systemVersion_; }
  UIUserInterfaceIdiom userInterfaceIdiom() override { return idiom_; }

 private:
  const std::string systemVersion_;
  const UIUserInterfaceIdiom idiom_;
};

}  // namespace zephyl::linux_host
