// The screen half of the device in memory: what views are drawn with, typed into and shown on.

#pragma once

#include "platform/uikit/UIKitHost.h"

#include "hosts/fake/uikit/FakeDisplayLink.h"
#include "hosts/fake/uikit/FakeGraphics.h"
#include "hosts/fake/uikit/FakeImagePicker.h"
#include "hosts/fake/uikit/FakeScreen.h"
#include "hosts/fake/uikit/FakeTextInput.h"
#include "hosts/fake/uikit/FakeTextSystem.h"

namespace zephyl::fake {

class FakeUIKit : public UIKitHost {
 public:
  FakeScreen& screen() override { return screen_; }
  FakeDisplayLink& displayLink() override { return displayLink_; }
  FakeTextSystem& textSystem() override { return textSystem_; }
  FakeGraphics& graphics() override { return graphics_; }
  FakeTextInput& textInput() override { return textInput_; }
  FakeImagePicker& imagePicker() override { return imagePicker_; }

 private:
  FakeScreen screen_;
  FakeDisplayLink displayLink_;
  FakeTextSystem textSystem_{screen_};
  FakeGraphics graphics_{screen_};
  FakeTextInput textInput_;
  FakeImagePicker imagePicker_;
};

}  // namespace zephyl::fake
