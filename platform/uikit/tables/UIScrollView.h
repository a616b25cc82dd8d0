// A view that shows a part of larger contents and moves it by finger, wheel and key. Main thread.
//
// The contents are its subviews; what part is seen is the origin of its bounds. At rest that lies
// between minus the upper left insets and the content size plus the lower right insets, minus the
// size; a finger pulls beyond, where it bounces, and it springs back.

#pragma once

#include <functional>
#include <memory>

#include "platform/uikit/UIView.h"
#include "platform/uikit/tables/ScrollMotion.h"

namespace zephyl {

class ScrollIndicator;
class UIPanGestureRecognizer;
class UIScrollView;

// All are told after it happened; none need be taken.
class ZP_EXPORT UIScrollViewDelegate {
 public:
  virtual ~UIScrollViewDelegate() = default;
  virtual void scrollViewDidScroll(UIScrollView& /*scrollView*/) {}
  virtual void scrollViewWillBeginDragging(UIScrollView& /*scrollView*/) {}
  virtual void scrollViewDidEndDragging(UIScrollView& /*scrollView*/, bool /*willDecelerate*/) {}
  virtual void scrollViewDidEndDecelerating(UIScrollView& /*scrollView*/) {}
  // Of a movement that was asked for with animation.
  virtual void scrollViewDidEndScrollingAnimation(UIScrollView& /*scrollView*/) {}
};

class ZP_EXPORT UIScrollView : public UIView {
 public:
  explicit UIScrollView(const CGRect& frame = {});
  ~UIScrollView() override;

  [[nodiscard]] CGSize contentSize() const { return contentSize_; }
  void setContentSize(CGSize size);
  [[nodiscard]] CGPoint contentOffset() const { return bounds().origin; }
  // Not held within the limits: the next movement of the user's is. Goes to the nearest pixel, as
  // every movement does, so that what is seen can be moved. Ends whatever moves. Animated
  // it takes 0.3 s; in no window and with reduced motion it is there at once.
  void setContentOffset(CGPoint offset, bool animated = false);
  [[nodiscard]] UIEdgeInsets contentInset() const { return contentInset_; }
  void setContentInset(const UIEdgeInsets& inset);
  // With what bars and the edges of the device cover of it, as the screen says that it is on,
  // unless that is not to be looked at. Contents at the top stay at the top when it changes.
  [[nodiscard]] UIEdgeInsets adjustedContentInset() const;
  void setAdjustsForSafeArea(bool adjusts);
  // The least that is scrolled, animated or not, so that as much of `rect`, which is in the
  // coordinates of the contents, is seen as can be.
  void scrollRectToVisible(const CGRect& rect, bool animated);

  [[nodiscard]] bool isScrollEnabled() const { return scrollEnabled_; }
  void setScrollEnabled(bool enabled);
  [[nodiscard]] bool bounces() const { return bounces_; }
  void setBounces(bool bounces) { bounces_ = bounces; }
  // Also where the contents are no higher than the view.
  [[nodiscard]] bool alwaysBounceVertical() const { return alwaysBounceVertical_; }
  void setAlwaysBounceVertical(bool bounces) { alwaysBounceVertical_ = bounces; }
  void setShowsVerticalScrollIndicator(bool shows);
  void flashScrollIndicators();

  // A finger is down on it; it moves with a finger; it moves on after one.
  [[nodiscard]] bool isTracking() const { return tracking_; }
  [[nodiscard]] bool isDragging() const { return dragging_; }
  [[nodiscard]] bool isDecelerating() const;

  void setScrollDelegate(std::weak_ptr<UIScrollViewDelegate> delegate);
  [[nodiscard]] const std::shared_ptr<UIPanGestureRecognizer>& panGestureRecognizer() const {
    return pan_;
  }

  void setFrame(const CGRect& frame) override;
  void setBounds(const CGRect& bounds) override;
  void layoutSubviews() override;
  void didMoveToWindow() override;
  bool handleScroll(const UIScrollEvent& scroll) override;
  // Arrows scroll by 44 points, the page keys by a page, Home and End to the ends.
  bool pressesBegan(const UIKeyPress& press) override;
  [[nodiscard]] const char* className() const override { return "UIScrollView"; }

 protected:
  // After every change of the offset, before the delegate is told.
  virtual void contentOffsetDidChange() {}
  // A finger went down; `stopped` when the contents were moving until then, so that the touch meant
  // nothing but to stop them.
  virtual void fingerDidTouch(bool /*stopped*/) {}
  virtual void draggingDidBegin() {}
  virtual void draggingDidEnd() {}
  // What to add to the insets for as long as it is needed: room for a refresh control.
  void setExtraTopInset(CGFloat inset);
  [[nodiscard]] ScrollRange verticalRange() const;
  void stopScrolling();
  // What is to lie above all contents but the indicator is put in there.
  void insertBelowIndicator(const std::shared_ptr<UIView>& view);

 private:
  struct Motion;
  class TouchWatcher;

  void addRecognizers();
  [[nodiscard]] ScrollRange horizontalRange() const;
  [[nodiscard]] bool canMoveVertically() const;
  [[nodiscard]] bool canMoveHorizontally() const;
  [[nodiscard]] UIEdgeInsets safeAreaOverlap() const;
  void insetsDidChange(const UIEdgeInsets& before);
  void moveTo(CGPoint offset);
  void moveAnimated(CGPoint offset);
  void panned();
  void dragged();
  void dragEnded(CGPoint velocity);
  void fingerDown();
  void fingerUp();
  void keepInRange();
  void startMotion(std::unique_ptr<Motion> motion);
  bool stepMotion(double timestamp);
  void motionEnded(const Motion& motion);
  void layoutIndicator();

  CGSize contentSize_;
  UIEdgeInsets contentInset_;
  UIEdgeInsets safeArea_;
  CGFloat extraTopInset_ = 0;
  bool adjustsForSafeArea_ = true;
  bool scrollEnabled_ = true;
  bool bounces_ = true;
  bool alwaysBounceVertical_ = false;
  bool showsIndicator_ = true;
  bool tracking_ = false;
  bool dragging_ = false;
  CGPoint dragStart_;
  std::unique_ptr<Motion> motion_;
  int motionNumber_ = 0;
  std::weak_ptr<UIScrollViewDelegate> delegate_;
  std::shared_ptr<UIPanGestureRecognizer> pan_;
  std::shared_ptr<TouchWatcher> watcher_;
  std::shared_ptr<ScrollIndicator> indicator_;
};

}  // namespace zephyl
