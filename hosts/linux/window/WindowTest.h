// For the tests of this folder: a device with a screen and a window of the desktop on it.

#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "platform/Host.h"
#include "platform/uikit/UIWindow.h"

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/screen/LinuxUIKit.h"
#include "hosts/linux/window/FilePicturePicker.h"
#include "hosts/linux/window/PhoneWindow.h"
#include "hosts/linux/window/TextOverlay.h"

namespace zephyl::linux_host {

class WindowTest : public ::testing::Test {
 protected:
  WindowTest() {
    UIKitOptions options;
    options.screen.size = {200, 300};
    options.screen.style = UIUserInterfaceStyle::kLight;
    options.screen.reducedMotion = true;
    auto typing = std::make_unique<TextOverlay>();
    auto pictures = std::make_unique<FilePicturePicker>();
    typing_ = typing.get();
    pictures_ = pictures.get();
    options.textInput = std::move(typing);
    options.imagePicker = std::move(pictures);
    auto uikit = std::make_unique<LinuxUIKit>(std::move(options));
    uikit_ = uikit.get();
    DeviceOptions device;
    device.deviceRoot = folder_.path();
    device.uikit = std::move(uikit);
    device_ = std::make_unique<LinuxDevice>(std::move(device));
    install(*device_);
    window_ = std::make_shared<UIWindow>(uikit_->screen().bounds());
    window_->setBackgroundColor(UIColor::whiteColor());
  }

  ~WindowTest() override {
    phone_.reset();
    window_.reset();
    uninstall();
  }

  // The window of the desktop, which is shown, though nobody sees it.
  PhoneWindow& show() {
    phone_ = std::make_unique<PhoneWindow>(*uikit_, *typing_, *pictures_, window_);
    phone_->show();
    settle();
    return *phone_;
  }

  static void settle() {
    for (int turn = 0; turn < 5; ++turn) {
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      QCoreApplication::processEvents();
    }
  }

  contract::TemporaryFolder folder_;
  TextOverlay* typing_ = nullptr;
  FilePicturePicker* pictures_ = nullptr;
  LinuxUIKit* uikit_ = nullptr;
  std::unique_ptr<LinuxDevice> device_;
  std::shared_ptr<UIWindow> window_;
  std::unique_ptr<PhoneWindow> phone_;
};

}  // namespace zephyl::linux_host
