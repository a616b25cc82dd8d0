// How one screen of a stack gives way to another.

#include <algorithm>
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

void straighten(const std::shared_ptr<UIViewController>& controller) {
  if (controller != nullptr && controller->isViewLoaded()) {
    controller->view()->layer()->removeAllAnimations();
    controller->view()->setTransform(CGAffineTransformIdentity);
  }
}

}  // namespace

void UINavigationController::Transition::showProgress(CGFloat progress) const {
  const bool mirrored = UIScreen::mainScreen().isRightToLeft();
  UIView& lower = *(forwards ? from : to)->view();
  UIView& upper = *(forwards ? to : from)->view();
  const CGFloat width = mirrored ? -upper.bounds().width() : upper.bounds().width();
  lower.setTransform(CGAffineTransformMakeTranslation(-kParallax * width * progress, 0));
  upper.setTransform(CGAffineTransformMakeTranslation(width * (1 - progress), 0));
  dimming->setAlpha(progress);
}

void UINavigationController::Transition::turnRound() {
  std::swap(from, to);
  forwards = !forwards;
  swiped = false;
  turnedRound = true;
}

void UINavigationController::replaceStack(Controllers stack, bool animated, bool forwards) {
  const auto self = shared_from_this();
  if (transition_ != nullptr && transition_->swiped) {
    endSwipe(/*back=*/false, /*progress=*/1);
  }
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
  transition_->from = from;
  transition_->to = to;
  transition_->leaving = std::move(leaving);
  transition_->forwards = forwards;
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
  if (to != nullptr && !slides) {
    performWithoutAnimation([&] { place(*to); });
  }
  updateBar(slides, forwards);
  if (slides) {
    slide(transition);
  } else {
    finishTransition();
  }
}

// Both views in the window, the lower one dimmed, below the bar.
void UINavigationController::putInOrder(Transition& transition) {
  UIViewController& lower = transition.forwards ? *transition.from : *transition.to;
  UIViewController& upper = transition.forwards ? *transition.to : *transition.from;
  const auto dimming = std::make_shared<UIView>(lower.view()->bounds());
  dimming->setBackgroundColor(UIColor::colorWithWhite(0, kDarkness));
  dimming->setUserInteractionEnabled(false);
  transition.dimming = dimming;
  performWithoutAnimation([&] {
    lower.view()->addSubview(dimming);
    place(lower);
    place(upper);
    transition.showProgress(transition.forwards ? 0 : 1);
    view()->layoutIfNeeded();
  });
}

void UINavigationController::slide(const std::shared_ptr<Transition>& transition) {
  putInOrder(*transition);
  finishLater(transition, kDuration, transition->forwards ? 1 : 0);
}

void UINavigationController::finishLater(const std::shared_ptr<Transition>& transition,
                                         double duration, CGFloat progress) {
  const std::weak_ptr<UIViewController> weak = weak_from_this();
  const std::weak_ptr<Transition> running = transition;
  animateWithDuration(
      duration, 0, kAnimationCurveEaseOut,
      [&transition, progress] { transition->showProgress(progress); },
      [weak, running](bool) {
        const auto self = std::static_pointer_cast<UINavigationController>(weak.lock());
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
  if (to != nullptr && !transition->turnedRound) {
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
