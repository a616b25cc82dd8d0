#include "platform/uikit/UIView.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/gestures/TouchDispatcher.h"
#include "platform/uikit/gestures/UIGestureRecognizer.h"

namespace zephyl {

UIView::UIView(const CGRect& frame) : layer_(std::make_shared<CALayer>()) {
  layer_->setView(this);
  layer_->setFrame(frame);
}

UIView::~UIView() {
  if (window_ != nullptr && window_->firstResponder_ == this) {
    window_->firstResponder_ = nullptr;
  }
  for (const auto& recognizer : gestureRecognizers_) {
    recognizer->setView(nullptr);
  }
  layer_->setView(nullptr);
  Tree left = std::move(subviews_);
  while (!left.empty()) {
    const std::shared_ptr<UIView> view = std::move(left.back());
    left.pop_back();
    view->superview_ = nullptr;
    if (view.use_count() == 1) {
      // Emptied before it goes: a tree of any depth ends without recursion.
      std::move(view->subviews_.begin(), view->subviews_.end(), std::back_inserter(left));
      view->subviews_.clear();
    } else {
      view->layer_->removeFromSuperlayer();
    }
  }
}

UIView::Tree UIView::tree() {
  Tree whole;
  Tree waiting{shared_from_this()};
  while (!waiting.empty()) {
    whole.push_back(std::move(waiting.back()));
    waiting.pop_back();
    const Tree& above = whole.back()->subviews_;
    waiting.insert(waiting.end(), above.rbegin(), above.rend());
  }
  return whole;
}

void UIView::addSubview(const std::shared_ptr<UIView>& view) {
  insertSubview(view, subviews_.size());
}

void UIView::insertSubview(const std::shared_ptr<UIView>& view, std::size_t index) {
  // A copy: what was handed over may be an element of the list that it leaves.
  const std::shared_ptr<UIView> added = view;
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  const auto fits = [&] { return added != nullptr && !isDescendantOfView(added.get()); };
  if (!fits() || added->window_ == added.get()) {
    return;
  }
  if (added->superview_ == this) {
    return place(added, index);
  }
  if (added->window_ != window_) {
    for (const auto& each : added->tree()) {
      each->willMoveToWindow(window_);
    }
    added->leaveWindow();
  }
  // Whoever was told of it may have changed the tree.
  if (!fits() || added->superview_ == this) {
    return;
  }
  const UIColor tint = added->tintColor();
  added->detach();
  added->superview_ = this;
  subviews_.push_back(added);
  place(added, index);
  setNeedsLayout();
  if (added->needsLayout_ || added->subviewsNeedLayout_) {
    added->markForLayout();
  }
  added->moveToWindow(window_);
  if (added->tintColor_ == nullptr && !(added->tintColor() == tint)) {
    added->tintColorChanged();
  }
  didAddSubview(*added);
}

// Puts a subview to its place among the others, and its layer among theirs.
void UIView::place(const std::shared_ptr<UIView>& view, std::size_t index) {
  subviews_.erase(std::find(subviews_.begin(), subviews_.end(), view));
  index = std::min(index, subviews_.size());
  const auto here = subviews_.insert(subviews_.begin() + static_cast<std::ptrdiff_t>(index), view);
  const auto& layers = layer_->sublayers();
  if (std::next(here) == subviews_.end()) {
    return layer_->insertSublayer(view->layer_, layers.size());
  }
  const auto own = std::find(layers.begin(), layers.end(), view->layer_);
  const auto next = std::find(layers.begin(), layers.end(), (*std::next(here))->layer_);
  const auto below = std::distance(layers.begin(), next) - (own < next ? 1 : 0);
  layer_->insertSublayer(view->layer_, static_cast<std::size_t>(below));
}

void UIView::removeFromSuperview() {
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  if (superview_ == nullptr) {
    return;
  }
  if (window_ != nullptr) {
    for (const auto& each : tree()) {
      each->willMoveToWindow(nullptr);
    }
    leaveWindow();
  }
  if (superview_ != nullptr) {
    detach();
    moveToWindow(nullptr);
  }
}

void UIView::detach() {
  if (superview_ == nullptr) {
    return;
  }
  UIView& below = *std::exchange(superview_, nullptr);
  std::erase_if(below.subviews_, [this](const auto& each) { return each.get() == this; });
  layer_->removeFromSuperlayer();
  below.setNeedsLayout();
}

// Ends what the view and those in it have going with their window: keys and touches.
void UIView::leaveWindow() {
  if (window_ == nullptr) {
    return;
  }
  const std::shared_ptr<UIView> keep = window_->weak_from_this().lock();
  UIWindow& window = *window_;
  auto* const first = dynamic_cast<UIView*>(window.firstResponder_);
  if (first != nullptr && first != window.leaving_ && first->isDescendantOfView(this)) {
    const std::shared_ptr<UIView> keepFirst = first->weak_from_this().lock();
    // Asked once only, though it may remove itself again when asked.
    window.leaving_ = first;
    first->resignFirstResponder();
    window.leaving_ = nullptr;
    if (window.firstResponder_ == first) {
      window.firstResponder_ = nullptr;
    }
  }
  window.touches_->viewLeft(*this);
}

void UIView::moveToWindow(UIWindow* window) {
  if (window_ == window) {
    return;
  }
  const Tree whole = tree();
  for (const auto& each : whole) {
    each->window_ = window;
  }
  for (const auto& each : whole) {
    if (each->window_ == window) {
      each->didMoveToWindow();
    }
  }
}

void UIView::bringSubviewToFront(const std::shared_ptr<UIView>& view) {
  if (view != nullptr && view->superview_ == this) {
    insertSubview(view, subviews_.size());
  }
}

void UIView::sendSubviewToBack(const std::shared_ptr<UIView>& view) {
  if (view != nullptr && view->superview_ == this) {
    insertSubview(view, 0);
  }
}

bool UIView::isDescendantOfView(const UIView* view) const {
  const UIView* each = this;
  while (each != nullptr && each != view) {
    each = each->superview_;
  }
  return each != nullptr;
}

std::shared_ptr<UIView> UIView::viewWithTag(std::int64_t tag) {
  std::vector<UIView*> waiting{this};
  while (!waiting.empty()) {
    UIView* const view = waiting.back();
    waiting.pop_back();
    if (view->tag_ == tag) {
      return view->weak_from_this().lock();
    }
    for (auto each = view->subviews_.rbegin(); each != view->subviews_.rend(); ++each) {
      waiting.push_back(each->get());
    }
  }
  return nullptr;
}

}  // namespace zephyl
