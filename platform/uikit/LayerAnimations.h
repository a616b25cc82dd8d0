// The animations that run on one layer, at most one for each of its values. Main thread.

#pragma once

#include <memory>
#include <vector>

#include "platform/uikit/CALayer.h"
#include "platform/uikit/TimingCurve.h"
#include "platform/uikit/UIViewAnimation.h"

namespace zephyl {

class Animator;

enum class AnimatedValue {
  kBounds,
  kPosition,
  kTransform,
  kOpacity,
  kBackgroundColor,
  kCornerRadius,
  kBorderWidth,
  kBorderColor
};

// What one call of `animateWithDuration` set going.
struct AnimationRun {
  double begin = 0;
  double duration = 0;
  TimingCurve curve{0, 0, 1, 1};
  bool fromCurrentState = false;
  AnimationCompletion completion;
  // While its changes are being made.
  bool open = true;
  // How many values are under way, and whether all that ended had their whole time.
  int values = 0;
  bool finished = true;

  [[nodiscard]] double end() const { return begin + duration; }
};

class LayerAnimations {
 public:
  LayerAnimations(CALayer& layer, const std::shared_ptr<Animator>& animator);
  // What still runs is cut short.
  ~LayerAnimations();
  LayerAnimations(const LayerAnimations&) = delete;
  LayerAnimations& operator=(const LayerAnimations&) = delete;

  // `state` is the layer's before the change. What ran on the same value is cut short; a second
  // change of the same run keeps its beginning.
  void begin(AnimatedValue value, const LayerState& state,
             const std::shared_ptr<AnimationRun>& run);

  // `state` with what is on the way, at the time of the present frame or another.
  [[nodiscard]] LayerState presentation(const LayerState& state) const;
  [[nodiscard]] LayerState presentationAt(const LayerState& state, double time) const;

  // Whether `animator` is the one that runs them: a new device has another.
  [[nodiscard]] bool isRunBy(const Animator& animator) const {
    return animator_.lock().get() == &animator;
  }

  // Ends what had its time; whether any is left.
  bool advance(double time);

 private:
  struct Entry {
    AnimatedValue value;
    LayerState from;
    std::shared_ptr<AnimationRun> run;
  };

  static void end(const Entry& entry, bool finished);

  CALayer& layer_;
  std::weak_ptr<Animator> animator_;
  std::vector<Entry> entries_;
};

}  // namespace zephyl
