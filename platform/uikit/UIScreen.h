// The screen that the windows are on, and what the user set for it. A seam; main thread, except
// that `scale`, `userInterfaceStyle` and `userInterfaceLayoutDirection` may be asked on any.

#pragma once

#include <functional>

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/UIColor.h"

namespace zephyl {

enum class UIUserInterfaceLayoutDirection { kLeftToRight, kRightToLeft };

class UIScreen {
 public:
  virtual ~UIScreen() = default;

  // The installed host's.
  [[nodiscard]] ZP_EXPORT static UIScreen& mainScreen();

  // In points, at (0, 0).
  [[nodiscard]] virtual CGRect bounds() = 0;
  // Pixels a point; any fraction of 0.5 or more.
  [[nodiscard]] virtual CGFloat scale() = 0;
  // What the status bar and the home indicator cover.
  [[nodiscard]] virtual UIEdgeInsets safeAreaInsets() = 0;
  [[nodiscard]] virtual UIUserInterfaceStyle userInterfaceStyle() = 0;
  [[nodiscard]] virtual UIUserInterfaceLayoutDirection userInterfaceLayoutDirection() = 0;
  // Animations then end at once.
  [[nodiscard]] virtual bool prefersReducedMotion() = 0;

  // Called after any of these changed; one handler, replaced by the next.
  virtual void setChangeHandler(std::function<void()> handler) = 0;

  [[nodiscard]] ZP_EXPORT bool isRightToLeft();
  // The bounds without the status bar.
  [[nodiscard]] ZP_EXPORT CGRect applicationFrame();
};

}  // namespace zephyl
