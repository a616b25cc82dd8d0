// Typing and choosing pictures in a process without a window: nobody types and nobody chooses. Main
// thread.

#pragma once

#include "platform/uikit/ImagePicker.h"
#include "platform/uikit/TextInput.h"

namespace zephyl::linux_host {

// Remembers what would be typed into.
class HeadlessTextInput : public TextInput {
 public:
  void begin(TextInputClient& client) override { client_ = &client; }
  void update(TextInputClient& /*client*/) override {}
  void end(TextInputClient& client) override {
    if (client_ == &client) {
      client_ = nullptr;
    }
  }

  [[nodiscard]] bool drawsText() override { return false; }

  // Null for nothing.
  [[nodiscard]] TextInputClient* client() const { return client_; }

 private:
  TextInputClient* client_ = nullptr;
};

// Has no source. Who asks all the same has cancelled, as soon as the event loop runs.
class NoImagePicker : public ImagePicker {
 public:
  [[nodiscard]] bool isSourceAvailable(UIImagePickerSource /*source*/) override { return false; }
  void pick(UIImagePickerSource source, UIView& above, Completion completion) override;
};

}  // namespace zephyl::linux_host
