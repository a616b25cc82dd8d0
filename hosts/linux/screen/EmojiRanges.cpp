#include "hosts/linux/screen/EmojiRanges.h"

#include <QChar>

#include <unicode/uchar.h>

namespace zephyl::linux_host {

namespace {

constexpr char32_t kJoiner = 0x200D;
constexpr char32_t kAsText = 0xFE0E;
constexpr char32_t kAsPicture = 0xFE0F;
constexpr char32_t kKeycap = 0x20E3;
constexpr char32_t kFirstTag = 0xE0020;
constexpr char32_t kLastTag = 0xE007F;
// No sign below this one is a picture by itself.
constexpr char32_t kFirstPicture = 0x231A;

struct Sign {
  char32_t code = 0;
  int units = 0;
};

// Nothing beyond the end.
Sign signAt(QStringView text, int at) {
  if (at >= text.size()) {
    return {};
  }
  const QChar first = text[at];
  if (first.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate()) {
    return {QChar::surrogateToUcs4(first, text[at + 1]), 2};
  }
  return {first.unicode(), 1};
}

bool is(char32_t code, UProperty property) {
  return u_hasBinaryProperty(static_cast<UChar32>(code), property) != 0;
}

bool continues(char32_t code) {
  return code == kAsPicture || code == kKeycap || (code >= kFirstTag && code <= kLastTag) ||
         is(code, UCHAR_EMOJI_MODIFIER);
}

// Whether a picture begins here, `next` being the sign after it.
bool begins(char32_t code, char32_t next) {
  if (next == kAsText) {
    return false;
  }
  if (code >= kFirstPicture && is(code, UCHAR_EMOJI_PRESENTATION)) {
    return true;
  }
  return next == kAsPicture && is(code, UCHAR_EMOJI);
}

// The end of the picture that begins at `at`, whose first sign has so many units.
int endOfPicture(QStringView text, int at, int units) {
  int end = at + units;
  while (true) {
    const Sign next = signAt(text, end);
    if (continues(next.code)) {
      end += next.units;
    } else if (next.code == kJoiner) {
      const Sign joined = signAt(text, end + next.units);
      if (!is(joined.code, UCHAR_EMOJI)) {
        return end;
      }
      end += next.units + joined.units;
    } else {
      return end;
    }
  }
}

}  // namespace

std::vector<TextRange> emojiPictures(QStringView text) {
  std::vector<TextRange> pictures;
  int at = 0;
  while (at < text.size()) {
    const Sign sign = signAt(text, at);
    if (!begins(sign.code, signAt(text, at + sign.units).code)) {
      at += sign.units;
      continue;
    }
    const int end = endOfPicture(text, at, sign.units);
    pictures.push_back({at, end - at});
    at = end;
  }
  return pictures;
}

std::vector<TextRange> emojiRanges(QStringView text) {
  std::vector<TextRange> ranges;
  for (const TextRange& picture : emojiPictures(text)) {
    if (!ranges.empty() && ranges.back().start + ranges.back().length == picture.start) {
      ranges.back().length += picture.length;
    } else {
      ranges.push_back(picture);
    }
  }
  return ranges;
}

}  // namespace zephyl::linux_host
