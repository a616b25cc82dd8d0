// Moving the pixels of what scrolls instead of drawing them anew.

#include <optional>

#include "platform/uikit/Animator.h"
#include "platform/uikit/CALayer.h"
#include "platform/uikit/LayerSurface.h"

namespace zephyl {
namespace {

bool isOpaque(const UIColor& color) {
  return color.resolvedColor(UIUserInterfaceStyle::kLight).channels().alpha >= 1 &&
         color.resolvedColor(UIUserInterfaceStyle::kDark).channels().alpha >= 1;
}

// Whether what is seen through the layer is only moved by it.
bool movesAlone(const LayerState& state) {
  return state.opacity >= 1 && state.transform == CGAffineTransformIdentity;
}

bool hasPlainEdges(const LayerState& state) {
  return state.cornerRadius <= 0 && state.borderWidth <= 0;
}

}  // namespace

// Where the layer is seen in the space of the lowest one, and what lies over it there. Nothing when
// pixels cannot be moved.
struct CALayer::ScrollArea {
  CGRect rect;
  std::vector<CGRect> covers;
};

std::optional<CALayer::ScrollArea> CALayer::scrollArea() const {
  if (!masksToBounds_ || contents_ != nullptr || !isOpaque(state_.backgroundColor)) {
    return std::nullopt;
  }
  ScrollArea area{state_.bounds, {}};
  for (const CALayer* layer = this;; layer = layer->superlayer_) {
    const bool clips = layer->masksToBounds_;
    if (layer->hidden_ || layer->animations_ != nullptr || !movesAlone(layer->state_) ||
        (clips && !hasPlainEdges(layer->state_))) {
      return std::nullopt;
    }
    if (clips) {
      area.rect = CGRectIntersection(area.rect, layer->state_.bounds);
    }
    if (layer->superlayer_ == nullptr) {
      return area;
    }
    const CGAffineTransform toSuperlayer = layer->state_.toSuperlayer();
    area.rect = CGRectApplyAffineTransform(area.rect, toSuperlayer);
    for (CGRect& cover : area.covers) {
      cover = CGRectApplyAffineTransform(cover, toSuperlayer);
    }
    layer->superlayer_->addCovers(*layer, area);
  }
}

void CALayer::addCovers(const CALayer& below, ScrollArea& area) const {
  bool above = false;
  for (const auto& layer : sublayers_) {
    if (above && !layer->hidden_) {
      const CGRect cover =
          CGRectApplyAffineTransform(layer->extent(), layer->presentation().toSuperlayer());
      const CGRect part = CGRectIntersection(cover, area.rect);
      if (!part.isEmpty()) {
        area.covers.push_back(part);
      }
    }
    above = above || layer.get() == &below;
  }
  if (state_.borderWidth > 0) {
    area.covers.push_back(area.rect);
  }
}

bool CALayer::scrollContents(CGPoint origin) {
  LayerSurface* const surface = rootSurface();
  if (surface == nullptr || origin == state_.bounds.origin || Animator::current() != nullptr) {
    return false;
  }
  const std::optional<ScrollArea> area = scrollArea();
  if (!area) {
    return false;
  }
  const CGFloat dx = state_.bounds.x() - origin.x;
  const CGFloat dy = state_.bounds.y() - origin.y;
  state_.bounds.origin = origin;
  if (area->rect.isEmpty()) {
    return true;
  }
  surface->scroll(area->rect, dx, dy);
  for (const CGRect& cover : area->covers) {
    // What lies above stays: it is drawn anew there, and where its pixels were moved to.
    surface->invalidate(CGRectIntersection(cover, area->rect));
    surface->invalidate(CGRectIntersection(CGRectOffset(cover, dx, dy), area->rect));
  }
  return true;
}

}  // namespace zephyl
