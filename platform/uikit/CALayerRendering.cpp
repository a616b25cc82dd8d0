#include <algorithm>
#include <typeinfo>

#include "platform/uikit/CALayer.h"
#include "platform/uikit/LayerRenderer.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

void CALayer::drawInContext(CGContext& context) {
  if (contents_ != nullptr) {
    const UIColor tint = view_ == nullptr ? UIColor::labelColor() : view_->tintColor();
    context.draw(*contents_, state_.bounds, tint);
  }
  if (view_ != nullptr) {
    view_->drawRect(context, state_.bounds);
  }
}

bool CALayer::mayDrawContents() const {
  const CALayer& self = *this;
  if (contents_ != nullptr || typeid(self) != typeid(CALayer)) {
    return true;
  }
  const UIView* const view = view_;
  return view != nullptr && typeid(*view) != typeid(UIView);
}

// `rect` is in the space of the layer below.
bool CALayer::covers(const CGRect& rect, UIUserInterfaceStyle style) const {
  LayerState storage;
  const LayerState& seen = shown(storage);
  if (hidden_ || seen.opacity < 1 || seen.cornerRadius > 0 ||
      seen.transform != CGAffineTransformIdentity ||
      seen.backgroundColor.resolvedColor(style).channels().alpha < 1) {
    return false;
  }
  const CGRect frame = CGRectApplyAffineTransform(seen.bounds, seen.toSuperlayer());
  return CGRectUnion(frame, rect) == frame;
}

bool CALayer::sublayersCover(const CGRect& rect, UIUserInterfaceStyle style) const {
  return std::any_of(sublayers_.begin(), sublayers_.end(),
                     [&](const auto& layer) { return layer->covers(rect, style); });
}

void CALayer::render(CGContext& context) {
  LayerRenderer(context).render(*this);
}

}  // namespace zephyl
