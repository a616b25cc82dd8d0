// A box of an alert: title and message above buttons, hairlines between them. Main thread.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/uikit/UIFont.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/UIAlertAction.h"
#include "platform/uikit/controls/UIControl.h"

namespace zephyl {

class UILabel;
class UIScrollView;

// An action's button: its title in the middle, darker while it is pressed.
class AlertButton : public UIControl {
 public:
  AlertButton(const UIAlertActionRef& action, const UIFont& font);
  ~AlertButton() override;

  [[nodiscard]] const UIAlertActionRef& action() const { return action_; }
  // Of the title in one line.
  [[nodiscard]] CGFloat titleWidth() const;

  void layoutSubviews() override;
  void tintColorDidChange() override;
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kButton;
  }
  [[nodiscard]] const char* className() const override { return "UIAlertControllerButton"; }

 protected:
  void stateDidChange() override;
  [[nodiscard]] std::string derivedAccessibilityLabel() const override { return action_->title(); }

 private:
  void showState();

  UIAlertActionRef action_;
  std::shared_ptr<UILabel> label_;
};

struct AlertBoxStyle {
  UIFont titleFont = UIFont::systemFontOfSize(17, UIFont::Weight::kSemibold);
  UIFont messageFont = UIFont::systemFontOfSize(13);
  UIColor textColor = UIColor::labelColor();
  CGFloat buttonHeight = 44;
  CGFloat padding = 20;
  CGFloat gap = 4;
  // Two buttons go side by side where their titles fit.
  bool pairs = true;
};

class AlertBox : public UIView {
 public:
  explicit AlertBox(const AlertBoxStyle& style);
  ~AlertBox() override;

  void setTexts(const std::string& title, const std::string& message);
  // From top to bottom, or from the leading side.
  void setButtons(const std::vector<std::shared_ptr<AlertButton>>& buttons);

  // As wide as `size`, and no higher.
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override;
  void layoutSubviews() override;
  [[nodiscard]] const char* className() const override { return "UIAlertControllerBox"; }

 private:
  struct TextHeights {
    CGFloat width = 0;
    CGFloat title = 0;
    CGFloat message = 0;
  };

  // Of a box so wide.
  [[nodiscard]] const TextHeights& textHeights(CGFloat width) const;
  // With what is above and below the texts; 0 without any.
  [[nodiscard]] CGFloat textsHeight(CGFloat width) const;
  [[nodiscard]] bool isPair(CGFloat width) const;
  [[nodiscard]] CGFloat buttonsHeight(CGFloat width) const;
  void layoutTexts(const CGRect& area);
  void layoutButtons(CGFloat top);

  AlertBoxStyle style_;
  // Measured last; dropped when a text changes.
  mutable std::optional<TextHeights> heights_;
  std::shared_ptr<UIScrollView> texts_;
  std::shared_ptr<UILabel> title_;
  std::shared_ptr<UILabel> message_;
  std::vector<std::shared_ptr<AlertButton>> buttons_;
  // One above each button, or between two.
  std::vector<std::shared_ptr<UIView>> hairlines_;
};

}  // namespace zephyl
