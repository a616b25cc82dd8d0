#include "platform/uikit/controllers/UIAlertController.h"

#include <algorithm>

#include "platform/uikit/controllers/AlertPresentation.h"
#include "platform/uikit/controllers/AlertView.h"

namespace zephyl {

UIAlertController::UIAlertController(UIAlertControllerStyle style) : alertStyle_(style) {}

UIAlertController::~UIAlertController() = default;

std::shared_ptr<UIAlertController> UIAlertController::alertControllerWithTitle(
    const std::string& title, const std::string& message, UIAlertControllerStyle style) {
  auto alert = std::make_shared<UIAlertController>(style);
  alert->setTitle(title);
  alert->message_ = message;
  return alert;
}

void UIAlertController::setTitle(const std::string& title) {
  UIViewController::setTitle(title);
  contentChanged();
}

void UIAlertController::setMessage(const std::string& message) {
  message_ = message;
  contentChanged();
}

void UIAlertController::addAction(const UIAlertActionRef& action) {
  if (action == nullptr || std::ranges::find(actions_, action) != actions_.end()) {
    return;
  }
  if (action->style() == UIAlertActionStyle::kCancel && cancelAction() != nullptr) {
    return;
  }
  actions_.push_back(action);
  contentChanged();
}

void UIAlertController::setPreferredAction(const UIAlertActionRef& action) {
  preferredAction_ = action;
  contentChanged();
}

void UIAlertController::choose(const UIAlertActionRef& action) {
  if (chosen_ || action == nullptr || !action->isEnabled()) {
    return;
  }
  chosen_ = true;
  const auto self = shared_from_this();
  dismissViewControllerAnimated(/*animated=*/true, [self, action] { action->perform(); });
}

void UIAlertController::loadView() {
  const auto view = std::make_shared<AlertView>(alertStyle_);
  const std::weak_ptr<UIViewController> weak = weak_from_this();
  view->setChoice([weak](const UIAlertActionRef& action) {
    if (const auto self = std::static_pointer_cast<UIAlertController>(weak.lock())) {
      self->choose(action);
    }
  });
  setView(view);
  contentChanged();
  view->setFrame(CGRect{{}, view->sizeThatFits(AlertView::availableSize())});
}

void UIAlertController::viewWillAppear(bool animated) {
  UIViewController::viewWillAppear(animated);
  chosen_ = false;
}

std::shared_ptr<UIPresentationController> UIAlertController::makePresentationController() {
  if (alertStyle_ == UIAlertControllerStyle::kActionSheet) {
    return std::make_shared<ActionSheetPresentation>(shared_from_this());
  }
  return std::make_shared<AlertPresentation>(shared_from_this());
}

bool UIAlertController::accessibilityPerformEscape() {
  auto action = cancelAction();
  if (action == nullptr && actions_.size() == 1) {
    action = actions_.front();
  }
  choose(action);
  return action != nullptr;
}

bool UIAlertController::pressesBegan(const UIKeyPress& press) {
  const auto self = shared_from_this();
  if (press.key == UIKey::kReturn && !chosen_) {
    if (const auto action = defaultAction()) {
      choose(action);
      return true;
    }
  }
  const auto view = alertView();
  if (view != nullptr && view->moveFocus(press)) {
    return true;
  }
  return UIViewController::pressesBegan(press);
}

UIAlertActionRef UIAlertController::cancelAction() const {
  const auto found =
      std::ranges::find(actions_, UIAlertActionStyle::kCancel,
                        [](const UIAlertActionRef& action) { return action->style(); });
  return found == actions_.end() ? nullptr : *found;
}

UIAlertActionRef UIAlertController::defaultAction() const {
  if (preferredAction_ != nullptr) {
    return preferredAction_;
  }
  for (auto action = actions_.rbegin(); action != actions_.rend(); ++action) {
    if ((*action)->style() == UIAlertActionStyle::kDefault && (*action)->isEnabled()) {
      return *action;
    }
  }
  return actions_.size() == 1 ? actions_.front() : nullptr;
}

std::shared_ptr<AlertView> UIAlertController::alertView() const {
  return std::dynamic_pointer_cast<AlertView>(viewIfLoaded());
}

void UIAlertController::contentChanged() {
  if (const auto view = alertView()) {
    view->setContent(title(), message_, actions_, preferredAction_);
  }
}

}  // namespace zephyl
