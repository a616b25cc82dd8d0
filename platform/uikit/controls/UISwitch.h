// A switch that is on or off: tapped, dragged, or turned by a key. Sends value-changed when the
// user turned it, never when a screen did. Main thread.

#pragma once

#include <memory>
#include <string>

#include "platform/uikit/controls/UIControl.h"

namespace zephyl {

class ZP_EXPORT UISwitch : public UIControl {
 public:
  static constexpr CGSize kSize{51, 31};

  // Kept: a switch has one size; of a frame only the origin counts.
  explicit UISwitch(const CGRect& frame = {});

  [[nodiscard]] bool isOn() const { return on_; }
  void setOn(bool on) { setOn(on, /*animated=*/false); }
  void setOn(bool on, bool animated);
  // The ground while it is on; by default the system's green.
  void setOnTintColor(const UIColor& color);
  [[nodiscard]] UIColor onTintColor() const { return onTintColor_; }

  void setFrame(const CGRect& frame) override;
  void setBounds(const CGRect& bounds) override;
  void layoutSubviews() override;
  [[nodiscard]] CGSize sizeThatFits(CGSize /*size*/) const override { return kSize; }
  [[nodiscard]] CGSize intrinsicContentSize() const override { return kSize; }

  // A drag along the switch is its own, whatever else could be dragged that way.
  [[nodiscard]] bool gestureRecognizerShouldBegin(const UIGestureRecognizer& gesture) override;

  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kSwitch;
  }
  // "On" or "Off" in the user's language.
  [[nodiscard]] std::string accessibilityValue() const override;
  [[nodiscard]] UIAccessibilityState accessibilityState() const override;
  bool accessibilityActivate() override;
  [[nodiscard]] const char* className() const override { return "UISwitch"; }

 protected:
  void beginTracking(CGPoint location) override;
  void continueTracking(CGPoint location) override;
  void endTracking(CGPoint location) override;
  void cancelTracking() override;
  void stateDidChange() override;

 private:
  void turnByUser(bool on);
  void show(bool animated);
  [[nodiscard]] CGRect thumbFrame() const;

  std::shared_ptr<CALayer> thumb_;
  UIColor onTintColor_ = UIColor::systemGreenColor();
  bool on_ = false;
  // What is shown while a finger drags the thumb.
  bool shownOn_ = false;
  bool dragged_ = false;
  CGFloat dragStart_ = 0;
};

}  // namespace zephyl
