#include "platform/uikit/UIViewAnimation.h"

#include <algorithm>
#include <utility>

#include "platform/uikit/Animator.h"
#include "platform/uikit/CADisplayLink.h"
#include "platform/uikit/UIKitHost.h"
#include "platform/uikit/UIScreen.h"

namespace zephyl {
namespace {

// For as long as it lives, changes belong to a run, or to none.
class CurrentRun {
 public:
  explicit CurrentRun(std::shared_ptr<AnimationRun> run)
      : outer_(std::exchange(Animator::current(), std::move(run))) {}
  ~CurrentRun() { Animator::current() = std::move(outer_); }
  CurrentRun(const CurrentRun&) = delete;
  CurrentRun& operator=(const CurrentRun&) = delete;

 private:
  std::shared_ptr<AnimationRun> outer_;
};

}  // namespace

void animateWithDuration(double duration, double delay, unsigned options,
                         const std::function<void()>& animations, AnimationCompletion completion) {
  const auto run = std::make_shared<AnimationRun>();
  run->begin = uikitHost().displayLink().timestamp() + std::max(0.0, finite(delay));
  run->duration = std::max(0.0, finite(duration));
  run->curve = TimingCurve::forOptions(options);
  run->fromCurrentState = (options & kAnimationBeginFromCurrentState) != 0;
  run->completion = std::move(completion);
  const bool moves = run->duration > 0 && !UIScreen::mainScreen().prefersReducedMotion();
  Animator::shared()->add(run);
  if (animations) {
    const CurrentRun current(moves ? run : nullptr);
    animations();
  }
  run->open = false;
}

void animateWithDuration(double duration, const std::function<void()>& animations,
                         AnimationCompletion completion) {
  animateWithDuration(duration, 0, kAnimationNoOptions, animations, std::move(completion));
}

void performWithoutAnimation(const std::function<void()>& changes) {
  const CurrentRun none(nullptr);
  changes();
}

void finishAllAnimations() {
  Animator::shared()->finishAll();
}

}  // namespace zephyl
