// What a device with a screen gives to views: the seams of drawing, text, pictures and input.

#pragma once

#include "platform/Export.h"

namespace zephyl {

class CADisplayLink;
class ImagePicker;
class TextInput;
class TextSystem;
class UIGraphics;
class UIScreen;

// Each call gives the same object for as long as the host lives. Any thread; the objects say which
// thread they are for.
class UIKitHost {
 public:
  virtual ~UIKitHost() = default;

  [[nodiscard]] virtual UIScreen& screen() = 0;
  [[nodiscard]] virtual CADisplayLink& displayLink() = 0;
  [[nodiscard]] virtual TextSystem& textSystem() = 0;
  [[nodiscard]] virtual UIGraphics& graphics() = 0;
  [[nodiscard]] virtual TextInput& textInput() = 0;
  [[nodiscard]] virtual ImagePicker& imagePicker() = 0;
};

// The installed host's; asserts that it has a screen.
[[nodiscard]] ZP_EXPORT UIKitHost& uikitHost();

}  // namespace zephyl
