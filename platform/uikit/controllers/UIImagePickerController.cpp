#include "platform/uikit/controllers/UIImagePickerController.h"

#include <utility>

#include "platform/uikit/UIKitHost.h"
#include "platform/uikit/UIKitText.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/UIAlertController.h"
#include "platform/uikit/controllers/UINavigationItem.h"

namespace zephyl {

UIImagePickerController::UIImagePickerController() = default;

UIImagePickerController::~UIImagePickerController() = default;

bool UIImagePickerController::isSourceTypeAvailable(UIImagePickerSource source) {
  return uikitHost().imagePicker().isSourceAvailable(source);
}

void UIImagePickerController::setDelegate(std::weak_ptr<UIImagePickerControllerDelegate> delegate) {
  delegate_ = std::move(delegate);
}

void UIImagePickerController::viewDidLoad() {
  UINavigationController::viewDidLoad();
  const auto blank = std::make_shared<UIViewController>();
  blank->view()->setBackgroundColor(UIColor::systemBackgroundColor());
  blank->navigationItem()->setRightBarButtonItem(std::make_shared<UIBarButtonItem>(
      UIBarButtonSystemItem::kCancel, weak_from_this(), [this](UIBarButtonItem&) { cancel(); }));
  setViewControllers({blank});
}

void UIImagePickerController::viewDidAppear(bool animated) {
  UINavigationController::viewDidAppear(animated);
  if (std::exchange(asked_, true)) {
    return;
  }
  if (!isSourceTypeAvailable(source_)) {
    finish(nullptr, source_ == UIImagePickerSource::kCamera
                        ? uikitText("This device has no camera.")
                        : uikitText("This device has no photos."));
    return;
  }
  uikitHost().imagePicker().pick(
      source_, *view(),
      [this, weak = weak_from_this()](const UIImageRef& image, const NSError* error) {
        if (const auto self = weak.lock()) {
          finish(image, error == nullptr ? std::string() : error->localizedDescription());
        }
      });
}

bool UIImagePickerController::accessibilityPerformEscape() {
  cancel();
  return true;
}

void UIImagePickerController::finish(const UIImageRef& image, const std::string& problem) {
  const auto kept = shared_from_this();
  if (image != nullptr) {
    if (const auto delegate = delegate_.lock()) {
      delegate->didFinishPickingMediaWithInfo(*this, {image});
    }
    return;
  }
  if (problem.empty()) {
    cancel();
    return;
  }
  const auto alert = UIAlertController::alertControllerWithTitle(/*title=*/"", problem,
                                                                 UIAlertControllerStyle::kAlert);
  alert->addAction(UIAlertAction::actionWithTitle(uikitText("OK"), UIAlertActionStyle::kDefault,
                                                  [this, weak = weak_from_this()](auto&) {
                                                    if (const auto self = weak.lock()) {
                                                      cancel();
                                                    }
                                                  }));
  presentViewController(alert, /*animated=*/true);
}

void UIImagePickerController::cancel() {
  const auto kept = shared_from_this();
  const auto delegate = delegate_.lock();
  if (delegate == nullptr || !delegate->imagePickerControllerDidCancel(*this)) {
    dismissViewControllerAnimated(/*animated=*/true);
  }
}

}  // namespace zephyl
