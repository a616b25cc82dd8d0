#include "hosts/fake/uikit/FakeImagePicker.h"

#include <utility>

namespace zephyl::fake {

void FakeImagePicker::pick(UIImagePickerSource source, UIView& above, Completion completion) {
  // Whoever still waits gets no picture.
  cancel();
  asked_ = source;
  above_ = &above;
  completion_ = std::move(completion);
}

void FakeImagePicker::setSources(std::set<UIImagePickerSource> sources) {
  sources_ = std::move(sources);
}

bool FakeImagePicker::answer(UIImageRef image) {
  return complete(std::move(image), nullptr);
}

bool FakeImagePicker::cancel() {
  return complete(nullptr, nullptr);
}

bool FakeImagePicker::fail(const NSError& error) {
  return complete(nullptr, &error);
}

bool FakeImagePicker::complete(UIImageRef image, const NSError* error) {
  if (!asked_) {
    return false;
  }
  asked_.reset();
  above_ = nullptr;
  // Taken first: it may ask for another picture.
  const Completion completion = std::exchange(completion_, nullptr);
  if (completion) {
    completion(std::move(image), error);
  }
  return true;
}

}  // namespace zephyl::fake
