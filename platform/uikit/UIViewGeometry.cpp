// Where a view is, and how it follows a superview that is resized.

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/uikit/UIView.h"

namespace zephyl {
namespace {

// One direction: the room before the view, its own, and that after it.
struct Span {
  CGFloat before = 0;
  CGFloat size = 0;
  CGFloat after = 0;
};

struct Flexible {
  bool before = false;
  bool size = false;
  bool after = false;
};

// Shares `change` among what is flexible, each by its size; evenly where they have none. Where
// nothing is flexible, the room after takes it.
Span stretched(Span span, Flexible flexible, CGFloat change) {
  const CGFloat total = (flexible.before ? span.before : 0) + (flexible.size ? span.size : 0) +
                        (flexible.after ? span.after : 0);
  const int count = static_cast<int>(flexible.before) + static_cast<int>(flexible.size) +
                    static_cast<int>(flexible.after);
  const auto share = [&](bool isFlexible, CGFloat part) {
    return isFlexible ? change * (total > 0 ? part / total : 1.0 / count) : 0;
  };
  return {span.before + share(flexible.before, span.before),
          span.size + share(flexible.size, span.size), 0};
}

bool has(unsigned mask, UIViewAutoresizing bit) {
  return (mask & bit) != 0;
}

// Beyond this depth, subviews are resized after the call instead of in it: no tree is too deep.
constexpr int kDeepest = 100;

struct Resizing {
  int depth = 0;
  std::vector<std::function<void()>> later;
};

Resizing& resizing() {
  static Resizing state;
  return state;
}

}  // namespace

void UIView::setFrame(const CGRect& frame) {
  const CGRect before = bounds();
  layer_->setFrame(frame);
  boundsChanged(before);
}

void UIView::setBounds(const CGRect& bounds) {
  const CGRect before = this->bounds();
  layer_->setBounds(bounds);
  boundsChanged(before);
}

void UIView::setCenter(CGPoint center) {
  layer_->setPosition(center);
}

void UIView::setTransform(const CGAffineTransform& transform) {
  layer_->setTransform(transform);
}

void UIView::boundsChanged(const CGRect& before) {
  const CGRect now = bounds();
  if (now == before) {
    return;
  }
  setNeedsLayout();
  if (now.size == before.size || subviews_.empty()) {
    return;
  }
  Resizing& state = resizing();
  if (state.depth >= kDeepest) {
    state.later.push_back([weakSelf = weak_from_this(), before, now] {
      if (const auto self = weakSelf.lock()) {
        self->autoresizeSubviews(before.size, now.size);
      }
    });
    return;
  }
  ++state.depth;
  autoresizeSubviews(before.size, now.size);
  --state.depth;
  while (state.depth == 0 && !state.later.empty()) {
    const auto next = std::move(state.later.back());
    state.later.pop_back();
    ++state.depth;
    next();
    --state.depth;
  }
}

void UIView::autoresizeSubviews(CGSize from, CGSize to) {
  for (const auto& view : Tree(subviews_)) {
    if (view->autoresizingMask_ != 0) {
      view->autoresize(from, to);
    }
  }
}

void UIView::autoresize(CGSize from, CGSize to) {
  const unsigned mask = autoresizingMask_;
  const CGSize size = bounds().size;
  const CGPoint origin{center().x - size.width / 2, center().y - size.height / 2};
  const Span across = stretched(
      {origin.x, size.width, from.width - origin.x - size.width},
      {has(mask, kFlexibleLeftMargin), has(mask, kFlexibleWidth), has(mask, kFlexibleRightMargin)},
      to.width - from.width);
  const Span down = stretched(
      {origin.y, size.height, from.height - origin.y - size.height},
      {has(mask, kFlexibleTopMargin), has(mask, kFlexibleHeight), has(mask, kFlexibleBottomMargin)},
      to.height - from.height);
  // A view that would be pressed to less than nothing is empty.
  setFrame(
      CGRectMake(across.before, down.before, std::max(0.0, across.size), std::max(0.0, down.size)));
}

CGPoint UIView::convertPointToView(CGPoint point, const UIView* view) const {
  const CGPoint atRoot = CGPointApplyAffineTransform(point, layer_->transformToRoot());
  return view == nullptr ? atRoot
                         : CGPointApplyAffineTransform(
                               atRoot, CGAffineTransformInvert(view->layer_->transformToRoot()));
}

CGPoint UIView::convertPointFromView(CGPoint point, const UIView* view) const {
  const CGPoint atRoot = view == nullptr ? point : view->convertPointToView(point, nullptr);
  return CGPointApplyAffineTransform(atRoot, CGAffineTransformInvert(layer_->transformToRoot()));
}

CGRect UIView::convertRectToView(const CGRect& rect, const UIView* view) const {
  CGAffineTransform there = layer_->transformToRoot();
  if (view != nullptr) {
    there =
        CGAffineTransformConcat(there, CGAffineTransformInvert(view->layer_->transformToRoot()));
  }
  return CGRectApplyAffineTransform(rect, there);
}

}  // namespace zephyl
