#include "platform/uikit/UIWindow.h"

#include <utility>

#include "platform/uikit/UIFocusSystem.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/controllers/UIViewController.h"
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
  // Whoever shows it may be gone already.
  damageHandler_ = nullptr;
  layer()->setSurface(nullptr);
  while (!subviews().empty()) {
    subviews().back()->removeFromSuperview();
  }
  // What is left to be destroyed is a view in no window.
  window_ = nullptr;
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
  const bool used = firstResponder_ != nullptr ? firstResponder_->pressesBegan(press)
                                               : sendKeyToTopmostScreen(press);
  return used || (press.key == UIKey::kTab && focus_->moveFocus(/*forwards=*/!press.shift));
}

bool UIWindow::sendKeyToTopmostScreen(const UIKeyPress& press) {
  const auto top =
      rootViewController_ == nullptr ? nullptr : rootViewController_->topmostViewController();
  const auto screen = top == nullptr ? nullptr : top->viewIfLoaded();
  return screen == nullptr ? pressesBegan(press) : screen->pressesBegan(press);
}

void UIWindow::setRootViewController(const std::shared_ptr<UIViewController>& controller) {
  if (rootViewController_ == controller) {
    return;
  }
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  const auto before = std::exchange(rootViewController_, controller);
  if (before != nullptr) {
    before->abandonPresented();
    before->beginAppearanceTransition(/*appearing=*/false, /*animated=*/false);
    before->view()->removeFromSuperview();
    before->endAppearanceTransition();
  }
  if (controller != nullptr) {
    const auto view = controller->view();
    view->setFrame(bounds());
    view->setAutoresizingMask(kFlexibleWidth | kFlexibleHeight);
    controller->beginAppearanceTransition(/*appearing=*/true, /*animated=*/false);
    insertSubview(view, 0);
    controller->endAppearanceTransition();
  }
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
