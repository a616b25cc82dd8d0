#include "platform/uikit/tables/UIScrollView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/gestures/UIPanGestureRecognizer.h"
#include "platform/uikit/tables/ScrollIndicator.h"
#include "platform/uikit/tables/UIScrollViewMotion.h"
#include "platform/uikit/text/TextDrawing.h"

namespace zephyl {
namespace {

constexpr CGFloat kArrowStep = 44;

// The least change of `offset`, at which `length` points are seen, that shows `from` to `to`; the
// beginning where not all fits.
CGFloat offsetShowing(CGFloat from, CGFloat to, CGFloat offset, CGFloat length) {
  if (from < offset || to - from > length) {
    return from;
  }
  return to > offset + length ? to - length : offset;
}

// At whole pixels, as all offsets are.
ScrollRange pixelRange(CGFloat lowest, CGFloat highest) {
  return {roundedToPixel(lowest), std::max(roundedToPixel(lowest), roundedToPixel(highest))};
}

}  // namespace

UIScrollView::UIScrollView(const CGRect& frame) : UIView(frame) {
  setClipsToBounds(true);
  indicator_ = std::make_shared<ScrollIndicator>();
  addSubview(indicator_);
  addRecognizers();
}

UIScrollView::~UIScrollView() = default;

void UIScrollView::setContentSize(CGSize size) {
  const CGSize sane = {std::max(0.0, finite(size.width)), std::max(0.0, finite(size.height))};
  if (sane == contentSize_) {
    return;
  }
  contentSize_ = sane;
  setNeedsLayout();
}

void UIScrollView::setContentInset(const UIEdgeInsets& inset) {
  const UIEdgeInsets sane = {finite(inset.top), finite(inset.left), finite(inset.bottom),
                             finite(inset.right)};
  if (sane == contentInset_) {
    return;
  }
  const UIEdgeInsets before = adjustedContentInset();
  contentInset_ = sane;
  insetsDidChange(before);
}

UIEdgeInsets UIScrollView::adjustedContentInset() const {
  return {contentInset_.top + safeArea_.top + extraTopInset_, contentInset_.left + safeArea_.left,
          contentInset_.bottom + safeArea_.bottom, contentInset_.right + safeArea_.right};
}

void UIScrollView::setAdjustsForSafeArea(bool adjusts) {
  if (adjusts == adjustsForSafeArea_) {
    return;
  }
  adjustsForSafeArea_ = adjusts;
  setNeedsLayout();
}

void UIScrollView::setExtraTopInset(CGFloat inset) {
  // Kept: contents at the top are not moved along, so that a pull goes on under the finger.
  extraTopInset_ = std::max(0.0, finite(inset));
  setNeedsLayout();
}

void UIScrollView::insetsDidChange(const UIEdgeInsets& before) {
  setNeedsLayout();
  if (contentOffset().y == roundedToPixel(-before.top) && !dragging_ && motion_ == nullptr) {
    moveTo({contentOffset().x, -adjustedContentInset().top});
  }
}

UIEdgeInsets UIScrollView::safeAreaOverlap() const {
  if (!adjustsForSafeArea_ || window() == nullptr) {
    return {};
  }
  for (const UIView* view = this; view != nullptr; view = view->superview()) {
    if (view->viewController() == nullptr) {
      continue;
    }
    const UIEdgeInsets safe = view->viewController()->safeAreaInsets();
    const CGRect whole = view->bounds();
    const CGRect area = convertRectToView(bounds(), view);
    const CGFloat top = std::clamp(whole.y() + safe.top - area.y(), 0.0, std::max(0.0, safe.top));
    const CGFloat bottom =
        std::clamp(area.maxY() - (whole.maxY() - safe.bottom), 0.0, std::max(0.0, safe.bottom));
    return {top, 0, bottom, 0};
  }
  return {};
}

void UIScrollView::scrollRectToVisible(const CGRect& rect, bool animated) {
  const UIEdgeInsets inset = adjustedContentInset();
  const CGRect wanted = finite(rect);
  const CGPoint now = contentOffset();
  const CGFloat x = offsetShowing(wanted.x(), wanted.maxX(), now.x + inset.left,
                                  bounds().width() - inset.left - inset.right);
  const CGFloat y = offsetShowing(wanted.y(), wanted.maxY(), now.y + inset.top,
                                  bounds().height() - inset.top - inset.bottom);
  setContentOffset({horizontalRange().clamp(x - inset.left), verticalRange().clamp(y - inset.top)},
                   animated);
}

ScrollRange UIScrollView::verticalRange() const {
  const UIEdgeInsets inset = adjustedContentInset();
  return pixelRange(-inset.top, contentSize_.height + inset.bottom - bounds().height());
}

ScrollRange UIScrollView::horizontalRange() const {
  const UIEdgeInsets inset = adjustedContentInset();
  return pixelRange(-inset.left, contentSize_.width + inset.right - bounds().width());
}

bool UIScrollView::canMoveVertically() const {
  const ScrollRange range = verticalRange();
  return alwaysBounceVertical_ || range.highest > range.lowest;
}

bool UIScrollView::canMoveHorizontally() const {
  const ScrollRange range = horizontalRange();
  return range.highest > range.lowest;
}

void UIScrollView::setScrollEnabled(bool enabled) {
  if (enabled == scrollEnabled_) {
    return;
  }
  scrollEnabled_ = enabled;
  pan_->setEnabled(enabled);
}

void UIScrollView::setScrollDelegate(std::weak_ptr<UIScrollViewDelegate> delegate) {
  delegate_ = std::move(delegate);
}

void UIScrollView::setFrame(const CGRect& frame) {
  const CGSize before = bounds().size;
  UIView::setFrame(frame);
  if (bounds().size != before) {
    setNeedsLayout();
  }
}

void UIScrollView::setBounds(const CGRect& bounds) {
  const CGRect before = this->bounds();
  UIView::setBounds(bounds);
  if (this->bounds() == before) {
    return;
  }
  setNeedsLayout();
  if (this->bounds().origin == before.origin) {
    return;
  }
  const auto kept = weak_from_this().lock();
  contentOffsetDidChange();
  if (const auto delegate = delegate_.lock()) {
    delegate->scrollViewDidScroll(*this);
  }
}

void UIScrollView::didMoveToWindow() {
  setNeedsLayout();
  if (window() == nullptr) {
    stopScrolling();
    tracking_ = false;
    dragging_ = false;
  }
}

void UIScrollView::layoutSubviews() {
  const UIEdgeInsets overlap = safeAreaOverlap();
  if (overlap != safeArea_) {
    const UIEdgeInsets before = adjustedContentInset();
    safeArea_ = overlap;
    insetsDidChange(before);
  }
  keepInRange();
  layoutIndicator();
}

void UIScrollView::keepInRange() {
  if (tracking_ || dragging_ || motion_ != nullptr || window() == nullptr) {
    return;
  }
  const CGPoint now = contentOffset();
  moveTo({horizontalRange().clamp(now.x), verticalRange().clamp(now.y)});
}

void UIScrollView::setShowsVerticalScrollIndicator(bool shows) {
  showsIndicator_ = shows;
  setNeedsLayout();
}

void UIScrollView::layoutIndicator() {
  if (!showsIndicator_) {
    indicator_->setHidden(true);
    return;
  }
  if (subviews().back() != indicator_) {
    bringSubviewToFront(indicator_);
  }
  const UIEdgeInsets inset = adjustedContentInset();
  const CGRect track = UIEdgeInsetsInsetRect(bounds(), inset);
  const CGFloat whole = std::max(1.0, contentSize_.height);
  indicator_->place(track, track.y() / whole, track.height() / whole);
}

void UIScrollView::insertBelowIndicator(const std::shared_ptr<UIView>& view) {
  addSubview(view);
  bringSubviewToFront(indicator_);
}

void UIScrollView::flashScrollIndicators() {
  indicator_->show();
  indicator_->fade();
}

bool UIScrollView::handleScroll(const UIScrollEvent& scroll) {
  if (!scrollEnabled_) {
    return false;
  }
  const CGPoint now = contentOffset();
  const CGPoint wanted = {horizontalRange().clamp(now.x + finite(scroll.dx)),
                          verticalRange().clamp(now.y + finite(scroll.dy))};
  if (wanted == now) {
    return false;
  }
  stopScrolling();
  moveTo(wanted);
  flashScrollIndicators();
  return true;
}

bool UIScrollView::pressesBegan(const UIKeyPress& press) {
  const ScrollRange range = verticalRange();
  const UIEdgeInsets inset = adjustedContentInset();
  const CGFloat page =
      std::max(kArrowStep, bounds().height() - inset.top - inset.bottom - kArrowStep);
  // Keys that are held go on from where the last one leads.
  const bool onTheWay = motion_ != nullptr && !motion_->decelerates;
  CGFloat y = onTheWay ? motion_->to.y : contentOffset().y;
  switch (press.key) {
    case UIKey::kUp:
      y -= kArrowStep;
      break;
    case UIKey::kDown:
      y += kArrowStep;
      break;
    case UIKey::kPageUp:
      y -= page;
      break;
    case UIKey::kPageDown:
      y += page;
      break;
    case UIKey::kHome:
      y = range.lowest;
      break;
    case UIKey::kEnd:
      y = range.highest;
      break;
    default:
      return UIView::pressesBegan(press);
  }
  if (!scrollEnabled_ || range.clamp(y) == contentOffset().y) {
    return UIView::pressesBegan(press);
  }
  setContentOffset({contentOffset().x, range.clamp(y)}, /*animated=*/true);
  return true;
}

}  // namespace zephyl
