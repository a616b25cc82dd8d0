// The screen half of the Linux device: what views are drawn with, typed into and shown on. Made on
// the main thread, while there is a QGuiApplication; handed to a device by
// `DeviceOptions::uikit`.

#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/uikit/ImagePicker.h"
#include "platform/uikit/TextInput.h"
#include "platform/uikit/UIKitHost.h"

#include "hosts/linux/screen/LinuxDisplayLink.h"
#include "hosts/linux/screen/LinuxScreen.h"
#include "hosts/linux/screen/PaintCaches.h"
#include "hosts/linux/screen/QtGraphics.h"
#include "hosts/linux/screen/QtTextSystem.h"

namespace zephyl::linux_host {

class DesktopAppearance;

struct UIKitOptions {
  ScreenOptions screen;

  // The message bus on which the desktop tells of its appearance; not given: nobody is asked.
  std::optional<std::string> appearanceBus;

  // Not given: nobody types, nobody chooses a picture.
  std::unique_ptr<TextInput> textInput;
  std::unique_ptr<ImagePicker> imagePicker;
};

class LinuxUIKit : public UIKitHost {
 public:
  explicit LinuxUIKit(UIKitOptions options);
  ~LinuxUIKit() override;
  LinuxUIKit(const LinuxUIKit&) = delete;
  LinuxUIKit& operator=(const LinuxUIKit&) = delete;

  [[nodiscard]] LinuxScreen& screen() override { return screen_; }
  [[nodiscard]] LinuxDisplayLink& displayLink() override { return displayLink_; }
  [[nodiscard]] QtTextSystem& textSystem() override { return textSystem_; }
  [[nodiscard]] QtGraphics& graphics() override { return graphics_; }
  [[nodiscard]] TextInput& textInput() override { return *textInput_; }
  [[nodiscard]] ImagePicker& imagePicker() override { return *imagePicker_; }

  // For pictures of this host's windows.
  [[nodiscard]] PaintCaches& paintCaches() { return caches_; }

 private:
  LinuxScreen screen_;
  PaintCaches caches_;
  LinuxDisplayLink displayLink_;
  QtTextSystem textSystem_{screen_};
  QtGraphics graphics_{screen_, caches_};
  std::unique_ptr<TextInput> textInput_;
  std::unique_ptr<ImagePicker> imagePicker_;
  std::unique_ptr<DesktopAppearance> appearance_;
};

}  // namespace zephyl::linux_host
