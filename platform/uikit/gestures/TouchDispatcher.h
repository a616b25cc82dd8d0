// Hands the touches, scroll turns and menu clicks of a window to views and gesture recognizers.
// Main thread.
//
// A finger belongs to the view that it went down on until it leaves. The recognizers of that view
// and of all around it see the touch first, innermost first; then the view. The first recognizer
// that begins wins: the others of that finger fail, and the views have their touches cancelled.
// A view follows one finger at a time; recognizers see all.

#pragma once

#include <memory>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/UITouch.h"

namespace zephyl {

class UIGestureRecognizer;
class UIView;
class UIWindow;

class ZP_EXPORT TouchDispatcher {
 public:
  // `window` outlives it.
  explicit TouchDispatcher(UIWindow& window);
  ~TouchDispatcher();
  TouchDispatcher(const TouchDispatcher&) = delete;
  TouchDispatcher& operator=(const TouchDispatcher&) = delete;

  // A touch of an unknown finger that does not begin is ignored; one that begins again is
  // cancelled first.
  void touch(const UITouch& touch);
  void scroll(const UIScrollEvent& scroll);
  // The view, and with it all in it, leaves the window: what touched it is cancelled.
  void viewLeft(UIView& view);

  // From a recognizer of this dispatcher's: whether all views let it begin; and that it began.
  [[nodiscard]] bool mayBegin(const UIGestureRecognizer& recognizer) const;
  void didBegin(const UIGestureRecognizer& recognizer);

 private:
  struct Finger;

  void began(const UITouch& touch);
  void continued(Finger& finger, const UITouch& touch);
  void sendToRecognizers(Finger& finger, const UITouch& touch);
  void sendToView(Finger& finger, const UITouch& touch);
  void cancelView(Finger& finger);
  void remove(const std::shared_ptr<Finger>& finger);
  void resetFree(const std::vector<std::shared_ptr<UIGestureRecognizer>>& recognizers);

  UIWindow& window_;
  std::vector<std::shared_ptr<Finger>> fingers_;
};

}  // namespace zephyl
