// What has to be drawn anew when a layer changes.

#include <cmath>
#include <utility>

#include "platform/uikit/CALayer.h"
#include "platform/uikit/LayerAnimations.h"
#include "platform/uikit/LayerSurface.h"

namespace zephyl {
namespace {

// A shadow is nowhere to be seen farther from its shape than so many times its blur.
constexpr CGFloat kShadowReach = 3;

bool isClear(const UIColor& color) {
  return color.resolvedColor(UIUserInterfaceStyle::kLight).channels().alpha <= 0 &&
         color.resolvedColor(UIUserInterfaceStyle::kDark).channels().alpha <= 0;
}

}  // namespace

LayerSurface* CALayer::rootSurface() const {
  const CALayer* root = this;
  while (root->superlayer_ != nullptr) {
    root = root->superlayer_;
  }
  return root->surface_;
}

CGRect CALayer::ownExtent(const LayerState& shown) const {
  if (isClear(shadow_.color)) {
    return shown.bounds;
  }
  const CGFloat reach = kShadowReach * shadow_.blur;
  const CGRect shape = CGRectOffset(shown.bounds, shadow_.offset.width, shadow_.offset.height);
  return CGRectUnion(shown.bounds, CGRectInset(shape, -reach, -reach));
}

CGRect CALayer::extent() const {
  CGRect whole;
  LayerState storage;
  std::vector<std::pair<const CALayer*, CGAffineTransform>> waiting{{this, {}}};
  while (!waiting.empty()) {
    const auto [layer, toThis] = waiting.back();
    waiting.pop_back();
    whole = CGRectUnion(
        whole, CGRectApplyAffineTransform(layer->ownExtent(layer->shown(storage)), toThis));
    if (layer->masksToBounds_) {
      continue;
    }
    for (const auto& sublayer : layer->sublayers_) {
      const LayerState& above = sublayer->shown(storage);
      if (!sublayer->hidden_ && above.opacity > 0) {
        waiting.emplace_back(sublayer.get(), CGAffineTransformConcat(above.toSuperlayer(), toThis));
      }
    }
  }
  return whole;
}

void CALayer::invalidateRect(CGRect rect, bool whole) const {
  LayerSurface* const surface = rootSurface();
  if (surface == nullptr) {
    return;
  }
  LayerState storage;
  for (const CALayer* layer = this;; layer = layer->superlayer_) {
    const LayerState& shown = layer->shown(storage);
    if (layer->hidden_ || shown.opacity <= 0) {
      return;
    }
    if (layer == this) {
      rect = whole ? extent() : rect;
    } else if (layer->masksToBounds_) {
      rect = CGRectIntersection(rect, shown.bounds);
    }
    if (rect.isEmpty()) {
      return;
    }
    if (layer->superlayer_ == nullptr) {
      return surface->invalidate(rect);
    }
    rect = CGRectApplyAffineTransform(rect, shown.toSuperlayer());
  }
}

void CALayer::setNeedsDisplay() {
  invalidateRect(presentation().bounds, /*whole=*/false);
}

void CALayer::setNeedsDisplayInRect(const CGRect& rect) {
  invalidateRect(finite(rect), /*whole=*/false);
}

}  // namespace zephyl
