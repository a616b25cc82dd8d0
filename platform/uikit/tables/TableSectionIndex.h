// The bar of letters on the trailing side of a table: a finger that goes along it picks sections.
// Main thread.

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/uikit/controls/UIControl.h"

namespace zephyl {

class ZP_EXPORT TableSectionIndex : public UIControl {
 public:
  static constexpr CGFloat kWidth = 20;

  // `pick` gets the number of an entry, each time that the finger reaches another one.
  using Pick = std::function<void(std::int64_t entry)>;
  explicit TableSectionIndex(Pick pick);
  void setPick(Pick pick) { pick_ = std::move(pick); }

  [[nodiscard]] const std::vector<std::string>& titles() const { return titles_; }
  void setTitles(std::vector<std::string> titles);
  // On the trailing side of `area`, which is what is seen of the table and not covered.
  void placeIn(const CGRect& area);

  // What is drawn, from the top: as many titles as there is room for, a dot for each run left out.
  [[nodiscard]] std::vector<std::string> shownTitles() const;

  void drawRect(CGContext& context, const CGRect& rect) override;
  void tintColorDidChange() override { setNeedsDisplay(); }
  [[nodiscard]] bool gestureRecognizerShouldBegin(const UIGestureRecognizer& gesture) override;
  // Keys go to the table's rows.
  [[nodiscard]] bool canBecomeFirstResponder() const override { return false; }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kSlider;
  }
  // The entry that was picked last.
  [[nodiscard]] std::string accessibilityValue() const override;
  void accessibilityIncrement() override { pick(picked_ + 1); }
  void accessibilityDecrement() override { pick(picked_ - 1); }
  [[nodiscard]] const char* className() const override { return "UITableViewIndex"; }

 protected:
  void beginTracking(CGPoint location) override;
  void continueTracking(CGPoint location) override;
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  void pick(std::int64_t entry);
  void pickAt(CGFloat y);
  [[nodiscard]] CGRect lettersRect(std::size_t count) const;

  Pick pick_;
  std::vector<std::string> titles_;
  std::int64_t picked_ = -1;
};

}  // namespace zephyl
