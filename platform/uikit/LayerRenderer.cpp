#include "platform/uikit/LayerRenderer.h"

#include <algorithm>
#include <utility>

#include "platform/uikit/UIView.h"

namespace zephyl {
namespace {

RoundedRect shapeOf(const CALayer& layer, const LayerState& shown) {
  return {shown.bounds, shown.cornerRadius, layer.maskedCorners()};
}

bool isVisible(const UIColor& color) {
  return color.channels().alpha > 0;
}

// Nothing can be seen of a layer that is pressed to a line.
bool isFlat(const CGAffineTransform& t) {
  return t.a * t.d - t.b * t.c == 0;
}

CGSize scaleOfContents(UIViewContentMode mode, const CGSize& drawn, const CGSize& seen) {
  const CGFloat across = seen.width / drawn.width;
  const CGFloat down = seen.height / drawn.height;
  switch (mode) {
    case UIViewContentMode::kScaleToFill:
      return {across, down};
    case UIViewContentMode::kScaleAspectFit:
      return {std::min(across, down), std::min(across, down)};
    case UIViewContentMode::kScaleAspectFill:
      return {std::max(across, down), std::max(across, down)};
    default:
      return {1, 1};
  }
}

// While the size is animated, contents are drawn as they will be: scaled into the middle, or, where
// the view would draw itself anew, from the upper left corner.
CGAffineTransform contentsTransform(const CALayer& layer, const LayerState& shown) {
  const CGRect& drawn = layer.state().bounds;
  const CGRect& seen = shown.bounds;
  if (drawn == seen || drawn.isEmpty()) {
    return {};
  }
  const UIViewContentMode mode =
      layer.view() == nullptr ? UIViewContentMode::kScaleToFill : layer.view()->contentMode();
  if (mode == UIViewContentMode::kRedraw) {
    return CGAffineTransformMakeTranslation(seen.x() - drawn.x(), seen.y() - drawn.y());
  }
  const CGSize scale = scaleOfContents(mode, drawn.size, seen.size);
  return {scale.width,
          0,
          0,
          scale.height,
          seen.midX() - drawn.midX() * scale.width,
          seen.midY() - drawn.midY() * scale.height};
}

}  // namespace

LayerRenderer::LayerRenderer(CGContext& context)
    : context_(context), style_(context.userInterfaceStyle()) {}

void LayerRenderer::render(CALayer& layer) {
  std::vector<Step> steps;
  steps.emplace_back(layer);
  while (!steps.empty()) {
    Step step = std::move(steps.back());
    steps.pop_back();
    if (step.begun) {
      complete(step);
      continue;
    }
    if (!begin(step)) {
      continue;
    }
    const std::vector<std::shared_ptr<CALayer>> above = step.layer->sublayers();
    step.begun = true;
    steps.push_back(std::move(step));
    for (auto each = above.rbegin(); each != above.rend(); ++each) {
      steps.emplace_back(**each);
    }
  }
}

bool LayerRenderer::begin(Step& step) {
  CALayer& layer = *step.layer;
  step.shown = layer.presentation();
  const LayerState& shown = step.shown;
  const CGAffineTransform toSuperlayer = shown.toSuperlayer();
  if (layer.isHidden() || shown.opacity <= 0 || isFlat(toSuperlayer)) {
    return false;
  }
  const CGRect own = CGRectApplyAffineTransform(layer.ownExtent(shown), toSuperlayer);
  const bool seen = !CGRectIntersection(own, context_.clipBounds()).isEmpty();
  if (!seen && (layer.masksToBounds() || layer.sublayers().empty())) {
    return false;
  }
  step.blends = shown.transform != CGAffineTransformIdentity ||
                (layer.masksToBounds() && shown.cornerRadius > 0);
  blending_ += static_cast<int>(step.blends);
  context_.saveState();
  context_.concat(toSuperlayer);
  if (shown.opacity < 1) {
    step.grouped = !drawsOneThing(step);
    if (step.grouped) {
      context_.beginLayer(shown.opacity, CGRectIntersection(layer.extent(), context_.clipBounds()));
    } else {
      step.alpha = shown.opacity;
    }
  }
  drawShadow(step);
  const UIColor background = resolved(shown.backgroundColor, step.alpha);
  if (isVisible(background) && !shown.bounds.isEmpty() && !isCovered(layer)) {
    context_.fill(shapeOf(layer, shown), background);
  }
  if (layer.masksToBounds()) {
    context_.saveState();
    context_.clip(shapeOf(layer, shown));
  }
  if (seen) {
    drawContents(step);
  }
  return true;
}

bool LayerRenderer::isCovered(const CALayer& layer) const {
  return blending_ == 0 && layer.sublayersCover(context_.clipBounds(), style_);
}

void LayerRenderer::drawShadow(const Step& step) {
  Shadow shadow = step.layer->shadow();
  shadow.color = resolved(shadow.color, step.alpha);
  if (isVisible(shadow.color) && !step.shown.bounds.isEmpty()) {
    context_.drawShadow(shapeOf(*step.layer, step.shown), shadow);
  }
}

void LayerRenderer::drawContents(const Step& step) {
  CALayer& layer = *step.layer;
  if (!layer.mayDrawContents()) {
    return;
  }
  // Whatever transform or clip the drawing leaves behind ends with it.
  context_.saveState();
  const CGAffineTransform fit = contentsTransform(layer, step.shown);
  if (fit != CGAffineTransformIdentity) {
    context_.concat(fit);
  }
  layer.drawInContext(context_);
  context_.restoreState();
}

void LayerRenderer::complete(const Step& step) {
  const LayerState& shown = step.shown;
  if (step.layer->masksToBounds()) {
    context_.restoreState();
  }
  const UIColor border = resolved(shown.borderColor, step.alpha);
  if (shown.borderWidth > 0 && isVisible(border) && !shown.bounds.isEmpty()) {
    context_.stroke(shapeOf(*step.layer, shown), shown.borderWidth, border);
  }
  if (step.grouped) {
    context_.endLayer();
  }
  context_.restoreState();
  blending_ -= static_cast<int>(step.blends);
}

bool LayerRenderer::drawsOneThing(const Step& step) const {
  const CALayer& layer = *step.layer;
  const LayerState& shown = step.shown;
  const bool more =
      layer.mayDrawContents() || std::any_of(layer.sublayers().begin(), layer.sublayers().end(),
                                             [](const auto& each) { return !each->isHidden(); });
  const int things = static_cast<int>(isVisible(resolved(layer.shadow().color, 1))) +
                     static_cast<int>(isVisible(resolved(shown.backgroundColor, 1))) +
                     static_cast<int>(shown.borderWidth > 0);
  return !more && things <= 1;
}

UIColor LayerRenderer::resolved(const UIColor& color, CGFloat alpha) const {
  const UIColor plain = color.resolvedColor(style_);
  return alpha < 1 ? plain.colorWithAlphaComponent(plain.channels().alpha * alpha) : plain;
}

}  // namespace zephyl
