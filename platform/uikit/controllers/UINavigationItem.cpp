#include "platform/uikit/controllers/UINavigationItem.h"

namespace zephyl {

void UINavigationItem::setTitle(const std::string& title) {
  if (title_ != title) {
    title_ = title;
    changed(/*animated=*/false);
  }
}

void UINavigationItem::setTitleView(const std::shared_ptr<UIView>& view) {
  if (titleView_ != view) {
    titleView_ = view;
    changed(/*animated=*/false);
  }
}

void UINavigationItem::setLeftBarButtonItems(Items items, bool animated) {
  std::erase(items, nullptr);
  if (left_ != items) {
    left_ = std::move(items);
    changed(animated);
  }
}

void UINavigationItem::setRightBarButtonItems(Items items, bool animated) {
  std::erase(items, nullptr);
  if (right_ != items) {
    right_ = std::move(items);
    changed(animated);
  }
}

UIBarButtonItemRef UINavigationItem::leftBarButtonItem() const {
  return left_.empty() ? nullptr : left_.front();
}

UIBarButtonItemRef UINavigationItem::rightBarButtonItem() const {
  return right_.empty() ? nullptr : right_.front();
}

void UINavigationItem::setLeftBarButtonItem(const UIBarButtonItemRef& item, bool animated) {
  setLeftBarButtonItems({item}, animated);
}

void UINavigationItem::setRightBarButtonItem(const UIBarButtonItemRef& item, bool animated) {
  setRightBarButtonItems({item}, animated);
}

void UINavigationItem::setHidesBackButton(bool hides, bool animated) {
  if (hidesBackButton_ != hides) {
    hidesBackButton_ = hides;
    changed(animated);
  }
}

void UINavigationItem::changed(bool animated) {
  if (changed_) {
    changed_(animated);
  }
}

}  // namespace zephyl
