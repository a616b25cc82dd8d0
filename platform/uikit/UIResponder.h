// Whatever can be touched or typed at: views and view controllers. What one does not handle goes to
// the next, which is the view below, its controller, and at last the window. Main thread.

#pragma once

#include "platform/Export.h"
#include "platform/uikit/UITouch.h"

namespace zephyl {

class UIWindow;

class ZP_EXPORT UIResponder {
 public:
  virtual ~UIResponder() = default;

  // Null for the last one.
  [[nodiscard]] virtual UIResponder* nextResponder() const { return nullptr; }

  // The one that keys go to. A window has at most one; it becomes none when its view leaves.
  [[nodiscard]] virtual bool canBecomeFirstResponder() const { return false; }
  // Whether it is the first responder now: false when it may not, is in no window, or the present
  // one does not resign.
  virtual bool becomeFirstResponder() { return false; }
  virtual bool resignFirstResponder() { return false; }
  [[nodiscard]] virtual bool isFirstResponder() const { return false; }

  // By default each hands the touch to the next responder.
  virtual void touchesBegan(const UITouch& touch);
  virtual void touchesMoved(const UITouch& touch);
  virtual void touchesEnded(const UITouch& touch);
  virtual void touchesCancelled(const UITouch& touch);

  // Whether the key was used; else the next responder is asked.
  virtual bool pressesBegan(const UIKeyPress& press);
};

}  // namespace zephyl
