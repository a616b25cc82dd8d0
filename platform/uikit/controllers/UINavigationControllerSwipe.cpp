// Going back by a finger that drags the topmost screen away from the leading edge.

#include <algorithm>

#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/controllers/NavigationTransition.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/gestures/UIScreenEdgePanGestureRecognizer.h"

namespace zephyl {

namespace {

constexpr double kDuration = 0.35;
// Points a second that decide, wherever the screen is by then.
constexpr CGFloat kFlick = 300;

}  // namespace

// As by the back button: not where there is none.
bool UINavigationController::canSwipe() const {
  const auto top = topViewController();
  return stack_.size() > 1 && transition_ == nullptr && hasAppeared() &&
         presentedViewController() == nullptr &&
         top->navigationItem()->leftBarButtonItems().empty() &&
         !top->navigationItem()->hidesBackButton();
}

void UINavigationController::swipe(const UIScreenEdgePanGestureRecognizer& recognizer) {
  if (recognizer.state() == UIGestureRecognizerState::kBegan) {
    beginSwipe();
    return;
  }
  if (transition_ == nullptr || !transition_->swiped) {
    return;
  }
  const CGFloat width = std::max(view()->bounds().width(), 1.0);
  const CGFloat progress = 1 - std::clamp(recognizer.distance() / width, 0.0, 1.0);
  if (recognizer.state() == UIGestureRecognizerState::kChanged) {
    performWithoutAnimation([&] { transition_->showProgress(progress); });
    return;
  }
  const CGFloat velocity = recognizer.velocity();
  const bool far = progress < 0.5 ? velocity > -kFlick : velocity > kFlick;
  endSwipe(recognizer.state() == UIGestureRecognizerState::kEnded && far, progress);
}

void UINavigationController::beginSwipe() {
  const auto self = shared_from_this();
  const auto transition = std::make_shared<Transition>();
  transition->from = stack_.back();
  transition->to = stack_[stack_.size() - 2];
  transition->forwards = false;
  transition->swiped = true;
  transition_ = transition;
  transition->from->view()->endEditing();
  transition->from->beginAppearanceTransition(/*appearing=*/false, /*animated=*/true);
  transition->to->beginAppearanceTransition(/*appearing=*/true, /*animated=*/true);
  if (transition_ == transition) {
    putInOrder(*transition);
  }
}

void UINavigationController::endSwipe(bool back, CGFloat progress) {
  const auto self = shared_from_this();
  const auto transition = transition_;
  transition->swiped = false;
  if (back) {
    transition->from->willMoveToParentViewController(nullptr);
    transition->leaving = {transition->from};
    std::erase(stack_, transition->from);
    updateBar(/*animated=*/true, /*forwards=*/false);
    finishLater(transition, kDuration * progress, /*progress=*/0);
    return;
  }
  transition->to->beginAppearanceTransition(/*appearing=*/false, /*animated=*/true);
  transition->from->beginAppearanceTransition(/*appearing=*/true, /*animated=*/true);
  transition->turnRound();
  finishLater(transition, kDuration * (1 - progress), /*progress=*/1);
}

}  // namespace zephyl
