#include "platform/uikit/CALayer.h"

#include <algorithm>
#include <utility>

#include "platform/uikit/Animator.h"

namespace zephyl {
namespace {

CGPoint middle(const CGRect& rect) {
  return {rect.midX(), rect.midY()};
}

CGAffineTransform finiteTransform(const CGAffineTransform& t) {
  return {finite(t.a), finite(t.b), finite(t.c), finite(t.d), finite(t.tx), finite(t.ty)};
}

CGFloat atLeastZero(CGFloat number) {
  return std::max(0.0, finite(number));
}

}  // namespace

CGAffineTransform LayerState::toSuperlayer() const {
  const CGPoint center = middle(bounds);
  if (transform == CGAffineTransformIdentity) {
    return CGAffineTransformMakeTranslation(position.x - center.x, position.y - center.y);
  }
  const auto around =
      CGAffineTransformConcat(CGAffineTransformMakeTranslation(-center.x, -center.y), transform);
  return CGAffineTransformConcat(around, CGAffineTransformMakeTranslation(position.x, position.y));
}

CALayer::CALayer() = default;

CALayer::~CALayer() {
  animations_.reset();
  std::vector<std::shared_ptr<CALayer>> left = std::move(sublayers_);
  while (!left.empty()) {
    const std::shared_ptr<CALayer> layer = std::move(left.back());
    left.pop_back();
    layer->superlayer_ = nullptr;
    if (layer.use_count() == 1) {
      // Emptied before it goes: a tree of any depth ends without recursion.
      std::move(layer->sublayers_.begin(), layer->sublayers_.end(), std::back_inserter(left));
      layer->sublayers_.clear();
    } else {
      layer->endAnimationsOfTree();
    }
  }
}

CGRect CALayer::frame() const {
  return CGRectApplyAffineTransform(state_.bounds, state_.toSuperlayer());
}

void CALayer::setFrame(const CGRect& frame) {
  const CGRect sane = finite(frame);
  const CGRect bounds{state_.bounds.origin, sane.size};
  const CGPoint position = middle(sane);
  if (bounds == state_.bounds && position == state_.position) {
    return;
  }
  invalidate();
  if (bounds != state_.bounds) {
    animate(AnimatedValue::kBounds);
    state_.bounds = bounds;
  }
  if (position != state_.position) {
    animate(AnimatedValue::kPosition);
    state_.position = position;
  }
  invalidate();
}

template <class T>
void CALayer::change(T LayerState::*field, const T& value, AnimatedValue which) {
  if (state_.*field == value) {
    return;
  }
  invalidate();
  animate(which);
  state_.*field = value;
  invalidate();
}

void CALayer::animate(AnimatedValue which) {
  const std::shared_ptr<AnimationRun>& run = Animator::current();
  if (run == nullptr) {
    return;
  }
  const auto animator = Animator::shared();
  if (animations_ == nullptr || !animations_->isRunBy(*animator)) {
    animations_ = std::make_unique<LayerAnimations>(*this, animator);
  }
  animations_->begin(which, state_, run);
}

LayerState CALayer::presentation() const {
  return animations_ == nullptr ? state_ : animations_->presentation(state_);
}

void CALayer::setBounds(const CGRect& bounds) {
  const CGRect sane = finite(bounds);
  if (sane.size == state_.bounds.size && scrollContents(sane.origin)) {
    return;
  }
  change(&LayerState::bounds, sane, AnimatedValue::kBounds);
}

void CALayer::setPosition(CGPoint position) {
  change(&LayerState::position, finite(position), AnimatedValue::kPosition);
}

void CALayer::setTransform(const CGAffineTransform& transform) {
  change(&LayerState::transform, finiteTransform(transform), AnimatedValue::kTransform);
}

void CALayer::setOpacity(CGFloat opacity) {
  change(&LayerState::opacity, std::clamp(finite(opacity), 0.0, 1.0), AnimatedValue::kOpacity);
}

void CALayer::setBackgroundColor(const UIColor& color) {
  change(&LayerState::backgroundColor, color, AnimatedValue::kBackgroundColor);
}

void CALayer::setCornerRadius(CGFloat radius) {
  change(&LayerState::cornerRadius, atLeastZero(radius), AnimatedValue::kCornerRadius);
}

void CALayer::setBorderWidth(CGFloat width) {
  change(&LayerState::borderWidth, atLeastZero(width), AnimatedValue::kBorderWidth);
}

void CALayer::setBorderColor(const UIColor& color) {
  change(&LayerState::borderColor, color, AnimatedValue::kBorderColor);
}

void CALayer::setHidden(bool hidden) {
  if (hidden == hidden_) {
    return;
  }
  invalidate();
  hidden_ = hidden;
  invalidate();
}

void CALayer::setMasksToBounds(bool masks) {
  if (masks == masksToBounds_) {
    return;
  }
  invalidate();
  masksToBounds_ = masks;
  invalidate();
}

void CALayer::setMaskedCorners(unsigned corners) {
  if (corners == maskedCorners_) {
    return;
  }
  maskedCorners_ = corners;
  invalidate();
}

void CALayer::setShadow(const Shadow& shadow) {
  const Shadow sane{{finite(shadow.offset.width), finite(shadow.offset.height)},
                    atLeastZero(shadow.blur),
                    shadow.color};
  if (sane == shadow_) {
    return;
  }
  invalidate();
  shadow_ = sane;
  invalidate();
}

void CALayer::setContents(UIImageRef contents) {
  if (contents == contents_) {
    return;
  }
  contents_ = std::move(contents);
  invalidate();
}

CGAffineTransform CALayer::transformToRoot() const {
  CGAffineTransform whole;
  for (const CALayer* layer = this; layer->superlayer_ != nullptr; layer = layer->superlayer_) {
    whole = CGAffineTransformConcat(whole, layer->state_.toSuperlayer());
  }
  return whole;
}

void CALayer::removeAllAnimations() {
  if (animations_ == nullptr) {
    return;
  }
  invalidate();
  animations_.reset();
  invalidate();
}

}  // namespace zephyl
