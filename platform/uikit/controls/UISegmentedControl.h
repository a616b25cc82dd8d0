// A row of titles, one of which is selected: a grey ground with the selected segment raised. Sends
// value-changed when the user selects another one. Main thread.
//
// The segments are elements of their own to a screen reader; the control is none.

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/uikit/controls/UIControl.h"

namespace zephyl {

class ZP_EXPORT UISegmentedControl : public UIControl {
 public:
  static constexpr int kNoSegment = -1;

  explicit UISegmentedControl(const CGRect& frame = {});
  explicit UISegmentedControl(const std::vector<std::string>& items);
  ~UISegmentedControl() override;

  [[nodiscard]] int numberOfSegments() const { return static_cast<int>(segments_.size()); }
  // In the place of those before; none is selected then.
  void setItems(const std::vector<std::string>& items);
  // Empty for an index that is no segment's.
  [[nodiscard]] std::string titleForSegmentAtIndex(int index) const;
  void setTitle(const std::string& title, int index);

  [[nodiscard]] int selectedSegmentIndex() const { return selected_; }
  // An index that is no segment's selects none.
  void setSelectedSegmentIndex(int index);

  void layoutSubviews() override;
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override;
  [[nodiscard]] CGSize intrinsicContentSize() const override;

  // The arrow keys select the segment beside the selected one, as it is seen.
  bool pressesBegan(const UIKeyPress& press) override;
  [[nodiscard]] bool isAccessibilityElement() const override { return false; }
  bool accessibilityActivate() override { return false; }
  [[nodiscard]] const char* className() const override { return "UISegmentedControl"; }

 protected:
  void beginTracking(CGPoint location) override;
  void continueTracking(CGPoint location) override;
  void endTracking(CGPoint location) override;
  void cancelTracking() override;
  void stateDidChange() override;

 private:
  class Segment;

  void selectByUser(int index);
  void show(bool animated);
  void showSeparators(int shown);
  [[nodiscard]] CGSize wantedSize() const;
  // The segment that is shown at a distance from the left.
  [[nodiscard]] int segmentAt(CGFloat x) const;
  [[nodiscard]] CGRect segmentFrame(int index) const;

  std::shared_ptr<CALayer> ground_;
  std::shared_ptr<CALayer> raised_;
  std::vector<std::shared_ptr<CALayer>> separators_;
  std::vector<std::shared_ptr<Segment>> segments_;
  int selected_ = kNoSegment;
  // Under the finger; and whether the finger drags the raised segment along.
  int pressed_ = kNoSegment;
  bool dragging_ = false;
};

}  // namespace zephyl
