// Makes gestures of touches: taps, long presses and pans. Main thread.
//
// A recognizer sees the touches of its view and of all views in it. While it recognizes, the views
// get their touches cancelled, unless `cancelsTouchesInView` is off. Of several that see the same
// finger only one recognizes: the first that begins, the innermost where two would at once.

#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/UITouch.h"

namespace zephyl {

class TouchDispatcher;
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

class ZP_EXPORT UIGestureRecognizer : public std::enable_shared_from_this<UIGestureRecognizer> {
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
  // Switched off, it sees no touches, and the gesture that runs is cancelled.
  void setEnabled(bool enabled);
  [[nodiscard]] bool cancelsTouchesInView() const { return cancelsTouchesInView_; }
  void setCancelsTouchesInView(bool cancels) { cancelsTouchesInView_ = cancels; }

  // The fingers that are down; 1 as well while a tap ends, whose finger has just left.
  [[nodiscard]] int numberOfTouches() const { return numberOfTouches_; }
  // The middle of the fingers; after the last has left, where it was. In the coordinates of `view`,
  // the window's when it is null.
  [[nodiscard]] CGPoint locationInView(const UIView* view) const;

  // Of one finger, in the order they went down; that of all for an index that is no finger's.
  [[nodiscard]] CGPoint locationOfTouch(int index, const UIView* view) const;

  // Asked before it begins; a screen may say no. Null is always yes.
  std::function<bool(UIGestureRecognizer& recognizer)> shouldBegin;

  // The rest is for the dispatcher of touches, and for tests that drive one recognizer alone.

  // Sees touches before the recognizers of inner views, and so goes before them.
  [[nodiscard]] virtual bool precedesInner() const { return false; }
  // Whether it is at work or can begin: once it has ended or failed it sees nothing until `reset`.
  [[nodiscard]] bool followsTouches() const;
  [[nodiscard]] bool isActive() const {
    return state_ == UIGestureRecognizerState::kBegan ||
           state_ == UIGestureRecognizerState::kChanged;
  }
  void receiveTouch(const UITouch& touch);
  // Another was recognized, or the view left: fails while possible, is cancelled while active.
  void prevent();
  // Back to possible, once all fingers have left.
  virtual void reset();
  void setView(UIView* view);
  void setDispatcher(std::weak_ptr<TouchDispatcher> dispatcher) {
    dispatcher_ = std::move(dispatcher);
  }

 protected:
  // `touches` and the location already count this touch: one that ends is no more among them. What
  // the recognizer makes of it, it tells by `setState`.
  virtual void handleTouch(const UITouch& touch) = 0;
  // Calls the action for every state but possible and failed. A recognizer that may not begin fails
  // instead.
  void setState(UIGestureRecognizerState state);
  void setNumberOfTouches(int number) { numberOfTouches_ = number; }
  // The fingers that are down, as they were last seen.
  [[nodiscard]] const std::vector<UITouch>& touches() const { return touches_; }
  // In the window.
  [[nodiscard]] CGPoint location() const { return location_; }

 private:
  void follow(const UITouch& touch);
  [[nodiscard]] bool mayBegin();

  Action action_;
  UIView* view_ = nullptr;
  std::weak_ptr<TouchDispatcher> dispatcher_;
  std::vector<UITouch> touches_;
  CGPoint location_;
  int numberOfTouches_ = 0;
  UIGestureRecognizerState state_ = UIGestureRecognizerState::kPossible;
  bool enabled_ = true;
  bool cancelsTouchesInView_ = true;
};

}  // namespace zephyl
