#include "platform/uikit/tables/ScrollMotion.h"

#include <algorithm>
#include <cmath>

namespace zephyl {
namespace {

constexpr double kDecelerationPerMillisecond = 0.998;
constexpr double kSlowest = 10;
constexpr double kFastest = 20000;
constexpr double kRubber = 0.55;
constexpr double kSpring = 11;
constexpr double kNear = 0.5;

}  // namespace

CGFloat ScrollRange::clamp(CGFloat offset) const {
  return std::max(lowest, std::min(offset, highest));
}

bool ScrollRange::contains(CGFloat offset) const {
  return offset >= lowest && offset <= highest;
}

CGFloat rubberBand(CGFloat offset, const ScrollRange& range, CGFloat extent) {
  const CGFloat edge = range.clamp(offset);
  const CGFloat beyond = std::abs(offset - edge);
  if (beyond == 0 || extent <= 0) {
    return edge;
  }
  const CGFloat shown = (1 - 1 / (beyond * kRubber / extent + 1)) * extent;
  return edge + std::copysign(shown, offset - edge);
}

CGFloat withoutRubberBand(CGFloat shown, const ScrollRange& range, CGFloat extent) {
  const CGFloat edge = range.clamp(shown);
  const CGFloat beyond = std::abs(shown - edge);
  if (beyond == 0 || extent <= 0) {
    return edge;
  }
  // At the extent itself the finger would be infinitely far away.
  const CGFloat part = std::min(beyond / extent, 0.99);
  return edge + std::copysign((1 / (1 - part) - 1) * extent / kRubber, shown - edge);
}

ScrollMotion::ScrollMotion(CGFloat offset, CGFloat velocity)
    : offset_(finite(offset)), velocity_(std::clamp(finite(velocity), -kFastest, kFastest)) {}

bool ScrollMotion::step(double seconds, const ScrollRange& range, bool bounces) {
  const double time = std::max(0.0, finite(seconds));
  const CGFloat edge = range.clamp(offset_);
  if (edge != offset_) {
    return bounces ? pullBack(time, edge) : pullBack(1e3, edge);
  }
  decelerate(time);
  if (!range.contains(offset_)) {
    if (!bounces) {
      return pullBack(1e3, range.clamp(offset_));
    }
    return true;
  }
  return std::abs(velocity_) >= kSlowest;
}

void ScrollMotion::decelerate(double seconds) {
  const double rate = 1000 * std::log(kDecelerationPerMillisecond);
  const double left = std::exp(rate * seconds);
  offset_ += velocity_ * (left - 1) / rate;
  velocity_ *= left;
}

bool ScrollMotion::pullBack(double seconds, CGFloat edge) {
  const double left = std::exp(-kSpring * seconds);
  const double beyond = offset_ - edge;
  const double drive = velocity_ + kSpring * beyond;
  offset_ = edge + (beyond + drive * seconds) * left;
  velocity_ = (drive - kSpring * (beyond + drive * seconds)) * left;
  if (std::abs(offset_ - edge) < kNear && std::abs(velocity_) < kSlowest) {
    offset_ = edge;
    velocity_ = 0;
    return false;
  }
  return true;
}

}  // namespace zephyl
