#include "platform/uikit/UIWindow.h"

#include "platform/uikit/UIFocusSystem.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/gestures/TouchDispatcher.h"

namespace zephyl {

UIWindow::UIWindow(const CGRect& frame)
    : UIView(frame),
      touches_(std::make_unique<TouchDispatcher>(*this)),
      focus_(std::make_unique<UIFocusSystem>(*this)) {
  window_ = this;
  damage_.add(bounds());
  layer()->setSurface(this);
}

UIWindow::~UIWindow() {
  layer()->setSurface(nullptr);
  while (!subviews().empty()) {
    subviews().back()->removeFromSuperview();
  }
}

void UIWindow::sendTouch(const UITouch& touch) {
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  if (touch.phase == UITouchPhase::kBegan) {
    focus_->hideRing();
  }
  touches_->touch(touch);
}

void UIWindow::sendScroll(const UIScrollEvent& scroll) {
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  touches_->scroll(scroll);
}

bool UIWindow::sendKey(const UIKeyPress& press) {
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  auto* const view = dynamic_cast<UIView*>(firstResponder_);
  const std::shared_ptr<UIView> keepFirst = view == nullptr ? keep : view->weak_from_this().lock();
  const bool used =
      firstResponder_ == nullptr ? pressesBegan(press) : firstResponder_->pressesBegan(press);
  return used || (press.key == UIKey::kTab && focus_->moveFocus(/*forwards=*/!press.shift));
}

void UIWindow::layoutWindow() {
  layoutIfNeeded();
  focus_->update();
}

Damage UIWindow::takeDamage() {
  pictureWanted_ = false;
  return damage_.take(bounds(), UIScreen::mainScreen().scale());
}

void UIWindow::requestPicture() {
  if (pictureWanted_) {
    return;
  }
  pictureWanted_ = true;
  if (damageHandler_) {
    damageHandler_();
  }
}

void UIWindow::invalidate(const CGRect& rect) {
  damage_.add(rect);
  requestPicture();
}

void UIWindow::scroll(const CGRect& area, CGFloat dx, CGFloat dy) {
  damage_.move(area, dx, dy);
  requestPicture();
}

}  // namespace zephyl
