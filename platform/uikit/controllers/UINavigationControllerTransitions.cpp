// How one screen of a stack gives way to another.

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/NavigationTransition.h"
#include "platform/uikit/controllers/UINavigationBar.h"

namespace zephyl {

namespace {

constexpr double kDuration = 0.35;
// How far the lower screen moves, of its width, and how dark it becomes.
constexpr CGFloat kParallax = 0.3;
constexpr CGFloat kDarkness = 0.1;

void shift(UIViewController& controller, CGFloat distance) {
  const bool mirrored = UIScreen::mainScreen().userInterfaceLayoutDirection() ==
                        UIUserInterfaceLayoutDirection::kRightToLeft;
  controller.view()->setTransform(
      CGAffineTransformMakeTranslation(mirrored ? -distance : distance, 0));
}

void straighten(const std::shared_ptr<UIViewController>& controller) {
  if (controller != nullptr && controller->isViewLoaded()) {
    controller->view()->layer()->removeAllAnimations();
    controller->view()->setTransform(CGAffineTransformIdentity);
  }
}

}  // namespace

void UINavigationController::replaceStack(Controllers stack, bool animated, bool forwards) {
  const auto self = shared_from_this();
  finishTransition();
  const auto from = topViewController();
  const auto to = stack.empty() ? nullptr : stack.back();
  Controllers leaving;
  for (const auto& controller : stack_) {
    if (std::ranges::find(stack, controller) == stack.end()) {
      controller->willMoveToParentViewController(nullptr);
      leaving.push_back(controller);
    }
  }
  stack_ = std::move(stack);
  for (const auto& controller : Controllers(stack_)) {
    addChildViewController(controller);
  }
  show(from, to, std::move(leaving), animated, forwards);
}

void UINavigationController::show(const std::shared_ptr<UIViewController>& from,
                                  const std::shared_ptr<UIViewController>& to, Controllers leaving,
                                  bool animated, bool forwards) {
  if (from == to || !isViewLoaded()) {
    remove(leaving);
    if (to != nullptr && from != to) {
      to->didMoveToParentViewController(this);
    }
    updateBar(/*animated=*/false, forwards);
    return;
  }
  const bool seen = isAppearing() || hasAppeared();
  const bool slides =
      animated && hasAppeared() && view()->window() != nullptr && from != nullptr && to != nullptr;
  transition_ = std::make_shared<Transition>();
  *transition_ = {from, to, std::move(leaving), nullptr, forwards};
  const auto transition = transition_;
  if (from != nullptr) {
    from->view()->endEditing();
  }
  if (from != nullptr && seen) {
    from->beginAppearanceTransition(/*appearing=*/false, slides);
  }
  if (to != nullptr) {
    to->view();
    if (seen) {
      to->beginAppearanceTransition(/*appearing=*/true, slides);
    }
  }
  // Those calls may have changed the stack again.
  if (transition_ != transition) {
    return;
  }
  if (to != nullptr) {
    performWithoutAnimation([&] { place(*to); });
  }
  updateBar(slides, forwards);
  if (slides) {
    slide(transition);
  } else {
    finishTransition();
  }
}

void UINavigationController::slide(const std::shared_ptr<Transition>& transition) {
  UIViewController& lower = transition->forwards ? *transition->from : *transition->to;
  UIViewController& upper = transition->forwards ? *transition->to : *transition->from;
  const CGFloat width = view()->bounds().width();
  const auto dimming = std::make_shared<UIView>(lower.view()->bounds());
  dimming->setBackgroundColor(UIColor::colorWithWhite(0, kDarkness));
  dimming->setUserInteractionEnabled(false);
  transition->dimming = dimming;
  const std::function<void()> together = [&lower, &upper, dimming, width] {
    shift(lower, 0);
    shift(upper, width);
    dimming->setAlpha(0);
  };
  const std::function<void()> apart = [&lower, &upper, dimming, width] {
    shift(lower, -kParallax * width);
    shift(upper, 0);
    dimming->setAlpha(1);
  };
  performWithoutAnimation([&] {
    lower.view()->addSubview(dimming);
    const auto barIndex = static_cast<std::size_t>(
        std::ranges::find(view()->subviews(), std::shared_ptr<UIView>(bar_)) -
        view()->subviews().begin());
    view()->insertSubview(upper.view(), barIndex);
    if (transition->forwards) {
      together();
    } else {
      apart();
    }
    view()->layoutIfNeeded();
  });
  const std::weak_ptr<UIViewController> weak = weak_from_this();
  const std::weak_ptr<Transition> running = transition;
  animateWithDuration(kDuration, 0, kAnimationCurveEaseOut, transition->forwards ? apart : together,
                      [weak, running](bool) {
                        const auto self =
                            std::static_pointer_cast<UINavigationController>(weak.lock());
                        if (self != nullptr && self->transition_ != nullptr &&
                            self->transition_ == running.lock()) {
                          self->finishTransition();
                        }
                      });
}

void UINavigationController::finishTransition() {
  const auto transition = std::exchange(transition_, nullptr);
  if (transition == nullptr) {
    return;
  }
  const auto self = shared_from_this();
  const auto& from = transition->from;
  const auto& to = transition->to;
  performWithoutAnimation([&transition = *transition] {
    straighten(transition.from);
    straighten(transition.to);
    if (transition.dimming != nullptr) {
      transition.dimming->removeFromSuperview();
    }
    if (transition.from != nullptr && transition.from->isViewLoaded()) {
      transition.from->view()->removeFromSuperview();
    }
  });
  if (from != nullptr && !isAppearing()) {
    from->endAppearanceTransition();
  }
  if (to != nullptr && hasAppeared()) {
    to->endAppearanceTransition();
  }
  remove(transition->leaving);
  if (to != nullptr) {
    to->didMoveToParentViewController(this);
  }
}

void UINavigationController::remove(const Controllers& controllers) {
  for (const auto& controller : controllers) {
    if (controller->parentViewController().get() == this) {
      controller->removeFromParentViewController();
    }
  }
}

}  // namespace zephyl
