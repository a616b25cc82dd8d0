// A rectangle of a screen with others in it. What it shows is its layer; where it is, is its
// layer's geometry. Main thread.
//
// A view holds its subviews; a subview knows the view it is in, and forgets it when that goes.
// Setters do nothing when given the value they already hold. Numbers that are not finite become 0.

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/uikit/CALayer.h"
#include "platform/uikit/UIAccessibility.h"
#include "platform/uikit/UIResponder.h"
#include "platform/uikit/UIViewEnumerations.h"

namespace zephyl {

class UIGestureRecognizer;
class UIViewController;

class ZP_EXPORT UIView : public std::enable_shared_from_this<UIView>,
                         public UIResponder,
                         public UIAccessibility {
 public:
  explicit UIView(const CGRect& frame = {});
  ~UIView() override;
  UIView(const UIView&) = delete;
  UIView& operator=(const UIView&) = delete;

  // Geometry, in the space of the superview; `bounds` in its own.
  [[nodiscard]] CGRect frame() const { return layer_->frame(); }
  [[nodiscard]] CGRect bounds() const { return layer_->state().bounds; }
  [[nodiscard]] CGPoint center() const { return layer_->state().position; }
  [[nodiscard]] CGAffineTransform transform() const { return layer_->state().transform; }
  virtual void setFrame(const CGRect& frame);
  virtual void setBounds(const CGRect& bounds);
  virtual void setCenter(CGPoint center);
  void setTransform(const CGAffineTransform& transform);
  // A null view is the window, or the topmost view where there is none.
  [[nodiscard]] CGPoint convertPointToView(CGPoint point, const UIView* view) const;
  [[nodiscard]] CGPoint convertPointFromView(CGPoint point, const UIView* view) const;
  [[nodiscard]] CGRect convertRectToView(const CGRect& rect, const UIView* view) const;

  // The tree.
  [[nodiscard]] UIView* superview() const { return superview_; }
  [[nodiscard]] const std::vector<std::shared_ptr<UIView>>& subviews() const { return subviews_; }
  [[nodiscard]] UIWindow* window() const { return window_; }
  // A view that is added leaves the one it was in. Adding a view to itself or to one of its own
  // subviews does nothing.
  void addSubview(const std::shared_ptr<UIView>& view);
  void insertSubview(const std::shared_ptr<UIView>& view, std::size_t index);
  void removeFromSuperview();
  void bringSubviewToFront(const std::shared_ptr<UIView>& view);
  void sendSubviewToBack(const std::shared_ptr<UIView>& view);
  [[nodiscard]] bool isDescendantOfView(const UIView* view) const;
  [[nodiscard]] std::int64_t tag() const { return tag_; }
  void setTag(std::int64_t tag) { tag_ = tag; }
  // This view, or the first below it in depth-first order, with the tag; null when there is none.
  [[nodiscard]] std::shared_ptr<UIView> viewWithTag(std::int64_t tag);
  virtual void willMoveToWindow(UIWindow* /*window*/) {}
  virtual void didMoveToWindow() {}
  virtual void didAddSubview(UIView& /*view*/) {}

  // Layout. A pass lays out each view that needs it, from the window downwards.
  void setNeedsLayout();
  // Begins with the lowest of the views below that need it too. A layout that asks for another
  // without end is stopped after some rounds.
  void layoutIfNeeded();
  // By default subviews keep to their autoresizing masks, which already happened when the bounds
  // changed: nothing is left to do.
  virtual void layoutSubviews() {}
  [[nodiscard]] virtual CGSize sizeThatFits(CGSize size) const;
  // The size that fits the present one; the upper left corner stays.
  void sizeToFit();
  // -1 for a side that the contents do not determine.
  [[nodiscard]] virtual CGSize intrinsicContentSize() const;
  void setAutoresizingMask(unsigned mask) { autoresizingMask_ = mask; }
  [[nodiscard]] unsigned autoresizingMask() const { return autoresizingMask_; }

  // Appearance.
  [[nodiscard]] const std::shared_ptr<CALayer>& layer() const { return layer_; }
  [[nodiscard]] UIColor backgroundColor() const { return layer_->state().backgroundColor; }
  virtual void setBackgroundColor(const UIColor& color);
  // For rows, which clear the backgrounds in them for a while: what was put aside comes back,
  // unless the background was set meanwhile, to clear too.
  void putBackgroundAside();
  void restoreBackground();
  [[nodiscard]] CGFloat alpha() const { return layer_->state().opacity; }
  void setAlpha(CGFloat alpha);
  [[nodiscard]] bool isHidden() const { return layer_->isHidden(); }
  void setHidden(bool hidden);
  // Kept apart from the layer: opaque promises that the view draws its whole rectangle.
  [[nodiscard]] bool isOpaque() const { return opaque_; }
  void setOpaque(bool opaque) { opaque_ = opaque; }
  [[nodiscard]] bool clipsToBounds() const { return layer_->masksToBounds(); }
  void setClipsToBounds(bool clips);
  [[nodiscard]] UIViewContentMode contentMode() const { return contentMode_; }
  void setContentMode(UIViewContentMode mode);
  // The one that was set, else the superview's, else the system's blue.
  [[nodiscard]] UIColor tintColor() const;
  void setTintColor(const UIColor& color);
  virtual void tintColorDidChange() {}
  // Draws the contents over the background. `rect` is the bounds.
  virtual void drawRect(CGContext& /*context*/, const CGRect& /*rect*/) {}
  void setNeedsDisplay();
  void setNeedsDisplayInRect(const CGRect& rect);

  // Touch.
  [[nodiscard]] bool isUserInteractionEnabled() const { return userInteractionEnabled_; }
  virtual void setUserInteractionEnabled(bool enabled);
  // The topmost view at the point that can be touched: visible (alpha above 0.01), enabled, and
  // so are all below it. Null when there is none.
  [[nodiscard]] virtual UIView* hitTest(CGPoint point);
  [[nodiscard]] virtual bool pointInside(CGPoint point) const;
  // Asked of the touched view and those around it, up to the recognizer's own, before it begins.
  [[nodiscard]] virtual bool gestureRecognizerShouldBegin(const UIGestureRecognizer& /*gesture*/) {
    return true;
  }
  // The innermost view at the point is asked first; whether it used the turn, or the click of the
  // second button.
  virtual bool handleScroll(const UIScrollEvent& /*scroll*/) { return false; }
  virtual bool contextMenuRequested(const UITouch& /*touch*/) { return false; }
  void addGestureRecognizer(const std::shared_ptr<UIGestureRecognizer>& recognizer);
  void removeGestureRecognizer(const std::shared_ptr<UIGestureRecognizer>& recognizer);
  [[nodiscard]] const std::vector<std::shared_ptr<UIGestureRecognizer>>& gestureRecognizers()
      const {
    return gestureRecognizers_;
  }
  [[nodiscard]] UIResponder* nextResponder() const override;
  bool becomeFirstResponder() override;
  bool resignFirstResponder() override;
  [[nodiscard]] bool isFirstResponder() const override;
  // Whether this view or one below it was first responder and resigned.
  bool endEditing();

  // Objects that others keep with the view: the key is the address of a constant of theirs.
  [[nodiscard]] std::shared_ptr<void> associatedObject(const void* key) const;
  void setAssociatedObject(const void* key, std::shared_ptr<void> object);

  // For view controllers: the one whose view this is.
  void setViewController(UIViewController* controller) { viewController_ = controller; }
  [[nodiscard]] UIViewController* viewController() const { return viewController_; }

  // For dumps: the class's own name, and what the view shows, a text or a value; empty for nothing.
  [[nodiscard]] virtual const char* className() const { return "UIView"; }
  [[nodiscard]] virtual std::string describe() const { return {}; }

 private:
  friend class UIWindow;
  using Tree = std::vector<std::shared_ptr<UIView>>;

  // This view and all below it, depth-first.
  [[nodiscard]] Tree tree();
  void place(const std::shared_ptr<UIView>& view, std::size_t index);
  void detach();
  void leaveWindow();
  void moveToWindow(UIWindow* window);
  void boundsChanged(const CGRect& before);
  void autoresizeSubviews(CGSize from, CGSize to);
  void autoresize(CGSize from, CGSize to);
  void markForLayout();
  void layoutTree();
  void layoutOnce();
  void tintColorChanged();

  std::shared_ptr<CALayer> layer_;
  UIView* superview_ = nullptr;
  UIWindow* window_ = nullptr;
  std::vector<std::shared_ptr<UIView>> subviews_;
  std::vector<std::shared_ptr<UIGestureRecognizer>> gestureRecognizers_;
  std::map<const void*, std::shared_ptr<void>> associatedObjects_;
  std::unique_ptr<UIColor> tintColor_;
  std::unique_ptr<UIColor> backgroundAside_;
  UIViewController* viewController_ = nullptr;
  std::int64_t tag_ = 0;
  unsigned autoresizingMask_ = 0;
  UIViewContentMode contentMode_ = UIViewContentMode::kScaleToFill;
  bool opaque_ = true;
  bool userInteractionEnabled_ = true;
  bool needsLayout_ = true;
  bool subviewsNeedLayout_ = false;
  bool layingOut_ = false;
};

}  // namespace zephyl
