#include "hosts/linux/screen/QtTextSystem.h"

#include <array>
#include <cmath>
#include <cstring>

#include "platform/uikit/UIScreen.h"

#include "hosts/linux/screen/QtTextLayout.h"
#include "hosts/linux/screen/ScreenFonts.h"

namespace zephyl::linux_host {

namespace {

// Of texts longer than this, few are shown, and comparing them costs more.
constexpr std::size_t kLongestKept = 2000;

void add(std::string& key, double number) {
  std::array<char, sizeof number> bytes;
  std::memcpy(bytes.data(), &number, bytes.size());
  key.append(bytes.data(), bytes.size());
}

// Both forms of a colour, since the layout keeps the colour itself.
void add(std::string& key, const UIColor& color) {
  for (const UIUserInterfaceStyle style :
       {UIUserInterfaceStyle::kLight, UIUserInterfaceStyle::kDark}) {
    const UIColor::Channels channels = color.resolvedColor(style).channels();
    add(key, channels.red);
    add(key, channels.green);
    add(key, channels.blue);
    add(key, channels.alpha);
  }
}

// An area that is no area is a large or an empty one.
TextStyle saneStyle(TextStyle style) {
  constexpr CGFloat kUnlimited = 1e6;
  const auto side = [](CGFloat length) {
    return std::isnan(length) || length > kUnlimited ? kUnlimited : std::max(length, 0.0);
  };
  style.area = {side(style.area.width), side(style.area.height)};
  return style;
}

}  // namespace

UIFont::Metrics QtTextSystem::metrics(const UIFont& font) {
  return screenMetrics(font);
}

QtTextSystem::Key QtTextSystem::keyOf(const NSAttributedString& text, const TextStyle& style,
                                      bool rightToLeft) {
  Key key = text.string();
  key.push_back('\0');
  for (const NSAttributedString::Run& run : text.runs()) {
    add(key, static_cast<double>(run.start));
    add(key, run.attributes.font.pointSize());
    add(key, static_cast<double>(run.attributes.font.weight()));
    add(key, run.attributes.color);
  }
  add(key, style.area.width);
  add(key, style.area.height);
  add(key, style.maximumLines);
  add(key, static_cast<double>(style.lineBreakMode));
  add(key, static_cast<double>(style.alignment));
  key.push_back(rightToLeft ? 'r' : 'l');
  return key;
}

TextLayoutRef QtTextSystem::layout(const NSAttributedString& text, const TextStyle& style) {
  // Beside the glyphs, which are some times as large as the text.
  constexpr std::size_t kBytesALayout = 2000;
  constexpr std::size_t kBytesACharacter = 60;
  const TextStyle sane = saneStyle(style);
  const bool rightToLeft =
      screen_.userInterfaceLayoutDirection() == UIUserInterfaceLayoutDirection::kRightToLeft;
  const std::size_t length = text.string().size();
  Key key;
  if (length <= kLongestKept) {
    key = keyOf(text, sane, rightToLeft);
    const std::lock_guard lock(mutex_);
    if (const TextLayoutRef* const known = known_.find(key)) {
      return *known;
    }
    ++misses_;
  }
  auto layout = std::make_shared<const QtTextLayout>(setLines(text, sane, rightToLeft), sane);
  if (length <= kLongestKept) {
    const std::lock_guard lock(mutex_);
    known_.put(key, layout, kBytesALayout + length * kBytesACharacter);
  }
  return layout;
}

std::size_t QtTextSystem::misses() const {
  const std::lock_guard lock(mutex_);
  return misses_;
}

}  // namespace zephyl::linux_host
