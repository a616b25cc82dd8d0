#include "platform/uikit/UIColor.h"

#include <algorithm>

#include "platform/Host.h"
#include "platform/uikit/UIKitHost.h"
#include "platform/uikit/UIScreen.h"

namespace zephyl {
namespace {

UIUserInterfaceStyle currentStyle() {
  UIKitHost* const screenHalf = host().uikit();
  return screenHalf == nullptr ? UIUserInterfaceStyle::kLight
                               : screenHalf->screen().userInterfaceStyle();
}

// NaN is 0.
CGFloat fraction(CGFloat number) {
  return number > 0 ? std::min(number, 1.0) : 0;
}

UIColor bytes(int red, int green, int blue, CGFloat alpha = 1) {
  return UIColor::colorWithRed(red / 255.0, green / 255.0, blue / 255.0, alpha);
}

CGFloat hueOf(const UIColor::Channels& color, CGFloat largest, CGFloat range) {
  if (range <= 0) {
    return 0;
  }
  CGFloat sector = 0;
  if (color.red >= largest) {
    sector = (color.green - color.blue) / range;
  } else if (color.green >= largest) {
    sector = 2 + (color.blue - color.red) / range;
  } else {
    sector = 4 + (color.red - color.green) / range;
  }
  return (sector < 0 ? sector + 6 : sector) / 6;
}

}  // namespace

UIColor UIColor::colorWithRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return UIColor(Channels{red, green, blue, alpha});
}

UIColor UIColor::colorWithWhite(CGFloat white, CGFloat alpha) {
  return UIColor(Channels{white, white, white, alpha});
}

UIColor UIColor::colorWithHue(CGFloat hue, CGFloat saturation, CGFloat brightness, CGFloat alpha) {
  const CGFloat turn = fraction(hue) * 6;
  const int sector = static_cast<int>(turn);
  const CGFloat s = finite(saturation);
  const CGFloat v = finite(brightness);
  const CGFloat part = turn - sector;
  const CGFloat low = v * (1 - s);
  const CGFloat falling = v * (1 - s * part);
  const CGFloat rising = v * (1 - s * (1 - part));
  switch (sector) {
    case 1:
      return colorWithRed(falling, v, low, alpha);
    case 2:
      return colorWithRed(low, v, rising, alpha);
    case 3:
      return colorWithRed(low, falling, v, alpha);
    case 4:
      return colorWithRed(rising, low, v, alpha);
    case 5:
      return colorWithRed(v, low, falling, alpha);
    default:
      // A whole turn is red again.
      return colorWithRed(v, rising, low, alpha);
  }
}

UIColor UIColor::dynamic(const UIColor& light, const UIColor& dark) {
  return UIColor(light.light_, dark.dark_ ? *dark.dark_ : dark.light_);
}

UIColor UIColor::resolvedColor(UIUserInterfaceStyle style) const {
  return UIColor(style == UIUserInterfaceStyle::kDark && dark_ ? *dark_ : light_);
}

UIColor::Channels UIColor::channels() const {
  return dark_ ? resolvedColor(currentStyle()).light_ : light_;
}

UIColor::HueChannels UIColor::hueChannels() const {
  const Channels given = channels();
  const Channels color = {finite(given.red), finite(given.green), finite(given.blue),
                          finite(given.alpha)};
  const auto [smallest, largest] = std::minmax({color.red, color.green, color.blue});
  const CGFloat range = largest - smallest;
  return {hueOf(color, largest, range), largest != 0 ? range / largest : 0, largest, color.alpha};
}

UIColor UIColor::colorWithAlphaComponent(CGFloat alpha) const {
  UIColor color = *this;
  color.light_.alpha = alpha;
  if (color.dark_) {
    color.dark_->alpha = alpha;
  }
  return color;
}

UIColor UIColor::colorWithAlphaMultipliedBy(CGFloat factor) const {
  UIColor color = *this;
  color.light_.alpha *= factor;
  if (color.dark_) {
    color.dark_->alpha *= factor;
  }
  return color;
}

bool operator==(const UIColor& a, const UIColor& b) {
  return a.light_ == b.light_ && a.dark_.value_or(a.light_) == b.dark_.value_or(b.light_);
}

UIColor UIColor::clearColor() {
  return {};
}
UIColor UIColor::blackColor() {
  return colorWithWhite(0, 1);
}
UIColor UIColor::whiteColor() {
  return colorWithWhite(1, 1);
}
UIColor UIColor::darkGrayColor() {
  return colorWithWhite(1 / 3.0, 1);
}
UIColor UIColor::grayColor() {
  return colorWithWhite(0.5, 1);
}
UIColor UIColor::lightGrayColor() {
  return colorWithWhite(2 / 3.0, 1);
}
UIColor UIColor::redColor() {
  return colorWithRed(1, 0, 0, 1);
}
UIColor UIColor::greenColor() {
  return colorWithRed(0, 1, 0, 1);
}
UIColor UIColor::blueColor() {
  return colorWithRed(0, 0, 1, 1);
}

UIColor UIColor::labelColor() {
  return dynamic(blackColor(), whiteColor());
}
UIColor UIColor::secondaryLabelColor() {
  return dynamic(bytes(60, 60, 67, 0.6), bytes(235, 235, 245, 0.6));
}
UIColor UIColor::tertiaryLabelColor() {
  return dynamic(bytes(60, 60, 67, 0.3), bytes(235, 235, 245, 0.3));
}
UIColor UIColor::placeholderTextColor() {
  return tertiaryLabelColor();
}
UIColor UIColor::separatorColor() {
  return dynamic(bytes(60, 60, 67, 0.29), bytes(84, 84, 88, 0.6));
}
UIColor UIColor::systemBackgroundColor() {
  return dynamic(whiteColor(), blackColor());
}
UIColor UIColor::secondarySystemBackgroundColor() {
  return systemGray6Color();
}
UIColor UIColor::systemGroupedBackgroundColor() {
  return dynamic(bytes(242, 242, 247), blackColor());
}
UIColor UIColor::secondarySystemGroupedBackgroundColor() {
  return dynamic(whiteColor(), bytes(28, 28, 30));
}
UIColor UIColor::systemFillColor() {
  return dynamic(bytes(120, 120, 128, 0.2), bytes(120, 120, 128, 0.36));
}
UIColor UIColor::systemBlueColor() {
  return dynamic(bytes(0, 122, 255), bytes(10, 132, 255));
}
UIColor UIColor::systemGreenColor() {
  return dynamic(bytes(52, 199, 89), bytes(48, 209, 88));
}
UIColor UIColor::systemRedColor() {
  return dynamic(bytes(255, 59, 48), bytes(255, 69, 58));
}
UIColor UIColor::systemGrayColor() {
  return bytes(142, 142, 147);
}
UIColor UIColor::systemGray2Color() {
  return dynamic(bytes(174, 174, 178), bytes(99, 99, 102));
}
UIColor UIColor::systemGray3Color() {
  return dynamic(bytes(199, 199, 204), bytes(72, 72, 74));
}
UIColor UIColor::systemGray4Color() {
  return dynamic(bytes(209, 209, 214), bytes(58, 58, 60));
}
UIColor UIColor::systemGray5Color() {
  return dynamic(bytes(229, 229, 234), bytes(44, 44, 46));
}
UIColor UIColor::systemGray6Color() {
  return dynamic(bytes(242, 242, 247), bytes(28, 28, 30));
}

}  // namespace zephyl
