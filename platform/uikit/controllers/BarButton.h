// The view of a bar button item, or of the way back. Main thread.

#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/uikit/controllers/UIBarButtonItem.h"
#include "platform/uikit/controls/UIControl.h"

namespace zephyl {

class UIImageView;
class UILabel;

// Dims while it is pressed; grey while the item is not enabled. Follows the item's changes, and
// asks its superview to lay out when it needs another width.
class BarButton : public UIControl {
 public:
  // The least width and height, so that a finger hits it.
  static constexpr CGFloat kSide = 44;
  // Between a text and the button's sides.
  static constexpr CGFloat kPadding = 8;

  explicit BarButton(const UIBarButtonItemRef& item);
  ~BarButton() override;

  // Once it is owned: from then on it follows its item.
  void follow();
  [[nodiscard]] const UIBarButtonItemRef& item() const { return item_; }

  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override;
  void layoutSubviews() override;
  void drawRect(CGContext& context, const CGRect& rect) override;
  void tintColorDidChange() override;
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kButton;
  }
  [[nodiscard]] bool isAccessibilityElement() const override;
  [[nodiscard]] const char* className() const override { return "UIBarButton"; }

 protected:
  void stateDidChange() override;
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  void showItem();
  void showState();
  [[nodiscard]] UIColor color() const;

  UIBarButtonItemRef item_;
  std::shared_ptr<UILabel> label_;
  std::shared_ptr<UIImageView> image_;
};

// A chevron that points to the leading side, and where it leads.
class BackButton : public UIControl {
 public:
  BackButton(const std::string& title, std::function<void()> action);
  ~BackButton() override;

  // The previous title, "Back" where that does not fit into `width`, or nothing beside the chevron.
  void fit(CGFloat width);
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override;
  void layoutSubviews() override;
  void drawRect(CGContext& context, const CGRect& rect) override;
  void tintColorDidChange() override;
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kButton;
  }
  [[nodiscard]] const char* className() const override { return "UIBackButton"; }

 protected:
  void stateDidChange() override;
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  [[nodiscard]] CGFloat widthOf(const std::string& text) const;

  std::string title_;
  std::shared_ptr<UILabel> label_;
};

}  // namespace zephyl
