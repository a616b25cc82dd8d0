#include "platform/uikit/controllers/UIViewController.h"

#include <algorithm>
#include <utility>

#include "platform/uikit/UIDevice.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/controllers/UIPresentationController.h"

namespace zephyl {

UIViewController::UIViewController() = default;

UIViewController::~UIViewController() {
  if (view_ != nullptr) {
    view_->setViewController(nullptr);
  }
}

const std::shared_ptr<UIView>& UIViewController::view() {
  // A `loadView` that asks for the view gets none, instead of loading without end.
  if (view_ != nullptr || loading_) {
    return view_;
  }
  loading_ = true;
  loadView();
  if (view_ == nullptr) {
    setView(std::make_shared<UIView>(UIScreen::mainScreen().bounds()));
  }
  loading_ = false;
  viewDidLoad();
  return view_;
}

void UIViewController::setView(const std::shared_ptr<UIView>& view) {
  if (view_ == view) {
    return;
  }
  if (view_ != nullptr) {
    view_->setViewController(nullptr);
  }
  view_ = view;
  if (view_ != nullptr) {
    view_->setViewController(this);
  }
}

void UIViewController::loadView() {
  const auto view = std::make_shared<UIView>(UIScreen::mainScreen().bounds());
  view->setAutoresizingMask(kFlexibleWidth | kFlexibleHeight);
  setView(view);
}

void UIViewController::setTitle(const std::string& title) {
  title_ = title;
  if (navigationItem_ != nullptr) {
    navigationItem_->setTitle(title);
  }
}

const std::shared_ptr<UINavigationItem>& UIViewController::navigationItem() {
  if (navigationItem_ == nullptr) {
    navigationItem_ = std::make_shared<UINavigationItem>(title_);
  }
  return navigationItem_;
}

void UIViewController::setEditing(bool editing, bool /*animated*/) {
  editing_ = editing;
}

std::shared_ptr<UIViewController> UIViewController::parentViewController() const {
  return parent_.lock();
}

void UIViewController::addChildViewController(const std::shared_ptr<UIViewController>& child) {
  for (auto above = shared_from_this(); above != nullptr; above = above->parent_.lock()) {
    if (above == child) {
      return;
    }
  }
  if (child == nullptr || child->parent_.lock().get() == this) {
    return;
  }
  child->removeFromParentViewController();
  child->willMoveToParentViewController(this);
  children_.push_back(child);
  child->parent_ = weak_from_this();
}

void UIViewController::removeFromParentViewController() {
  const auto self = shared_from_this();
  const auto parent = parent_.lock();
  if (parent == nullptr) {
    return;
  }
  std::erase(parent->children_, self);
  parent_.reset();
  didMoveToParentViewController(nullptr);
}

std::shared_ptr<UINavigationController> UIViewController::navigationController() const {
  for (auto above = parent_.lock(); above != nullptr; above = above->parent_.lock()) {
    if (auto navigation = std::dynamic_pointer_cast<UINavigationController>(above)) {
      return navigation;
    }
  }
  return nullptr;
}

std::shared_ptr<UIViewController> UIViewController::outermost() const {
  auto outermost = std::const_pointer_cast<UIViewController>(shared_from_this());
  while (auto parent = outermost->parent_.lock()) {
    outermost = std::move(parent);
  }
  return outermost;
}

UIEdgeInsets UIViewController::safeAreaInsets() const {
  if (const auto parent = parent_.lock()) {
    return parent->safeAreaInsetsForChild(*this);
  }
  if (const auto presentation = presentedBy_.lock()) {
    return presentation->safeAreaInsets();
  }
  return UIScreen::mainScreen().safeAreaInsets();
}

UIEdgeInsets UIViewController::safeAreaInsetsForChild(const UIViewController& /*child*/) const {
  return safeAreaInsets();
}

bool UIViewController::respondsToTopLayoutGuide() {
  return systemVersionIsAtLeast(7.0F);
}

bool UIViewController::pressesBegan(const UIKeyPress& press) {
  const auto self = shared_from_this();
  if (press.key == UIKey::kEscape && accessibilityPerformEscape()) {
    return true;
  }
  return UIResponder::pressesBegan(press);
}

UIResponder* UIViewController::nextResponder() const {
  return view_ == nullptr ? nullptr : view_->superview();
}

std::shared_ptr<UIViewController> UIViewController::topmostViewController() {
  auto topmost = outermost();
  while (topmost->presentation_ != nullptr && !topmost->presentation_->isDismissing()) {
    topmost = topmost->presentation_->presentedViewController();
  }
  while (auto child = topmost->childForKeys()) {
    if (child == topmost) {
      break;
    }
    topmost = std::move(child);
  }
  return topmost;
}

std::shared_ptr<UIViewController> UIViewController::childForKeys() {
  return shared_from_this();
}

}  // namespace zephyl
