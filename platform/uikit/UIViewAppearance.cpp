#include <utility>

#include "platform/uikit/UIView.h"

namespace zephyl {

void UIView::setBackgroundColor(const UIColor& color) {
  backgroundAside_ = nullptr;
  layer_->setBackgroundColor(color);
}

void UIView::putBackgroundAside() {
  backgroundAside_ = std::make_unique<UIColor>(backgroundColor());
  layer_->setBackgroundColor(UIColor::clearColor());
}

void UIView::restoreBackground() {
  if (const auto aside = std::exchange(backgroundAside_, nullptr)) {
    layer_->setBackgroundColor(*aside);
  }
}

void UIView::setAlpha(CGFloat alpha) {
  layer_->setOpacity(alpha);
}

void UIView::setHidden(bool hidden) {
  layer_->setHidden(hidden);
}

void UIView::setClipsToBounds(bool clips) {
  layer_->setMasksToBounds(clips);
}

void UIView::setContentMode(UIViewContentMode mode) {
  if (mode == contentMode_) {
    return;
  }
  contentMode_ = mode;
  setNeedsDisplay();
}

UIColor UIView::tintColor() const {
  const UIView* view = this;
  while (view->tintColor_ == nullptr && view->superview_ != nullptr) {
    view = view->superview_;
  }
  return view->tintColor_ == nullptr ? UIColor::systemBlueColor() : *view->tintColor_;
}

void UIView::setTintColor(const UIColor& color) {
  if (tintColor_ != nullptr && *tintColor_ == color) {
    return;
  }
  const bool changes = !(tintColor() == color);
  tintColor_ = std::make_unique<UIColor>(color);
  if (changes) {
    tintColorChanged();
  }
}

// Tells this view and all below it that have none of their own.
void UIView::tintColorChanged() {
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  Tree waiting(subviews_.rbegin(), subviews_.rend());
  tintColorDidChange();
  while (!waiting.empty()) {
    const std::shared_ptr<UIView> view = std::move(waiting.back());
    waiting.pop_back();
    if (view->tintColor_ == nullptr) {
      waiting.insert(waiting.end(), view->subviews_.rbegin(), view->subviews_.rend());
      view->tintColorDidChange();
    }
  }
}

void UIView::setNeedsDisplay() {
  layer_->setNeedsDisplay();
}

void UIView::setNeedsDisplayInRect(const CGRect& rect) {
  layer_->setNeedsDisplayInRect(rect);
}

std::shared_ptr<void> UIView::associatedObject(const void* key) const {
  const auto found = associatedObjects_.find(key);
  return found == associatedObjects_.end() ? nullptr : found->second;
}

void UIView::setAssociatedObject(const void* key, std::shared_ptr<void> object) {
  // The old object goes last: what it does then may ask for the key again.
  if (object == nullptr) {
    const auto removed = associatedObjects_.extract(key);
  } else {
    object.swap(associatedObjects_[key]);
  }
}

}  // namespace zephyl
