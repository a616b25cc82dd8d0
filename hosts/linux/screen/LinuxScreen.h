// The screen that the programs show: a phone's in a window, or a picture without one. Made and
// changed on the main thread.

#pragma once

#include <atomic>
#include <functional>
#include <optional>
#include <utility>

#include "platform/uikit/UIScreen.h"

namespace zephyl::linux_host {

struct ScreenOptions {
  CGSize size{390, 844};
  CGFloat scale = 2;
  UIEdgeInsets safeAreaInsets;
  bool rightToLeft = false;

  // Not given: as the desktop has it, light and moving while it has not told.
  std::optional<UIUserInterfaceStyle> style;
  std::optional<bool> reducedMotion;
};

class LinuxScreen : public UIScreen {
 public:
  explicit LinuxScreen(const ScreenOptions& options);

  [[nodiscard]] CGRect bounds() override { return bounds_; }
  [[nodiscard]] CGFloat scale() override { return scale_; }
  [[nodiscard]] UIEdgeInsets safeAreaInsets() override { return safeAreaInsets_; }
  [[nodiscard]] UIUserInterfaceStyle userInterfaceStyle() override { return style_; }
  [[nodiscard]] UIUserInterfaceLayoutDirection userInterfaceLayoutDirection() override {
    return direction_;
  }
  [[nodiscard]] bool prefersReducedMotion() override { return reducedMotion_; }
  void setChangeHandler(std::function<void()> handler) override {
    changeHandler_ = std::move(handler);
  }

  // From the window. At least a point; a scale from 0.5 to 16, 1 when it is no number.
  void setGeometry(CGSize size, CGFloat scale);
  void setSafeAreaInsets(const UIEdgeInsets& insets);

  // What the user wants from now on; nothing: as the desktop has it.
  void setStyle(std::optional<UIUserInterfaceStyle> style);
  // What the desktop says; nothing where it says nothing.
  void setDesktopSettings(std::optional<UIUserInterfaceStyle> style,
                          std::optional<bool> reducedMotion);

 private:
  // Whether this changed anything.
  bool settle();
  void tell();

  std::optional<UIUserInterfaceStyle> wantedStyle_;
  const std::optional<bool> wantedReducedMotion_;
  std::optional<UIUserInterfaceStyle> desktopStyle_;
  std::optional<bool> desktopReducedMotion_;

  CGRect bounds_;
  UIEdgeInsets safeAreaInsets_;
  std::atomic<CGFloat> scale_ = 1;
  std::atomic<UIUserInterfaceStyle> style_ = UIUserInterfaceStyle::kLight;
  const UIUserInterfaceLayoutDirection direction_;
  bool reducedMotion_ = false;
  std::function<void()> changeHandler_;
};

}  // namespace zephyl::linux_host
