// The bar of the colour picker on which the brightness is chosen: full at the left end, the lower
// limit at the right. Sends value-changed when the user moves it. Main thread.
//
// The bar that is seen is smaller than the view, by `alignmentRectInsets`, so that a finger finds
// it.

#pragma once

#include <memory>
#include <string>

#include "platform/uikit/CAGradientLayer.h"
#include "platform/uikit/controls/UIControl.h"

#include "ui/components/HSVColor.h"

namespace zephyl {

class HRBrightnessCursor;

class ZP_EXPORT HRBrightnessSlider : public UIControl {
 public:
  explicit HRBrightnessSlider(const CGRect& frame = {});
  ~HRBrightnessSlider() override;

  // Hue and saturation of the colour that was set, the slider's brightness, and alpha 1 once the
  // user or `setColor` chose one.
  [[nodiscard]] UIColor color() const;
  // Takes its brightness, which need not be within the limit.
  void setColor(const UIColor& color);
  [[nodiscard]] double brightness() const { return brightness_; }
  [[nodiscard]] double brightnessLowerLimit() const { return limit_; }
  // Applies the colour again.
  void setBrightnessLowerLimit(double limit);

  // Chooses the brightness at the place; beyond the ends it is that of the end.
  void update(CGPoint location);

  [[nodiscard]] static UIEdgeInsets alignmentRectInsets() { return {10, 20, 10, 20}; }
  // The frame with which the bar is seen there, and the other way round.
  [[nodiscard]] static CGRect frameForAlignmentRect(const CGRect& rect);
  [[nodiscard]] static CGRect alignmentRectForFrame(const CGRect& frame);

  void layoutSubviews() override;
  // Left and right move it by a twentieth; Home and End to the ends.
  bool pressesBegan(const UIKeyPress& press) override;

  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kSlider;
  }
  // In percent.
  [[nodiscard]] std::string accessibilityValue() const override;
  bool accessibilityActivate() override { return false; }
  // Brighter, and darker.
  void accessibilityIncrement() override;
  void accessibilityDecrement() override;
  [[nodiscard]] const char* className() const override { return "HRBrightnessSlider"; }
  [[nodiscard]] std::string describe() const override { return accessibilityValue(); }

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  // By the user, within the limit.
  void choose(double brightness);
  void updateCursor();
  void updateGradient();

  UIColor color_;
  HSVColor hsv_;
  double brightness_ = 0;
  double limit_ = 0;
  bool needsToUpdateColor_ = false;
  std::shared_ptr<CAGradientLayer> gradient_;
  std::shared_ptr<HRBrightnessCursor> cursor_;
  // Where the cursor moves, and what is seen of the bar.
  CGRect controlFrame_;
  CGRect renderingFrame_;
};

}  // namespace zephyl
