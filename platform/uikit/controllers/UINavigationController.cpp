#include "platform/uikit/controllers/UINavigationController.h"

#include <algorithm>
#include <utility>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/NavigationTransition.h"
#include "platform/uikit/controllers/UINavigationBar.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/gestures/UIScreenEdgePanGestureRecognizer.h"

namespace zephyl {

namespace {

// While screens slide, nothing on them can be touched.
class LayoutContainerView : public UIView {
 public:
  using UIView::UIView;

  [[nodiscard]] UIView* hitTest(CGPoint point) override {
    const auto* const navigation = dynamic_cast<const UINavigationController*>(viewController());
    if (navigation != nullptr && navigation->isInTransition() && pointInside(point)) {
      return this;
    }
    return UIView::hitTest(point);
  }
  [[nodiscard]] const char* className() const override { return "UILayoutContainerView"; }
};

}  // namespace

UINavigationController::UINavigationController() = default;
UINavigationController::~UINavigationController() = default;

std::shared_ptr<UINavigationController> UINavigationController::initWithRootViewController(
    const std::shared_ptr<UIViewController>& root) {
  auto navigation = std::make_shared<UINavigationController>();
  navigation->pushViewController(root, /*animated=*/false);
  return navigation;
}

std::shared_ptr<UIViewController> UINavigationController::topViewController() const {
  return stack_.empty() ? nullptr : stack_.back();
}

void UINavigationController::setViewControllers(const Controllers& controllers, bool animated) {
  Controllers stack;
  for (const auto& controller : controllers) {
    if (controller != nullptr && std::ranges::find(stack, controller) == stack.end()) {
      stack.push_back(controller);
    }
  }
  // Going back is what it looks like when the new top was on the stack before.
  const bool forwards = stack.empty() || std::ranges::find(stack_, stack.back()) == stack_.end();
  replaceStack(std::move(stack), animated, forwards);
}

void UINavigationController::pushViewController(const std::shared_ptr<UIViewController>& controller,
                                                bool animated) {
  if (controller == nullptr || std::ranges::find(stack_, controller) != stack_.end()) {
    return;
  }
  Controllers stack = stack_;
  stack.push_back(controller);
  replaceStack(std::move(stack), animated, /*forwards=*/true);
}

std::shared_ptr<UIViewController> UINavigationController::popViewControllerAnimated(bool animated) {
  if (stack_.size() < 2) {
    return nullptr;
  }
  auto gone = popToViewController(stack_[stack_.size() - 2], animated);
  return gone.empty() ? nullptr : gone.back();
}

UINavigationController::Controllers UINavigationController::popToRootViewControllerAnimated(
    bool animated) {
  return stack_.empty() ? Controllers{}
                        : popToViewController(Controllers(stack_).front(), animated);
}

UINavigationController::Controllers UINavigationController::popToViewController(
    const std::shared_ptr<UIViewController>& controller, bool animated) {
  const auto place = std::ranges::find(stack_, controller);
  if (place == stack_.end() || std::next(place) == stack_.end()) {
    return {};
  }
  Controllers gone(std::next(place), stack_.end());
  replaceStack(Controllers(stack_.begin(), std::next(place)), animated, /*forwards=*/false);
  return gone;
}

const std::shared_ptr<UINavigationBar>& UINavigationController::navigationBar() {
  view();
  return bar_;
}

void UINavigationController::loadView() {
  setView(std::make_shared<LayoutContainerView>(UIScreen::mainScreen().bounds()));
  viewIfLoaded()->setAutoresizingMask(kFlexibleWidth | kFlexibleHeight);
  bar_ = std::make_shared<UINavigationBar>();
  bar_->setBackAction([weak = weak_from_this()] {
    if (const auto self = std::static_pointer_cast<UINavigationController>(weak.lock())) {
      self->popViewControllerAnimated(/*animated=*/true);
    }
  });
  viewIfLoaded()->setBackgroundColor(UIColor::systemBackgroundColor());
  viewIfLoaded()->addSubview(bar_);
  const std::weak_ptr<UIViewController> weak = weak_from_this();
  const auto recognizer =
      std::make_shared<UIScreenEdgePanGestureRecognizer>([weak](UIGestureRecognizer& pan) {
        if (const auto self = std::static_pointer_cast<UINavigationController>(weak.lock())) {
          self->swipe(static_cast<UIScreenEdgePanGestureRecognizer&>(pan));
        }
      });
  recognizer->shouldBegin = [weak](UIGestureRecognizer&) {
    const auto self = std::static_pointer_cast<UINavigationController>(weak.lock());
    return self != nullptr && self->canSwipe();
  };
  viewIfLoaded()->addGestureRecognizer(recognizer);
}

void UINavigationController::viewDidLoad() {
  if (const auto top = topViewController()) {
    place(*top);
  }
  updateBar(/*animated=*/false, /*forwards=*/true);
}

void UINavigationController::viewWillLayoutSubviews() {
  const CGRect bounds = view()->bounds();
  const CGFloat top = safeAreaInsets().top;
  bar_->setCoveredHeight(top);
  bar_->setFrame(CGRectMake(0, top, bounds.width(), barHeight()));
  for (const auto& child : childViewControllers()) {
    if (child->isViewLoaded() && child->view()->superview() == view().get()) {
      child->view()->setFrame(areaForChild());
    }
  }
}

// Before version 7 screens begin below the bar, and have no guide to go by.
CGRect UINavigationController::areaForChild() const {
  const CGRect bounds = viewIfLoaded()->bounds();
  if (respondsToTopLayoutGuide()) {
    return bounds;
  }
  const CGFloat top = std::min(safeAreaInsets().top + barHeight(), bounds.height());
  return CGRectMake(0, top, bounds.width(), bounds.height() - top);
}

CGFloat UINavigationController::barHeight() const {
  // In a card, whose upper edge nothing covers, the bar is higher.
  const bool card = safeAreaInsets().top == 0 && presentingViewController() != nullptr;
  return card ? UINavigationBar::kHeightInCard : UINavigationBar::kHeight;
}

UIEdgeInsets UINavigationController::safeAreaInsetsForChild(
    const UIViewController& /*child*/) const {
  UIEdgeInsets insets = safeAreaInsets();
  insets.top = respondsToTopLayoutGuide() ? insets.top + barHeight() : 0;
  return insets;
}

bool UINavigationController::accessibilityPerformEscape() {
  const auto top = topViewController();
  if (top == nullptr) {
    return false;
  }
  for (const auto& item : UINavigationItem::Items(top->navigationItem()->leftBarButtonItems())) {
    if (item->systemItem() == UIBarButtonSystemItem::kCancel && item->performAction()) {
      return true;
    }
  }
  return !top->navigationItem()->hidesBackButton() &&
         popViewControllerAnimated(/*animated=*/true) != nullptr;
}

std::shared_ptr<UIViewController> UINavigationController::childForKeys() {
  const auto top = topViewController();
  return top == nullptr ? shared_from_this() : top;
}

std::vector<std::shared_ptr<UIViewController>> UINavigationController::childrenForAppearance() {
  return stack_.empty() ? Controllers{} : Controllers{stack_.back()};
}

void UINavigationController::place(UIViewController& controller) {
  const auto view = controller.view();
  view->setFrame(areaForChild());
  const auto& subviews = viewIfLoaded()->subviews();
  const auto bar = std::ranges::find(subviews, std::shared_ptr<UIView>(bar_));
  viewIfLoaded()->insertSubview(view, static_cast<std::size_t>(bar - subviews.begin()));
  viewIfLoaded()->setNeedsLayout();
}

void UINavigationController::updateBar(bool animated, bool forwards) {
  if (bar_ == nullptr) {
    return;
  }
  const auto top = topViewController();
  if (top == nullptr) {
    bar_->show(nullptr, nullptr, animated, forwards);
    return;
  }
  const bool back = stack_.size() > 1;
  bar_->show(top->navigationItem(), back ? stack_[stack_.size() - 2]->navigationItem() : nullptr,
             animated, forwards);
}

}  // namespace zephyl
