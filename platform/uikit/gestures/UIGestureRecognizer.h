// Makes gestures of touches: taps, long presses, pans and swipes. Main thread.
//
// A recognizer sees the touches of its view and of all views in it. While it recognizes, the views
// get their touches cancelled, unless `cancelsTouchesInView` is off.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/UITouch.h"

namespace zephyl {

class UIView;

// With the platform's values.
enum class UIGestureRecognizerState {
  kPossible = 0,
  kBegan = 1,
  kChanged = 2,
  kEnded = 3,
  kCancelled = 4,
  kFailed = 5
};

class ZP_EXPORT UIGestureRecognizer {
 public:
  using Action = std::function<void(UIGestureRecognizer& recognizer)>;

  explicit UIGestureRecognizer(Action action) : action_(std::move(action)) {}
  virtual ~UIGestureRecognizer() = default;
  UIGestureRecognizer(const UIGestureRecognizer&) = delete;
  UIGestureRecognizer& operator=(const UIGestureRecognizer&) = delete;

  [[nodiscard]] UIGestureRecognizerState state() const { return state_; }
  // Null while it belongs to no view.
  [[nodiscard]] UIView* view() const { return view_; }
  [[nodiscard]] bool isEnabled() const { return enabled_; }
  void setEnabled(bool enabled) { enabled_ = enabled; }
  [[nodiscard]] bool cancelsTouchesInView() const { return cancelsTouchesInView_; }
  void setCancelsTouchesInView(bool cancels) { cancelsTouchesInView_ = cancels; }

  // The fingers that are down; 1 as well while a tap ends, whose finger has just left.
  [[nodiscard]] int numberOfTouches() const { return numberOfTouches_; }
  // In the coordinates of `view`, the window's when it is null.
  [[nodiscard]] CGPoint locationInView(const UIView* view) const;

  // Asked before it begins; a screen may say no. Null is always yes.
  std::function<bool(UIGestureRecognizer& recognizer)> shouldBegin;

  // From the window: a touch of the view. What it makes of it, it tells by its state.
  virtual void handleTouch(const UITouch& touch) = 0;
  // Back to possible, once all fingers have left.
  virtual void reset();
  void setView(UIView* view) { view_ = view; }

 protected:
  // Calls the action for every state but possible and failed.
  void setState(UIGestureRecognizerState state);
  void setLocation(CGPoint location, int touches);
  [[nodiscard]] CGPoint location() const { return location_; }

 private:
  Action action_;
  UIView* view_ = nullptr;
  CGPoint location_;
  int numberOfTouches_ = 0;
  UIGestureRecognizerState state_ = UIGestureRecognizerState::kPossible;
  bool enabled_ = true;
  bool cancelsTouchesInView_ = true;
};

}  // namespace zephyl
