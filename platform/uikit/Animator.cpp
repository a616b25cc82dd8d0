#include "platform/uikit/Animator.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/Once.h"
#include "platform/uikit/CADisplayLink.h"
#include "platform/uikit/DisplayFrames.h"
#include "platform/uikit/UIKitHost.h"

namespace zephyl {

std::shared_ptr<Animator> Animator::shared() {
  static Once<Animator> animator;
  return animator.get([] { return std::make_shared<Animator>(); });
}

std::shared_ptr<AnimationRun>& Animator::current() {
  static std::shared_ptr<AnimationRun> run;
  return run;
}

double Animator::time() const {
  return scheduled_ ? time_ : uikitHost().displayLink().timestamp();
}

void Animator::add(const std::shared_ptr<AnimationRun>& run) {
  runs_.push_back(run);
  schedule();
}

void Animator::schedule() {
  if (scheduled_) {
    return;
  }
  time_ = uikitHost().displayLink().timestamp();
  scheduled_ = true;
  addFrameCallback(weak_from_this(), [this](double timestamp) { return frame(timestamp); });
}

void Animator::add(CALayer& layer) {
  layers_.push_back(&layer);
}

void Animator::remove(CALayer& layer) {
  std::replace(layers_.begin(), layers_.end(), &layer, static_cast<CALayer*>(nullptr));
}

bool Animator::frame(double time) {
  advanceLayers(time);
  complete(time);
  scheduled_ = !runs_.empty();
  return scheduled_;
}

void Animator::advanceLayers(double time) {
  std::vector<CALayer*> changing;
  for (std::size_t i = 0; i < layers_.size(); ++i) {
    CALayer* const layer = layers_[i];
    if (layer == nullptr) {
      continue;
    }
    const LayerAnimations& animations = *layer->animations_;
    if (animations.presentationAt(layer->state_, time_) !=
        animations.presentationAt(layer->state_, time)) {
      changing.push_back(layer);
      layer->invalidate();
    }
  }
  time_ = time;
  for (CALayer* const layer : std::vector(layers_)) {
    if (layer != nullptr && !layer->animations_->advance(time)) {
      layer->animations_.reset();
    }
  }
  std::erase(layers_, nullptr);
  for (const CALayer* const layer : changing) {
    layer->invalidate();
  }
}

void Animator::complete(double time) {
  std::vector<std::shared_ptr<AnimationRun>> done;
  std::erase_if(runs_, [&](const std::shared_ptr<AnimationRun>& run) {
    const bool over = !run->open && run->values == 0;
    if (over) {
      done.push_back(run);
    }
    return over;
  });
  const auto end = [time](const std::shared_ptr<AnimationRun>& run) {
    return std::min(run->end(), time);
  };
  std::stable_sort(done.begin(), done.end(),
                   [&](const auto& a, const auto& b) { return end(a) < end(b); });
  for (const auto& run : done) {
    if (const auto completion = std::exchange(run->completion, nullptr)) {
      completion(run->finished);
    }
  }
}

void Animator::finishAll() {
  advanceLayers(std::numeric_limits<double>::infinity());
  time_ = uikitHost().displayLink().timestamp();
  complete(std::numeric_limits<double>::infinity());
}

}  // namespace zephyl
