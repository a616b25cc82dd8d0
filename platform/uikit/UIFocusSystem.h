// Going through a window by keyboard: Tab moves from one thing that can be used to the next, and a
// ring shows where one is. What has the focus is the window's first responder. Main thread.

#pragma once

#include <memory>

#include "platform/Export.h"
#include "platform/uikit/UITouch.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

class UIWindow;

class ZP_EXPORT UIFocusSystem {
 public:
  explicit UIFocusSystem(UIWindow& window);

  // Makes the next view that can be used first responder, in reading order, round and round; within
  // what keeps the user to itself, an alert, while that is shown. False when there is none.
  bool moveFocus(bool forwards);

  // After the first responder, the layout or the tree changed: the ring lies around the first
  // responder, when keys were what brought the user there. Fields show a caret instead, and tables
  // their row: both have no ring.
  void update();

  // A touch takes the ring away, until the next Tab.
  void hideRing();
  // The ring, or null while there is none.
  [[nodiscard]] const std::shared_ptr<UIView>& ring() const { return ring_; }

 private:
  UIWindow& window_;
  std::shared_ptr<UIView> ring_;
  bool byKeys_ = false;
};

}  // namespace zephyl
