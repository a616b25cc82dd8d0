// A user who is asked for a picture and answers when a test says so. Main thread.

#pragma once

#include <optional>
#include <set>

#include "platform/uikit/ImagePicker.h"

namespace zephyl::fake {

class FakeImagePicker : public ImagePicker {
 public:
  bool isSourceAvailable(UIImagePickerSource source) override { return sources_.contains(source); }
  void pick(UIImagePickerSource source, UIView& above, Completion completion) override;

  // At first the photo library only.
  void setSources(std::set<UIImagePickerSource> sources);

  // What is asked for now; none when nobody asks.
  [[nodiscard]] std::optional<UIImagePickerSource> asked() const { return asked_; }
  [[nodiscard]] UIView* above() const { return above_; }

  // Each answers once, and returns whether anybody had asked.
  bool answer(UIImageRef image);
  bool cancel();
  bool fail(const NSError& error);

 private:
  bool complete(UIImageRef image, const NSError* error);

  std::set<UIImagePickerSource> sources_ = {UIImagePickerSource::kPhotoLibrary};
  std::optional<UIImagePickerSource> asked_;
  UIView* above_ = nullptr;
  Completion completion_;
};

}  // namespace zephyl::fake
