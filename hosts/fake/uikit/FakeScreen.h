// A phone's screen: 390 x 844 points at three pixels a point, light, left to right. A test sets it
// otherwise, and the change handler runs. Main thread; what the seam allows is asked on any.

#pragma once

#include <atomic>
#include <functional>
#include <utility>

#include "platform/uikit/UIScreen.h"

namespace zephyl::fake {

class FakeScreen : public UIScreen {
 public:
  CGRect bounds() override { return bounds_; }
  CGFloat scale() override { return scale_; }
  UIEdgeInsets safeAreaInsets() override { return safeAreaInsets_; }
  UIUserInterfaceStyle userInterfaceStyle() override { return style_; }
  UIUserInterfaceLayoutDirection userInterfaceLayoutDirection() override { return direction_; }
  bool prefersReducedMotion() override { return reducedMotion_; }
  void setChangeHandler(std::function<void()> handler) override {
    changeHandler_ = std::move(handler);
  }

  void setBounds(const CGRect& bounds);
  void setScale(CGFloat scale);
  void setSafeAreaInsets(const UIEdgeInsets& insets);
  void setUserInterfaceStyle(UIUserInterfaceStyle style);
  void setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection direction);
  void setPrefersReducedMotion(bool reduced);

 private:
  void tell();

  CGRect bounds_ = CGRectMake(0, 0, 390, 844);
  std::atomic<CGFloat> scale_ = 3;
  UIEdgeInsets safeAreaInsets_{47, 0, 34, 0};
  std::atomic<UIUserInterfaceStyle> style_ = UIUserInterfaceStyle::kLight;
  std::atomic<UIUserInterfaceLayoutDirection> direction_ =
      UIUserInterfaceLayoutDirection::kLeftToRight;
  bool reducedMotion_ = false;
  std::function<void()> changeHandler_;
};

}  // namespace zephyl::fake
