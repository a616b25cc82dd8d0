// What is drawn: a rectangle with a background, rounded corners, a border, a shadow, a picture, and
// layers above it. Every view has one; a layer may also stand alone. Main thread.
//
// A layer without a view changes at once: there are no implicit animations. A change inside
// `UIView::animateWithDuration` is animated: the layer has the new value from then on, and
// `presentation` tells what is on the screen meanwhile.

#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/CGContext.h"
#include "platform/uikit/LayerState.h"
#include "platform/uikit/UIImage.h"

namespace zephyl {

class LayerAnimations;
class LayerRenderer;
class LayerSurface;
class UIView;
enum class AnimatedValue;

class ZP_EXPORT CALayer : public std::enable_shared_from_this<CALayer> {
 public:
  CALayer();
  virtual ~CALayer();
  CALayer(const CALayer&) = delete;
  CALayer& operator=(const CALayer&) = delete;

  // Bounds and position at once. Setting it with a transform other than the identity moves the
  // untransformed rectangle.
  [[nodiscard]] CGRect frame() const;
  void setFrame(const CGRect& frame);

  [[nodiscard]] const LayerState& state() const { return state_; }
  // What is on the screen while an animation runs; else the same as `state`.
  [[nodiscard]] LayerState presentation() const;

  // Where only the origin changes and all that is seen moves with it, pixels are moved instead of
  // drawn anew: this is what makes scrolling cheap.
  void setBounds(const CGRect& bounds);
  void setPosition(CGPoint position);
  void setTransform(const CGAffineTransform& transform);
  void setOpacity(CGFloat opacity);
  void setBackgroundColor(const UIColor& color);
  void setCornerRadius(CGFloat radius);
  void setBorderWidth(CGFloat width);
  void setBorderColor(const UIColor& color);

  [[nodiscard]] bool isHidden() const { return hidden_; }
  void setHidden(bool hidden);
  // Clips what is above it, and its own contents, to its rounded rectangle.
  [[nodiscard]] bool masksToBounds() const { return masksToBounds_; }
  void setMasksToBounds(bool masks);
  // Bits of UIRectCorner: the corners that `cornerRadius` rounds.
  void setMaskedCorners(unsigned corners);
  [[nodiscard]] unsigned maskedCorners() const { return maskedCorners_; }
  // Opacity 0, the default of a shadow's colour, is none.
  void setShadow(const Shadow& shadow);
  [[nodiscard]] const Shadow& shadow() const { return shadow_; }
  // Drawn over the background, scaled to the bounds.
  void setContents(UIImageRef contents);
  [[nodiscard]] const UIImageRef& contents() const { return contents_; }

  // From the lowest to the highest. A layer that is added leaves the one it was in, and one that
  // leaves ends its animations and those of the layers in it. Adding a layer to itself or to one
  // that it contains does nothing.
  [[nodiscard]] const std::vector<std::shared_ptr<CALayer>>& sublayers() const {
    return sublayers_;
  }
  [[nodiscard]] CALayer* superlayer() const { return superlayer_; }
  void addSublayer(const std::shared_ptr<CALayer>& layer);
  // An index beyond the end adds at the end. A layer that is here already goes to that place among
  // the others.
  void insertSublayer(const std::shared_ptr<CALayer>& layer, std::size_t index);
  void removeFromSuperlayer();

  // The whole of it, or a part in its own coordinates, is drawn anew with the next picture.
  void setNeedsDisplay();
  void setNeedsDisplayInRect(const CGRect& rect);

  // What this layer draws of its own between background and sublayers: by default the contents, and
  // what its view draws.
  virtual void drawInContext(CGContext& context);

  // Draws this layer with everything above it, as presented, in the space of the layer below. What
  // lies outside the context's clip is left out. Kept: a shadow is drawn outside a clipping layer.
  void render(CGContext& context);

  // Whether the colour of one layer directly above hides all that is drawn below it in `rect`,
  // which is in this layer's space. False where that is hard to tell.
  [[nodiscard]] bool sublayersCover(const CGRect& rect, UIUserInterfaceStyle style) const;

  // From this layer's space to that of the lowest layer, by `state`.
  [[nodiscard]] CGAffineTransform transformToRoot() const;

  void removeAllAnimations();

  // For views and windows: the view it belongs to, and what collects the damage of a whole tree.
  void setView(UIView* view) { view_ = view; }
  [[nodiscard]] UIView* view() const { return view_; }
  void setSurface(LayerSurface* surface) { surface_ = surface; }

 private:
  friend class Animator;
  friend class LayerRenderer;

  template <class T>
  void change(T LayerState::*field, const T& value, AnimatedValue which);
  void animate(AnimatedValue which);
  void endAnimationsOfTree();
  // The presentation without a copy where nothing is animated; else it is put into `storage`.
  [[nodiscard]] const LayerState& shown(LayerState& storage) const {
    return animations_ == nullptr ? state_ : (storage = presentation());
  }
  // Everything drawn by this layer and those above it, as presented, in its own space.
  [[nodiscard]] CGRect extent() const;
  [[nodiscard]] CGRect ownExtent(const LayerState& shown) const;
  // Whether it may draw more than background, border and shadow of its own.
  [[nodiscard]] bool mayDrawContents() const;
  [[nodiscard]] bool covers(const CGRect& rect, UIUserInterfaceStyle style) const;
  [[nodiscard]] LayerSurface* rootSurface() const;
  void invalidate() const { invalidateRect({}, /*whole=*/true); }
  void invalidateRect(CGRect rect, bool whole) const;

  struct ScrollArea;
  [[nodiscard]] std::optional<ScrollArea> scrollArea() const;
  void addCovers(const CALayer& below, ScrollArea& area) const;
  // Whether the change was made so.
  bool scrollContents(CGPoint origin);

  LayerState state_;
  Shadow shadow_;
  UIImageRef contents_;
  bool hidden_ = false;
  bool masksToBounds_ = false;
  unsigned maskedCorners_ = kAllCorners;
  UIView* view_ = nullptr;
  LayerSurface* surface_ = nullptr;
  CALayer* superlayer_ = nullptr;
  std::vector<std::shared_ptr<CALayer>> sublayers_;
  std::unique_ptr<LayerAnimations> animations_;
};

}  // namespace zephyl
