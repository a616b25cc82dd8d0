#include "platform/uikit/LayerAnimations.h"

#include <algorithm>

#include "platform/uikit/Animator.h"
#include "platform/uikit/Interpolation.h"

namespace zephyl {
namespace {

// What sums of times are off by.
constexpr double kTimeTolerance = 1e-6;

// Writes the value between those of `from` and `state` into `state`.
void approach(AnimatedValue value, const LayerState& from, double part, LayerState& state) {
  const auto mixed = [&](auto LayerState::*field) {
    state.*field = mix(from.*field, state.*field, part);
  };
  switch (value) {
    case AnimatedValue::kBounds:
      return mixed(&LayerState::bounds);
    case AnimatedValue::kPosition:
      return mixed(&LayerState::position);
    case AnimatedValue::kTransform:
      return mixed(&LayerState::transform);
    case AnimatedValue::kOpacity:
      return mixed(&LayerState::opacity);
    case AnimatedValue::kBackgroundColor:
      return mixed(&LayerState::backgroundColor);
    case AnimatedValue::kCornerRadius:
      return mixed(&LayerState::cornerRadius);
    case AnimatedValue::kBorderWidth:
      return mixed(&LayerState::borderWidth);
    case AnimatedValue::kBorderColor:
      return mixed(&LayerState::borderColor);
  }
}

}  // namespace

LayerAnimations::LayerAnimations(CALayer& layer, const std::shared_ptr<Animator>& animator)
    : layer_(layer), animator_(animator) {
  animator->add(layer);
}

LayerAnimations::~LayerAnimations() {
  for (const Entry& entry : entries_) {
    end(entry, /*finished=*/false);
  }
  if (const auto animator = animator_.lock()) {
    animator->remove(layer_);
  }
}

void LayerAnimations::begin(AnimatedValue value, const LayerState& state,
                            const std::shared_ptr<AnimationRun>& run) {
  const LayerState from = run->fromCurrentState ? presentation(state) : state;
  const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const Entry& each) { return each.value == value; });
  if (entry == entries_.end()) {
    entries_.push_back({value, from, run});
  } else if (entry->run == run) {
    return;
  } else {
    end(*entry, /*finished=*/false);
    *entry = {value, from, run};
  }
  ++run->values;
}

LayerState LayerAnimations::presentation(const LayerState& state) const {
  const auto animator = animator_.lock();
  return animator == nullptr ? state : presentationAt(state, animator->time());
}

LayerState LayerAnimations::presentationAt(const LayerState& state, double time) const {
  LayerState shown = state;
  for (const Entry& entry : entries_) {
    const AnimationRun& run = *entry.run;
    approach(entry.value, entry.from, run.curve.at((time - run.begin) / run.duration), shown);
  }
  return shown;
}

bool LayerAnimations::advance(double time) {
  std::erase_if(entries_, [&](const Entry& entry) {
    const bool over = time + kTimeTolerance >= entry.run->end();
    if (over) {
      end(entry, /*finished=*/true);
    }
    return over;
  });
  return !entries_.empty();
}

void LayerAnimations::end(const Entry& entry, bool finished) {
  --entry.run->values;
  entry.run->finished = entry.run->finished && finished;
}

}  // namespace zephyl
