#include "ui/components/HRColorPickerView.h"

#include "platform/Host.h"
#include "platform/foundation/Clock.h"

#include "ui/components/HRBrightnessSlider.h"
#include "ui/components/HRColorInfoView.h"
#include "ui/components/HRColorMapView.h"

namespace zephyl {
namespace {

// Between two reports, in seconds.
constexpr double kWait = 66666e-6;
constexpr double kSaturationUpperLimit = 0.9;
constexpr CGFloat kTileSize = 16;
constexpr double kBrightnessLowerLimit = 0.4;

constexpr CGFloat kHeaderHeight = 104;
constexpr CGSize kInfoSize{66, 84};
constexpr CGFloat kInfoX = 8;
constexpr CGFloat kSliderGap = 9;
constexpr CGFloat kSliderHeight = 11;
constexpr CGFloat kSliderBottom = 18;

}  // namespace

HRColorPickerView::HRColorPickerView(const CGRect& frame) : UIControl(frame) {
  setOpaque(false);
}

HRColorPickerView::~HRColorPickerView() = default;

UIColor HRColorPickerView::color() const {
  return UIColor::colorWithHue(hsv_.h, hsv_.s, hsv_.v, 1);
}

void HRColorPickerView::setColor(const UIColor& color) {
  hasColor_ = true;
  HSVColorFromUIColor(color, &hsv_);
  if (brightnessSlider_ != nullptr) {
    brightnessSlider_->setColor(color);
  }
  if (colorInfoView_ != nullptr) {
    colorInfoView_->setColor(color);
  }
  if (colorMapView_ != nullptr) {
    colorMapView_->setColor(color);
    colorMapView_->setBrightness(hsv_.v);
  }
}

const std::shared_ptr<HRColorInfoView>& HRColorPickerView::colorInfoView() {
  if (colorInfoView_ == nullptr) {
    colorInfoView_ = std::make_shared<HRColorInfoView>();
    colorInfoView_->setColor(color());
    addSubview(colorInfoView_);
  }
  return colorInfoView_;
}

const std::shared_ptr<HRBrightnessSlider>& HRColorPickerView::brightnessSlider() {
  if (brightnessSlider_ == nullptr) {
    brightnessSlider_ = std::make_shared<HRBrightnessSlider>();
    brightnessSlider_->setBrightnessLowerLimit(kBrightnessLowerLimit);
    brightnessSlider_->setColor(color());
    brightnessSlider_->addTarget(
        weak_from_this(), [this](UIControl&) { brightnessChanged(); }, kValueChanged);
    addSubview(brightnessSlider_);
  }
  return brightnessSlider_;
}

const std::shared_ptr<HRColorMapView>& HRColorPickerView::colorMapView() {
  if (colorMapView_ == nullptr) {
    colorMapView_ = std::make_shared<HRColorMapView>(CGRect(), kSaturationUpperLimit);
    colorMapView_->setTileSize(kTileSize);
    if (hasColor_) {
      colorMapView_->setBrightness(hsv_.v);
    }
    colorMapView_->setColor(color());
    colorMapView_->addTarget(
        weak_from_this(), [this](UIControl&) { colorMapChanged(); }, kValueChanged);
    addSubview(colorMapView_);
  }
  return colorMapView_;
}

void HRColorPickerView::brightnessChanged() {
  hsv_.v = brightnessSlider_->brightness();
  colorMapView()->setBrightness(hsv_.v);
  colorMapView()->setColor(color());
  colorInfoView()->setColor(color());
  report();
}

void HRColorPickerView::colorMapChanged() {
  // Kept: what the map picks as white or black has lost its hue.
  HSVColor picked;
  HSVColorFromUIColor(colorMapView_->color(), &picked);
  hsv_.h = picked.h;
  hsv_.s = picked.s;
  brightnessSlider()->setColor(color());
  colorInfoView()->setColor(color());
  report();
}

void HRColorPickerView::report() {
  const double now = host().clock().now();
  // A clock that was put back must not silence the picker until it has caught up.
  const bool waited = !lastReport_ || now < *lastReport_ || now - *lastReport_ > kWait;
  if (waited) {
    lastReport_ = now;
    sendActionsForControlEvents(kValueChanged);
  }
}

void HRColorPickerView::layoutSubviews() {
  const CGSize size = bounds().size;
  const CGFloat below = size.height - kHeaderHeight;
  const CGFloat side = size.width > below ? size.width : below;
  colorMapView()->setFrame(CGRectMake(0, kHeaderHeight, size.width, side));
  const CGSize map = colorMapView()->intrinsicContentSize();
  const CGFloat mapTop = size.height - map.height;
  colorMapView()->setFrame(CGRectMake(0, mapTop, map.width, map.height));

  const CGRect info = {{kInfoX, (mapTop - kInfoSize.height) / 2}, kInfoSize};
  colorInfoView()->setFrame(info);
  brightnessSlider()->setFrame(HRBrightnessSlider::frameForAlignmentRect(
      CGRectMake(info.maxX() + kSliderGap, info.maxY() - kSliderBottom - kSliderHeight,
                 size.width - info.maxX() - 2 * kSliderGap, kSliderHeight)));
}

}  // namespace zephyl
