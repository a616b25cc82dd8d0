// What stands above or below the rows of a section: a text, or whatever a screen puts into the
// content view. Main thread.

#pragma once

#include <memory>
#include <string>

#include "platform/uikit/UIView.h"
#include "platform/uikit/tables/UITableViewEnumerations.h"

namespace zephyl {

class UILabel;

class ZP_EXPORT UITableViewHeaderFooterView : public UIView {
 public:
  explicit UITableViewHeaderFooterView(std::string reuseIdentifier = {});
  ~UITableViewHeaderFooterView() override;

  [[nodiscard]] const std::string& reuseIdentifier() const { return reuseIdentifier_; }
  [[nodiscard]] const std::shared_ptr<UIView>& contentView() const { return contentView_; }
  // Asking for it lays the view out anew.
  const std::shared_ptr<UILabel>& textLabel();
  // Before it is shown for another section.
  virtual void prepareForReuse() {}

  // The table's, when it first shows the view: how its titles look, and on which side of the rows
  // this one is. Kept: fonts and colours that a screen set before are lost.
  void setTableStyle(UITableViewStyle style, bool isFooter);
  // What the title needs in the width; 0 without a title.
  [[nodiscard]] CGFloat titleHeight(CGFloat width) const;

  void setFrame(const CGRect& frame) override;
  void layoutSubviews() override;
  [[nodiscard]] bool isAccessibilityElement() const override;
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override;
  [[nodiscard]] const char* className() const override { return "UITableViewHeaderFooterView"; }

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  std::string reuseIdentifier_;
  std::shared_ptr<UIView> contentView_;
  std::shared_ptr<UILabel> textLabel_;
  UITableViewStyle tableStyle_ = UITableViewStyle::kPlain;
  bool isFooter_ = false;
  bool styled_ = false;
};

}  // namespace zephyl
