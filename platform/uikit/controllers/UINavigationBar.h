// The bar above the screens of a navigation controller: title, buttons, the way back. Main thread.

#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/Export.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/UINavigationItem.h"

namespace zephyl {

class NavigationBarContent;

class ZP_EXPORT UINavigationBar : public UIView {
 public:
  static constexpr CGFloat kHeight = 44;
  // Where nothing covers the upper edge.
  static constexpr CGFloat kHeightInCard = 56;

  UINavigationBar();
  ~UINavigationBar() override;

  // Shows `item`, whose back button leads to `back`; null for an empty bar, and for no way back.
  void show(const std::shared_ptr<UINavigationItem>& item,
            const std::shared_ptr<UINavigationItem>& back, bool animated, bool forwards);
  [[nodiscard]] const std::shared_ptr<UINavigationItem>& topItem() const { return item_; }
  [[nodiscard]] const std::shared_ptr<UINavigationItem>& backItem() const { return back_; }
  void setBackAction(std::function<void()> action) { backAction_ = std::move(action); }

  // How far its background goes up beyond it.
  void setCoveredHeight(CGFloat height);

  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kNavigationBar;
  }
  void layoutSubviews() override;
  [[nodiscard]] const char* className() const override { return "UINavigationBar"; }

 private:
  void replaceContent(bool animated, CGFloat distance);

  std::shared_ptr<UIView> background_;
  std::shared_ptr<UIView> hairline_;
  std::shared_ptr<NavigationBarContent> content_;
  std::shared_ptr<UINavigationItem> item_;
  std::shared_ptr<UINavigationItem> back_;
  std::function<void()> backAction_;
  CGFloat coveredHeight_ = 0;
};

}  // namespace zephyl
