// The screen on which the user takes or chooses a picture: the host's own picker stands over it as
// soon as it has appeared. Main thread.
//
// A picture goes to the delegate, which dismisses the screen. A user who cancels has it dismissed,
// unless the delegate sees to that; what cannot be read, and a source that the device does not
// have, is first told in an alert.

#pragma once

#include <memory>
#include <string>

#include "platform/Export.h"
#include "platform/uikit/ImagePicker.h"
#include "platform/uikit/controllers/UINavigationController.h"

namespace zephyl {

class UIImagePickerController;

// What was picked.
struct UIImagePickerInfo {
  // As it was taken: neither edited nor scaled. Never null.
  UIImageRef originalImage;
};

class ZP_EXPORT UIImagePickerControllerDelegate {
 public:
  virtual ~UIImagePickerControllerDelegate() = default;

  virtual void didFinishPickingMediaWithInfo(UIImagePickerController& /*picker*/,
                                             const UIImagePickerInfo& /*info*/) {}
  // Whether it dismisses the picker itself.
  virtual bool imagePickerControllerDidCancel(UIImagePickerController& /*picker*/) { return false; }
};

class ZP_EXPORT UIImagePickerController : public UINavigationController {
 public:
  // From the library until told otherwise.
  UIImagePickerController();
  ~UIImagePickerController() override;

  [[nodiscard]] static bool isSourceTypeAvailable(UIImagePickerSource source);
  [[nodiscard]] UIImagePickerSource sourceType() const { return source_; }
  // Before it is shown.
  void setSourceType(UIImagePickerSource source) { source_ = source; }
  void setDelegate(std::weak_ptr<UIImagePickerControllerDelegate> delegate);

  void viewDidLoad() override;
  void viewDidAppear(bool animated) override;
  bool accessibilityPerformEscape() override;
  [[nodiscard]] const char* className() const override { return "UIImagePickerController"; }

 private:
  void finish(const UIImageRef& image, const std::string& problem);
  void cancel();

  UIImagePickerSource source_ = UIImagePickerSource::kPhotoLibrary;
  std::weak_ptr<UIImagePickerControllerDelegate> delegate_;
  bool asked_ = false;
};

}  // namespace zephyl
