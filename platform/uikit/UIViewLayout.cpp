// Laying out what needs it.

#include <utility>

#include "platform/uikit/UIView.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UIViewController.h"

namespace zephyl {
namespace {

// A layout that has not settled by then never will.
constexpr int kMostRounds = 20;

}  // namespace

void UIView::setNeedsLayout() {
  needsLayout_ = true;
  markForLayout();
  if (window_ != nullptr) {
    window_->requestPicture();
  }
}

// Tells the views below, up to the first that knows already.
void UIView::markForLayout() {
  for (UIView* below = superview_; below != nullptr && !below->subviewsNeedLayout_;
       below = below->superview_) {
    below->subviewsNeedLayout_ = true;
  }
}

void UIView::layoutIfNeeded() {
  UIView* lowest = this;
  while (lowest->superview_ != nullptr && lowest->superview_->needsLayout_ &&
         !lowest->superview_->layingOut_) {
    lowest = lowest->superview_;
  }
  const std::shared_ptr<UIView> keep = lowest->weak_from_this().lock();
  for (int round = 0; round < kMostRounds; ++round) {
    if (lowest->layingOut_ || !(lowest->needsLayout_ || lowest->subviewsNeedLayout_)) {
      return;
    }
    lowest->layoutTree();
  }
}

void UIView::layoutTree() {
  Tree waiting;
  UIView* view = this;
  for (std::shared_ptr<UIView> keep;; view = keep.get()) {
    view->layoutOnce();
    if (std::exchange(view->subviewsNeedLayout_, false)) {
      waiting.insert(waiting.end(), view->subviews_.rbegin(), view->subviews_.rend());
    }
    if (waiting.empty()) {
      return;
    }
    keep = std::move(waiting.back());
    waiting.pop_back();
  }
}

void UIView::layoutOnce() {
  if (!needsLayout_ || layingOut_) {
    return;
  }
  needsLayout_ = false;
  layingOut_ = true;
  const auto controller =
      viewController_ == nullptr ? nullptr : viewController_->weak_from_this().lock();
  if (controller != nullptr) {
    controller->viewWillLayoutSubviews();
  }
  layoutSubviews();
  if (controller != nullptr) {
    controller->viewDidLayoutSubviews();
  }
  layingOut_ = false;
}

CGSize UIView::sizeThatFits(CGSize /*size*/) const {
  return bounds().size;
}

void UIView::sizeToFit() {
  setFrame({frame().origin, sizeThatFits(bounds().size)});
}

CGSize UIView::intrinsicContentSize() const {
  return {-1, -1};
}

}  // namespace zephyl
