#include "hosts/linux/screen/ScreenFonts.h"

#include <QFontInfo>
#include <QStringList>

namespace zephyl::linux_host {

namespace {

// Of a size of 1.
constexpr CGFloat kAscender = 0.952148;
constexpr CGFloat kDescender = 0.241211;
constexpr CGFloat kCapHeight = 0.727273;

// The phone's emoji are about 1.2 times as wide as the font is large; these here as wide as it.
constexpr CGFloat kEmojiSize = 1.2;

// From here on the display cut is used, which is set closer.
constexpr CGFloat kFirstDisplaySize = 20;

const QStringList& otherScripts() {
  static const QStringList families = {
      "Noto Sans Arabic",    "Noto Sans Hebrew", "Noto Sans CJK SC",     "Noto Sans CJK KR",
      "Droid Sans Fallback", "NanumGothic",      "Noto Sans Devanagari", "Noto Sans Thai",
      "Noto Sans",           "DejaVu Sans"};
  return families;
}

// QFont takes whole pixels or fractional points, so pixels are told in points of this machine's
// resolution, which Qt asks the desktop for once.
CGFloat pointsAPixel() {
  static const CGFloat points = [] {
    constexpr int kLarge = 720;
    QFont font;
    font.setPointSize(kLarge);
    const int pixels = QFontInfo(font).pixelSize();
    return pixels > 0 ? static_cast<CGFloat>(kLarge) / pixels : 1;
  }();
  return points;
}

QFont fontOf(const UIFont& font, CGFloat size, const QStringList& families) {
  QFont result;
  result.setFamilies(families);
  result.setPointSizeF(size * pointsAPixel());
  result.setWeight(static_cast<QFont::Weight>(font.weight()));
  result.setHintingPreference(QFont::PreferNoHinting);
  result.setStyleStrategy(QFont::NoSubpixelAntialias);
  return result;
}

QString family(const UIFont& font) {
  return font.pointSize() >= kFirstDisplaySize ? "Inter Display" : "Inter";
}

}  // namespace

QFont screenFont(const UIFont& font) {
  return fontOf(font, font.pointSize(),
                QStringList{family(font), "Inter", "Noto Color Emoji"} + otherScripts());
}

QFont emojiFont(const UIFont& font) {
  return fontOf(font, font.pointSize() * kEmojiSize,
                QStringList{"Noto Color Emoji", family(font), "Inter"} + otherScripts());
}

UIFont::Metrics screenMetrics(const UIFont& font) {
  const CGFloat size = font.pointSize();
  return {kAscender * size, kDescender * size, (kAscender + kDescender) * size, kCapHeight * size};
}

}  // namespace zephyl::linux_host
