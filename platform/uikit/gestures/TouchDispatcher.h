// Hands the touches, scroll turns and menu clicks of a window to views and gesture recognizers.
// Main thread.
//
// A finger belongs to the view that it went down on until it leaves. The recognizers of that view
// and of all around it see the touch first, innermost first; then the view. The first recognizer
// that begins wins: the others of that finger fail, and the view has its touch cancelled. A view
// follows one finger at a time; recognizers see all.

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

  // A finger that is not known and does not begin is ignored; one that begins again is cancelled
  // first. A secondary click asks the views for a menu and is no touch.
  void touch(const UITouch& touch);
  void scroll(const UIScrollEvent& scroll);
  // The view, and with it all in it, leaves the window: what touched it is cancelled. Recognizers
  // of the views around it go on, so that a row may leave while its table is dragged.
  void viewLeft(UIView& view);

  // From recognizers: whether all views let it begin, and no other is at work; and that it began.
  [[nodiscard]] bool mayBegin(const UIGestureRecognizer& recognizer) const;
  void didBegin(const UIGestureRecognizer& recognizer);

 private:
  struct Finger;
  using Recognizers = std::vector<std::shared_ptr<UIGestureRecognizer>>;

  [[nodiscard]] std::shared_ptr<UIView> touchedView(const Finger& finger) const;
  [[nodiscard]] std::shared_ptr<Finger> finger(int identifier) const;
  [[nodiscard]] bool isFollowed(const UIView& view) const;
  void begin(const UITouch& touch);
  void proceed(const std::shared_ptr<Finger>& finger, const UITouch& touch);
  static void sendToRecognizers(const Finger& finger, const UITouch& touch);
  void cancelView(Finger& finger);
  void remove(const std::shared_ptr<Finger>& finger);
  void resetFree(const Recognizers& recognizers);
  void requestMenu(const UITouch& touch);

  UIWindow& window_;
  // Owns nothing: tells recognizers whether this still lives.
  std::shared_ptr<TouchDispatcher> self_;
  std::vector<std::shared_ptr<Finger>> fingers_;
};

}  // namespace zephyl
