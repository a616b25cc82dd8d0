// The red button behind a row that is swiped aside. Main thread.

#pragma once

#include <memory>
#include <string>

#include "platform/uikit/controls/UIControl.h"

namespace zephyl {

class UILabel;

class ZP_EXPORT TableDeleteButton : public UIControl {
 public:
  TableDeleteButton();
  ~TableDeleteButton() override;

  void setTitle(const std::string& title);
  // What the title needs, and never less than a finger does.
  [[nodiscard]] CGFloat preferredWidth() const;

  // The title stays beside the row, in the first `preferredWidth` points from its edge.
  void layoutSubviews() override;
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kButton;
  }
  [[nodiscard]] const char* className() const override {
    return "UITableViewCellDeleteConfirmationView";
  }
  [[nodiscard]] std::string describe() const override { return title_; }

 protected:
  void stateDidChange() override;
  [[nodiscard]] std::string derivedAccessibilityLabel() const override { return title_; }

 private:
  std::string title_;
  std::shared_ptr<UILabel> label_;
};

}  // namespace zephyl
