#include "ui/components/UIColorRingfold.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <stdexcept>

#include "platform/foundation/NSScanner.h"
#include "platform/foundation/Utf8.h"

namespace zephyl {
namespace {

constexpr CGFloat kLargestByte = 255.0;

// Truncated, as the phone's processor does it: what is too large or too small becomes the largest
// or smallest number there is, and NaN becomes 0.
template <typename Integer>
Integer truncated(CGFloat number) {
  using Limits = std::numeric_limits<Integer>;
  if (std::isnan(number)) {
    return 0;
  }
  if (number >= static_cast<CGFloat>(Limits::max())) {
    return Limits::max();
  }
  return number <= static_cast<CGFloat>(Limits::min()) ? Limits::min()
                                                       : static_cast<Integer>(number);
}

// In single precision, and widened.
CGFloat byteOf(std::uint32_t number, unsigned shift) {
  return static_cast<float>((number >> shift) & 0xFFU) / 255.0F;
}

// Two characters from the position on, as hexadecimal digits; 0 when the first is none. Positions
// count the characters of the platform, of which some take two.
std::int64_t pairAt(const std::string& text, std::size_t position) {
  std::size_t at = 0;
  for (std::size_t units = 0; units < position && at < text.size();) {
    const Utf8Character character = utf8CharacterAt(text, at);
    units += character.length == 4 ? 2 : 1;
    at += character.length == 0 ? 1 : character.length;
    if (units > position) {
      // Half a character stands at the position: no digit.
      return 0;
    }
  }
  const std::string pair = "0x" + text.substr(at, 2);
  return NSScanner(pair).scanHexInt().value_or(0);
}

}  // namespace

UIColor UIColor::__zpColorWithHex(std::int64_t packed) {
  const auto bits = static_cast<std::uint64_t>(packed);
  const auto channel = [&](unsigned shift) {
    return static_cast<CGFloat>((bits >> shift) & 0xFFU) / kLargestByte;
  };
  return colorWithRed(channel(16), channel(8), channel(0), 1);
}

UIColor UIColor::__zpColorWith8BitRed(std::int64_t red, std::int64_t green, std::int64_t blue,
                                      CGFloat alpha) {
  // Kept: alpha is a fraction already.
  return colorWithRed(static_cast<CGFloat>(red) / kLargestByte,
                      static_cast<CGFloat>(green) / kLargestByte,
                      static_cast<CGFloat>(blue) / kLargestByte, alpha);
}

UIColor UIColor::__zpColorWithHex(const std::string& text, CGFloat alpha) {
  constexpr std::size_t kShortest = 7;
  if (utf16Length(text) < kShortest) {
    throw std::out_of_range("a colour text of fewer than 7 characters");
  }
  // Kept: the first character is not looked at.
  return __zpColorWith8BitRed(pairAt(text, 1), pairAt(text, 3), pairAt(text, 5), alpha);
}

UIColor UIColor::__zpColorWithHexString(const std::string& text) {
  const std::size_t length = utf16Length(text);
  const std::string full = length == 6 ? text + "ff" : text;
  if (length != 6 && length != 8) {
    return blackColor();
  }
  const std::uint32_t number = NSScanner(full).scanHexInt().value_or(0);
  return colorWithRed(byteOf(number, 24), byteOf(number, 16), byteOf(number, 8), byteOf(number, 0));
}

std::string UIColor::__zpHexString() const {
  const Channels color = channels();
  std::string text;
  for (const CGFloat channel : {color.red, color.green, color.blue, color.alpha}) {
    std::array<char, 16> digits{};
    // Kept: a channel above 1 gives more than two digits.
    std::snprintf(digits.data(), digits.size(), "%02x",
                  truncated<std::uint32_t>(channel * kLargestByte));
    text += digits.data();
  }
  return text;
}

std::string hexadecimalLabelText(const UIColor& color) {
  const UIColor::Channels channels = color.channels();
  const auto bits = [](CGFloat channel) {
    return static_cast<std::uint32_t>(truncated<std::int32_t>(channel * kLargestByte));
  };
  const std::uint32_t number =
      (bits(channels.red) << 16U) | (bits(channels.green) << 8U) | bits(channels.blue);
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "#%06x", number);
  return text.data();
}

}  // namespace zephyl
