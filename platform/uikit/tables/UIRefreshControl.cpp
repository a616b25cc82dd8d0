#include "platform/uikit/tables/UIRefreshControl.h"

#include <algorithm>

#include "platform/uikit/UIKitText.h"
#include "platform/uikit/controls/UIActivityIndicatorView.h"

namespace zephyl {

UIRefreshControl::UIRefreshControl()
    : wheel_(std::make_shared<UIActivityIndicatorView>(UIActivityIndicatorViewStyle::kGray)) {
  wheel_->setHidesWhenStopped(false);
  wheel_->setAlpha(0);
  setOpaque(false);
  setUserInteractionEnabled(false);
  addSubview(wheel_);
}

UIRefreshControl::~UIRefreshControl() = default;

void UIRefreshControl::layoutSubviews() {
  const CGSize size = wheel_->bounds().size;
  wheel_->setFrame(CGRectMake(bounds().midX() - size.width / 2, bounds().midY() - size.height / 2,
                              size.width, size.height));
}

void UIRefreshControl::setRefreshing(bool refreshing) {
  refreshing_ = refreshing;
  if (refreshing) {
    wheel_->setAlpha(1);
    wheel_->startAnimating();
  } else {
    wheel_->stopAnimating();
    wheel_->setAlpha(0);
  }
  if (const RoomMaker make = makeRoom_) {
    make(refreshing ? kHeight : 0);
  }
}

void UIRefreshControl::beginRefreshing() {
  if (!refreshing_) {
    setRefreshing(true);
  }
}

void UIRefreshControl::endRefreshing() {
  if (refreshing_) {
    setRefreshing(false);
  }
}

void UIRefreshControl::pulled(CGFloat distance, bool byFinger) {
  if (refreshing_) {
    return;
  }
  if (!byFinger || distance <= 0) {
    spent_ = spent_ && distance > 0;
  }
  if (!spent_) {
    wheel_->setAlpha(std::clamp(distance / kPull, 0.0, 1.0));
  }
  if (byFinger && distance >= kPull && !spent_ && isEnabled()) {
    spent_ = true;
    const auto kept = weak_from_this().lock();
    setRefreshing(true);
    sendActionsForControlEvents(kValueChanged);
  }
}

UIAccessibilityState UIRefreshControl::accessibilityState() const {
  UIAccessibilityState state = UIControl::accessibilityState();
  state.busy = refreshing_;
  return state;
}

std::string UIRefreshControl::derivedAccessibilityLabel() const {
  return uikitText("In progress");
}

}  // namespace zephyl
