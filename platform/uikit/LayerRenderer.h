// Draws a tree of layers, from the lowest to the highest. For one call of CALayer::render.

#pragma once

#include <memory>
#include <vector>

#include "platform/uikit/CALayer.h"

namespace zephyl {

class LayerRenderer {
 public:
  explicit LayerRenderer(CGContext& context);

  void render(CALayer& layer);

 private:
  // A layer to be drawn; or, once that has begun and those above it are drawn, to be completed.
  struct Step {
    explicit Step(CALayer& drawn) : layer(&drawn), keep(drawn.weak_from_this().lock()) {}

    CALayer* layer;
    // Held while it waits: drawing may change the tree.
    std::shared_ptr<CALayer> keep;
    bool begun = false;
    bool grouped = false;
    // Its clip or its turn blends at edges.
    bool blends = false;
    // What its colours are to be multiplied with.
    CGFloat alpha = 1;
    LayerState shown;
  };

  // Whether anything of it can be seen; else nothing was drawn.
  bool begin(Step& step);
  void complete(const Step& step);
  // Whether nothing drawn by the layer below its sublayers can be seen.
  [[nodiscard]] bool isCovered(const CALayer& layer) const;
  void drawShadow(const Step& step);
  void drawContents(const Step& step);
  [[nodiscard]] bool drawsOneThing(const Step& step) const;
  [[nodiscard]] UIColor resolved(const UIColor& color, CGFloat alpha) const;

  CGContext& context_;
  UIUserInterfaceStyle style_;
  // Of the steps begun. What is drawn twice at such an edge is seen to be.
  int blending_ = 0;
};

}  // namespace zephyl
