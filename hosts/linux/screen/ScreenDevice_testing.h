// For tests and measurements: a Linux device with a screen, in a folder of its own, installed for
// as long as this lives.
//
// Main thread.

#pragma once

#include <memory>
#include <utility>

#include "platform/Host.h"

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/screen/LinuxUIKit.h"

namespace zephyl::linux_host {

// A phone's, light, and nothing moves by itself.
[[nodiscard]] inline UIKitOptions stillScreen(CGFloat scale) {
  UIKitOptions options;
  options.screen.scale = scale;
  options.screen.style = UIUserInterfaceStyle::kLight;
  options.screen.reducedMotion = true;
  return options;
}

class ScreenDevice {
 public:
  // The folder and the screen of `device` are set here.
  explicit ScreenDevice(UIKitOptions screen, DeviceOptions device = {}) {
    auto kit = std::make_unique<LinuxUIKit>(std::move(screen));
    kit_ = kit.get();
    device.deviceRoot = root_.path();
    device.uikit = std::move(kit);
    device_ = std::make_unique<LinuxDevice>(std::move(device));
    install(*device_);
  }
  ~ScreenDevice() {
    device_->queues().stop();
    uninstall();
  }
  ScreenDevice(const ScreenDevice&) = delete;
  ScreenDevice& operator=(const ScreenDevice&) = delete;

  [[nodiscard]] LinuxUIKit& kit() { return *kit_; }
  [[nodiscard]] LinuxDevice& device() { return *device_; }

 private:
  contract::TemporaryFolder root_;
  LinuxUIKit* kit_ = nullptr;
  std::unique_ptr<LinuxDevice> device_;
};

}  // namespace zephyl::linux_host
