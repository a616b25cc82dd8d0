// A turning wheel of blades: something goes on. Main thread.
//
// It asks for frames only while it turns in a window and the user does not mind motion, and draws
// anew only when another blade is the darkest.

#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/uikit/UIView.h"

namespace zephyl {

// With the platform's values. The last two are of version 13, in the colour of secondary texts.
enum class UIActivityIndicatorViewStyle {
  kWhiteLarge = 0,
  kWhite = 1,
  kGray = 2,
  kMedium = 100,
  kLarge = 101
};

class ZP_EXPORT UIActivityIndicatorView : public UIView {
 public:
  // Its size is that of the style.
  explicit UIActivityIndicatorView(UIActivityIndicatorViewStyle style);

  [[nodiscard]] UIActivityIndicatorViewStyle activityIndicatorViewStyle() const { return style_; }
  // The one that was set, else the style's.
  [[nodiscard]] UIColor color() const;
  void setColor(const UIColor& color);
  [[nodiscard]] bool isAnimating() const { return animating_; }
  void startAnimating();
  void stopAnimating();
  // By default it does.
  [[nodiscard]] bool hidesWhenStopped() const { return hidesWhenStopped_; }
  void setHidesWhenStopped(bool hides);

  void drawRect(CGContext& context, const CGRect& rect) override;
  void didMoveToWindow() override;
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override;
  [[nodiscard]] CGSize intrinsicContentSize() const override;

  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kProgress;
  }
  [[nodiscard]] UIAccessibilityState accessibilityState() const override;
  [[nodiscard]] const char* className() const override { return "UIActivityIndicatorView"; }

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  void turn();
  bool proceed(double timestamp);

  UIActivityIndicatorViewStyle style_;
  std::optional<UIColor> color_;
  bool animating_ = false;
  bool hidesWhenStopped_ = true;
  // Frames are asked for.
  bool turning_ = false;
  int step_ = 0;
};

}  // namespace zephyl
