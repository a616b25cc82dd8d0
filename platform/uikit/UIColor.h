// A colour: four channels as fractions, or a dynamic colour that has one form in light and another
// in dark appearance. A value.
//
// Channels are kept as they were given, outside 0 to 1 too; a painter clamps them when it draws.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"

namespace zephyl {

enum class UIUserInterfaceStyle { kLight = 1, kDark = 2 };

class ZP_EXPORT UIColor {
 public:
  struct Channels {
    CGFloat red = 0;
    CGFloat green = 0;
    CGFloat blue = 0;
    CGFloat alpha = 0;
    friend bool operator==(const Channels&, const Channels&) = default;
  };
  // Each a fraction; hue is a fraction of a turn.
  struct HueChannels {
    CGFloat hue = 0;
    CGFloat saturation = 0;
    CGFloat brightness = 0;
    CGFloat alpha = 0;
  };

  // Clear.
  UIColor() = default;

  [[nodiscard]] static UIColor colorWithRed(CGFloat red, CGFloat green, CGFloat blue,
                                            CGFloat alpha);
  [[nodiscard]] static UIColor colorWithWhite(CGFloat white, CGFloat alpha);
  // The hexcone model. Hue is clamped to 0 to 1; the other two are not, so that a colour with
  // channels out of range comes back from `hueChannels` as it was.
  [[nodiscard]] static UIColor colorWithHue(CGFloat hue, CGFloat saturation, CGFloat brightness,
                                            CGFloat alpha);
  [[nodiscard]] static UIColor dynamic(const UIColor& light, const UIColor& dark);

  // The form for an appearance; a plain colour is the same in both.
  [[nodiscard]] UIColor resolvedColor(UIUserInterfaceStyle style) const;
  // Of the form that the main screen's appearance asks for, light where there is no screen.
  [[nodiscard]] Channels channels() const;
  [[nodiscard]] HueChannels hueChannels() const;
  [[nodiscard]] UIColor colorWithAlphaComponent(CGFloat alpha) const;
  // Each form's alpha times the factor.
  [[nodiscard]] UIColor colorWithAlphaMultipliedBy(CGFloat factor) const;

  // Plain colours.
  [[nodiscard]] static UIColor clearColor();
  [[nodiscard]] static UIColor blackColor();
  [[nodiscard]] static UIColor whiteColor();
  [[nodiscard]] static UIColor darkGrayColor();
  [[nodiscard]] static UIColor grayColor();
  [[nodiscard]] static UIColor lightGrayColor();
  [[nodiscard]] static UIColor redColor();
  [[nodiscard]] static UIColor greenColor();
  [[nodiscard]] static UIColor blueColor();

  // Dynamic colours of the system.
  [[nodiscard]] static UIColor labelColor();
  [[nodiscard]] static UIColor secondaryLabelColor();
  [[nodiscard]] static UIColor tertiaryLabelColor();
  [[nodiscard]] static UIColor placeholderTextColor();
  [[nodiscard]] static UIColor separatorColor();
  [[nodiscard]] static UIColor systemBackgroundColor();
  [[nodiscard]] static UIColor secondarySystemBackgroundColor();
  [[nodiscard]] static UIColor systemGroupedBackgroundColor();
  [[nodiscard]] static UIColor secondarySystemGroupedBackgroundColor();
  [[nodiscard]] static UIColor systemFillColor();
  [[nodiscard]] static UIColor systemBlueColor();
  [[nodiscard]] static UIColor systemGreenColor();
  [[nodiscard]] static UIColor systemRedColor();
  [[nodiscard]] static UIColor systemGrayColor();
  [[nodiscard]] static UIColor systemGray2Color();
  [[nodiscard]] static UIColor systemGray3Color();
  [[nodiscard]] static UIColor systemGray4Color();
  [[nodiscard]] static UIColor systemGray5Color();
  [[nodiscard]] static UIColor systemGray6Color();

  // The conversions of group markers. Declared here, since C++ cannot add to a class from outside;
  // their rules are in UIColorRingfold.cpp.

  // Bits 16 to 23 red, 8 to 15 green, 0 to 7 blue; bits above are ignored. Alpha 1.
  [[nodiscard]] static UIColor __zpColorWithHex(std::int64_t packed);
  // The colours are divided by 255, not clamped. Kept: alpha is a fraction already, and is not.
  [[nodiscard]] static UIColor __zpColorWith8BitRed(std::int64_t red, std::int64_t green,
                                                    std::int64_t blue, CGFloat alpha);
  // "#rrggbb". Throws std::out_of_range for a text of fewer than 7 characters.
  [[nodiscard]] static UIColor __zpColorWithHex(const std::string& text, CGFloat alpha);
  // "rrggbb" or "rrggbbaa", no "#". Any other length is opaque black.
  [[nodiscard]] static UIColor __zpColorWithHexString(const std::string& text);
  // "rrggbbaa", lower case, each channel truncated.
  [[nodiscard]] std::string __zpHexString() const;

  // Dynamic colours are equal when both forms are.
  friend ZP_EXPORT bool operator==(const UIColor& a, const UIColor& b);

 private:
  explicit UIColor(const Channels& light, const std::optional<Channels>& dark = std::nullopt)
      : light_(light), dark_(dark) {}

  Channels light_;
  std::optional<Channels> dark_;
};

}  // namespace zephyl
