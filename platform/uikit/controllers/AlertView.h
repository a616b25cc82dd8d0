// What an alert looks like: one box, or for an action sheet two, the cancel action apart. Main
// thread.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/UIAlertController.h"

namespace zephyl {

class AlertBox;
class AlertButton;

class AlertView : public UIView {
 public:
  static constexpr CGFloat kAlertWidth = 270;

  explicit AlertView(UIAlertControllerStyle style);
  ~AlertView() override;

  using Choice = std::function<void(const UIAlertActionRef& action)>;
  void setChoice(Choice choice) { choice_ = std::move(choice); }
  void setContent(const std::string& title, const std::string& message,
                  const std::vector<UIAlertActionRef>& actions, const UIAlertActionRef& preferred);

  // What the main screen leaves for it.
  [[nodiscard]] static CGSize availableSize();
  // No larger than `size`: then texts scroll.
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override;
  void layoutSubviews() override;

  // Tab and the arrows go round the buttons, and never leave them. Whether the key was one of
  // these.
  bool moveFocus(const UIKeyPress& press);
  [[nodiscard]] bool canBecomeFirstResponder() const override { return true; }

  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kAlert;
  }
  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] const char* className() const override { return "UIAlertControllerView"; }

 protected:
  // The title and the message, trailing line breaks left out.
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  [[nodiscard]] std::shared_ptr<AlertButton> makeButton(const UIAlertActionRef& action,
                                                        bool emphasized);

  UIAlertControllerStyle style_;
  Choice choice_;
  std::shared_ptr<AlertBox> box_;
  // Null where the cancel action is among the others, or there is none.
  std::shared_ptr<AlertBox> cancelBox_;
  // In the order of the focus.
  std::vector<std::shared_ptr<AlertButton>> buttons_;
};

}  // namespace zephyl
