// Touches and keys: which view is meant, and who is asked next.

#include <algorithm>

#include "platform/uikit/UIView.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/gestures/UIGestureRecognizer.h"

namespace zephyl {
namespace {

constexpr CGFloat kLeastTouchedAlpha = 0.01;
// Views farther up are not touched: no tree is too deep.
constexpr int kDeepest = 1000;

}  // namespace

void UIView::setUserInteractionEnabled(bool enabled) {
  userInteractionEnabled_ = enabled;
}

UIView* UIView::hitTest(CGPoint point) {
  static int depth = 0;
  if (!userInteractionEnabled_ || isHidden() || alpha() <= kLeastTouchedAlpha ||
      !pointInside(point)) {
    return nullptr;
  }
  UIView* hit = this;
  ++depth;
  for (auto each = subviews_.rbegin(); each != subviews_.rend() && depth < kDeepest; ++each) {
    const CGAffineTransform toThis = (*each)->layer_->state().toSuperlayer();
    if (toThis.a * toThis.d - toThis.b * toThis.c == 0) {
      continue;
    }
    const CGPoint there = CGPointApplyAffineTransform(point, CGAffineTransformInvert(toThis));
    UIView* const found = (*each)->hitTest(there);
    if (found != nullptr) {
      hit = found;
      break;
    }
  }
  --depth;
  return hit;
}

bool UIView::pointInside(CGPoint point) const {
  return CGRectContainsPoint(bounds(), point);
}

void UIView::addGestureRecognizer(const std::shared_ptr<UIGestureRecognizer>& recognizer) {
  if (recognizer == nullptr || recognizer->view() == this) {
    return;
  }
  UIGestureRecognizer& added = *recognizer;
  gestureRecognizers_.push_back(recognizer);
  if (added.view() != nullptr) {
    added.view()->removeGestureRecognizer(gestureRecognizers_.back());
  }
  added.setView(this);
}

void UIView::removeGestureRecognizer(const std::shared_ptr<UIGestureRecognizer>& recognizer) {
  const auto here = std::find(gestureRecognizers_.begin(), gestureRecognizers_.end(), recognizer);
  if (here == gestureRecognizers_.end()) {
    return;
  }
  const std::shared_ptr<UIGestureRecognizer> removed = *here;
  gestureRecognizers_.erase(here);
  removed->setView(nullptr);
}

UIResponder* UIView::nextResponder() const {
  if (viewController_ != nullptr) {
    return viewController_;
  }
  return superview_;
}

bool UIView::becomeFirstResponder() {
  if (window_ == nullptr || !canBecomeFirstResponder()) {
    return false;
  }
  if (isFirstResponder()) {
    return true;
  }
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  UIWindow* const window = window_;
  const std::shared_ptr<UIView> keepWindow = window->weak_from_this().lock();
  UIResponder* const present = window->firstResponder_;
  if (present != nullptr && !present->resignFirstResponder()) {
    return false;
  }
  // Whoever resigned may have made another the first, or taken this view away.
  if (window_ != window || (window->firstResponder_ != nullptr && !isFirstResponder())) {
    return false;
  }
  window->firstResponder_ = this;
  return true;
}

bool UIView::resignFirstResponder() {
  if (isFirstResponder()) {
    window_->firstResponder_ = nullptr;
  }
  return true;
}

bool UIView::isFirstResponder() const {
  return window_ != nullptr && window_->firstResponder_ == this;
}

bool UIView::endEditing() {
  auto* const first =
      window_ == nullptr ? nullptr : dynamic_cast<UIView*>(window_->firstResponder_);
  if (first == nullptr || !first->isDescendantOfView(this)) {
    return false;
  }
  const std::shared_ptr<UIView> keep = first->weak_from_this().lock();
  return first->resignFirstResponder();
}

}  // namespace zephyl
