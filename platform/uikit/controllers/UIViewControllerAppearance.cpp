// When a screen is told that it appears and goes.

#include "platform/uikit/controllers/UIViewController.h"

namespace zephyl {

void UIViewController::beginAppearanceTransition(bool appearing, bool animated) {
  const bool seen = appearance_ == Appearance::kAppearing || appearance_ == Appearance::kAppeared;
  if (seen == appearing) {
    return;
  }
  const auto self = shared_from_this();
  appearance_ = appearing ? Appearance::kAppearing : Appearance::kDisappearing;
  appearanceAnimated_ = animated;
  if (appearing) {
    view();
    viewWillAppear(animated);
  } else {
    viewWillDisappear(animated);
  }
  for (const auto& child : childrenForAppearance()) {
    child->beginAppearanceTransition(appearing, animated);
  }
}

void UIViewController::endAppearanceTransition() {
  const auto self = shared_from_this();
  if (appearance_ == Appearance::kAppearing) {
    appearance_ = Appearance::kAppeared;
    viewDidAppear(appearanceAnimated_);
  } else if (appearance_ == Appearance::kDisappearing) {
    appearance_ = Appearance::kGone;
    viewDidDisappear(appearanceAnimated_);
  } else {
    return;
  }
  for (const auto& child : childrenForAppearance()) {
    child->endAppearanceTransition();
  }
}

std::vector<std::shared_ptr<UIViewController>> UIViewController::childrenForAppearance() {
  return children_;
}

}  // namespace zephyl
