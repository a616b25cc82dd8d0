// A colour picker by hue, saturation and brightness: the map, the brightness bar and the swatch,
// kept in step. Main thread.
//
// Sends value-changed when the user chose another colour, at most about fifteen times a second;
// what is reported in between is lost, and `color` is always the latest.

#pragma once

#include <memory>
#include <optional>

#include "platform/uikit/controls/UIControl.h"

#include "ui/components/HSVColor.h"

namespace zephyl {

class HRBrightnessSlider;
class HRColorInfoView;
class HRColorMapView;

class ZP_EXPORT HRColorPickerView : public UIControl {
 public:
  explicit HRColorPickerView(const CGRect& frame = {});
  ~HRColorPickerView() override;

  // As the picker holds it, with alpha 1: black at first.
  [[nodiscard]] UIColor color() const;
  void setColor(const UIColor& color);

  // Each made, and added, when it is first asked for: by the first layout at the latest. Kept:
  // until a colour is set the map has its own brightness, not that of the picker's black.
  [[nodiscard]] const std::shared_ptr<HRColorInfoView>& colorInfoView();
  [[nodiscard]] const std::shared_ptr<HRBrightnessSlider>& brightnessSlider();
  [[nodiscard]] const std::shared_ptr<HRColorMapView>& colorMapView();

  // The same in both directions of reading: the map has only one.
  void layoutSubviews() override;
  [[nodiscard]] bool canBecomeFirstResponder() const override { return false; }
  [[nodiscard]] bool isAccessibilityElement() const override { return false; }
  bool accessibilityActivate() override { return false; }
  [[nodiscard]] const char* className() const override { return "HRColorPickerView"; }

 private:
  void brightnessChanged();
  void colorMapChanged();
  void report();

  HSVColor hsv_;
  bool hasColor_ = false;
  std::shared_ptr<HRColorInfoView> colorInfoView_;
  std::shared_ptr<HRBrightnessSlider> brightnessSlider_;
  std::shared_ptr<HRColorMapView> colorMapView_;
  // By the wall clock, in seconds.
  std::optional<double> lastReport_;
};

}  // namespace zephyl
