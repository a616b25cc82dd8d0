// One change of what a navigation controller shows, while it is seen to happen. Main thread.

#pragma once

#include <memory>

#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/UINavigationController.h"

namespace zephyl {

struct UINavigationController::Transition {
  // Null when there was, or is, none.
  std::shared_ptr<UIViewController> from;
  std::shared_ptr<UIViewController> to;
  // What is to leave its parent in the end.
  Controllers leaving;
  // Over the lower of both views.
  std::shared_ptr<UIView> dimming;
  bool forwards = true;
  // A finger drags the upper screen away, and may yet put it back: `from` is still on the stack.
  bool swiped = false;
  bool turnedRound = false;

  // Where both screens are when the upper one has come, or not gone, so far: 0 is not at all.
  void showProgress(CGFloat progress) const;
  // Nothing has come of it: what was to go is what comes.
  void turnRound();
};

}  // namespace zephyl
