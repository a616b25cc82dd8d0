// A view that tells others what the user does with it. Main thread.

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

class ZP_EXPORT UIControl : public UIView {
 public:
  using Action = std::function<void(UIControl& sender)>;

  explicit UIControl(const CGRect& frame = {}) : UIView(frame) {}

  // `action` runs for each of `events`, in the order of the calls, for as long as `target` lives.
  void addTarget(std::weak_ptr<const void> target, Action action, unsigned events);
  // For as long as the control lives: for what a control does with itself.
  void addAction(Action action, unsigned events);
  // Every action of the target, for these events.
  void removeTarget(const std::weak_ptr<const void>& target, unsigned events);
  void sendActionsForControlEvents(unsigned events);

  [[nodiscard]] bool isEnabled() const { return enabled_; }
  // A control that is not enabled takes no touches and no keys.
  virtual void setEnabled(bool enabled);
  [[nodiscard]] bool isHighlighted() const { return highlighted_; }
  virtual void setHighlighted(bool highlighted);
  [[nodiscard]] bool isSelected() const { return selected_; }
  virtual void setSelected(bool selected);

  // Highlighted while the finger is inside it, or near.
  void touchesBegan(const UITouch& touch) override;
  void touchesMoved(const UITouch& touch) override;
  void touchesEnded(const UITouch& touch) override;
  void touchesCancelled(const UITouch& touch) override;
  // Space and Return are a tap.
  bool pressesBegan(const UIKeyPress& press) override;
  [[nodiscard]] bool canBecomeFirstResponder() const override { return false; }

  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] UIAccessibilityState accessibilityState() const override;
  bool accessibilityActivate() override;
  [[nodiscard]] const char* className() const override { return "UIControl"; }

 private:
  struct Target {
    // Whether `object` is to be looked at; else the action is the control's own.
    bool guarded = false;
    std::weak_ptr<const void> object;
    Action action;
    unsigned events = 0;
  };

  std::vector<Target> targets_;
  bool enabled_ = true;
  bool highlighted_ = false;
  bool selected_ = false;
};

}  // namespace zephyl
