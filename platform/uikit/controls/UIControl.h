// A view that tells others what the user does with it. Main thread.
//
// A control that is pressed keeps the recognizers of the views around it from taking the tap.

#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/uikit/UIView.h"

namespace zephyl {

// Bits, with the platform's values.
enum UIControlEvents : unsigned {
  kTouchDown = 1U << 0U,
  kTouchUpInside = 1U << 6U,
  kTouchUpOutside = 1U << 7U,
  kTouchCancel = 1U << 8U,
  kValueChanged = 1U << 12U,
  kEditingDidBegin = 1U << 16U,
  kEditingChanged = 1U << 17U,
  kEditingDidEnd = 1U << 18U,
  kEditingDidEndOnExit = 1U << 19U,
  kAllEvents = 0xFFFFFFFFU
};

// Bits, with the platform's values.
enum UIControlState : unsigned {
  kControlStateNormal = 0,
  kControlStateHighlighted = 1,
  kControlStateDisabled = 2,
  kControlStateSelected = 4
};

class ZP_EXPORT UIControl : public UIView {
 public:
  using Action = std::function<void(UIControl& sender)>;

  // A finger that pressed the control counts as inside it this far around it, in points.
  static constexpr CGFloat kTouchTolerance = 70;

  explicit UIControl(const CGRect& frame = {}) : UIView(frame) {}

  // `action` runs for each of `events`, in the order of the calls, for as long as `target` lives.
  void addTarget(std::weak_ptr<const void> target, Action action, unsigned events);
  // For as long as the control lives: for what a control does with itself.
  void addAction(Action action, unsigned events);
  // Every action of the target, for these events.
  void removeTarget(const std::weak_ptr<const void>& target, unsigned events);
  // Each action at most once, whatever number of its events is sent. An action may remove others,
  // which then do not run, and may end the control.
  void sendActionsForControlEvents(unsigned events);

  [[nodiscard]] bool isEnabled() const { return enabled_; }
  // A control that is not enabled takes no touches and no keys; it still covers what is behind it.
  virtual void setEnabled(bool enabled);
  [[nodiscard]] bool isHighlighted() const { return highlighted_; }
  virtual void setHighlighted(bool highlighted);
  [[nodiscard]] bool isSelected() const { return selected_; }
  virtual void setSelected(bool selected);
  // Bits of UIControlState.
  [[nodiscard]] unsigned state() const;
  // Whether a finger is on it that pressed it.
  [[nodiscard]] bool isTracking() const { return tracking_; }

  // Highlighted while the finger is inside it, or near.
  void touchesBegan(const UITouch& touch) override;
  void touchesMoved(const UITouch& touch) override;
  void touchesEnded(const UITouch& touch) override;
  void touchesCancelled(const UITouch& touch) override;
  [[nodiscard]] bool gestureRecognizerShouldBegin(const UIGestureRecognizer& gesture) override;
  // Space and Return are a tap.
  bool pressesBegan(const UIKeyPress& press) override;
  // For keyboards: a tap makes no control first responder.
  [[nodiscard]] bool canBecomeFirstResponder() const override { return enabled_; }

  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] UIAccessibilityState accessibilityState() const override;
  // By default a touch down and up inside.
  bool accessibilityActivate() override;
  [[nodiscard]] const char* className() const override { return "UIControl"; }

 protected:
  // Where the finger is while it presses the control, in the control's coordinates; the events that
  // all controls send are sent besides. The last of a press is one of the second pair.
  virtual void beginTracking(CGPoint /*location*/) {}
  virtual void continueTracking(CGPoint /*location*/) {}
  virtual void endTracking(CGPoint /*location*/) {}
  virtual void cancelTracking() {}
  // `setEnabled`, `setHighlighted` or `setSelected` changed something.
  virtual void stateDidChange() {}
  [[nodiscard]] bool isNear(CGPoint location) const;

 private:
  struct Target {
    // Whether `object` is to be looked at; else the action is the control's own.
    bool guarded = false;
    std::weak_ptr<const void> object;
    Action action;
    unsigned events = 0;
  };

  [[nodiscard]] CGPoint locationOf(const UITouch& touch) const;

  // Shared, so that an action can be told to have been removed while others run.
  std::vector<std::shared_ptr<Target>> targets_;
  bool enabled_ = true;
  bool highlighted_ = false;
  bool selected_ = false;
  bool tracking_ = false;
};

}  // namespace zephyl
