#include "apps/zephyls/TextWidth.h"

#include <memory>

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

namespace zephyl::app {

namespace {

bool isWide(UChar32 c) {
  const int width = u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_FULLWIDTH || width == U_EA_WIDE;
}

// Calls `visit(first byte, end byte, columns)` for each character as the reader sees it, until it
// gives false.
template <class Visit>
void forEachCharacter(std::string_view text, const Visit& visit) {
  UErrorCode status = U_ZERO_ERROR;
  // Making one costs as much as thousands of characters; a thread keeps its own.
  thread_local const std::unique_ptr<icu::BreakIterator> characters(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  const icu::UnicodeString wide =
      icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int>(text.size())));
  if (characters == nullptr) {
    return;
  }
  characters->setText(wide);
  std::size_t byte = 0;
  for (int start = characters->first(), end = characters->next(); end != icu::BreakIterator::DONE;
       start = end, end = characters->next()) {
    const UChar32 c = wide.char32At(start);
    constexpr UChar32 kEmojiPresentation = 0xFE0F;
    const bool emoji = wide.indexOf(kEmojiPresentation, start, end - start) >= 0;
    std::size_t bytes = 0;
    for (int at = start; at < end; at = wide.moveIndex32(at, 1)) {
      bytes += static_cast<std::size_t>(U8_LENGTH(wide.char32At(at)));
    }
    if (!visit(byte, byte + bytes, isWide(c) || emoji ? 2U : 1U)) {
      return;
    }
    byte += bytes;
  }
}

bool isPlainAscii(std::string_view text) {
  for (const char c : text) {
    if (c < ' ' || c == '\x7f') {
      return false;
    }
  }
  return true;
}

bool reversesWhatFollows(UChar32 c) {
  return (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

}  // namespace

std::size_t textWidth(std::string_view text) {
  if (isPlainAscii(text)) {
    return text.size();
  }
  std::size_t width = 0;
  forEachCharacter(text, [&](std::size_t, std::size_t, std::size_t columns) {
    width += columns;
    return true;
  });
  return width;
}

std::string cutToWidth(std::string_view text, std::size_t width) {
  if (width == 0 || textWidth(text) <= width) {
    return width == 0 ? std::string() : std::string(text);
  }
  std::size_t used = 0;
  std::size_t end = 0;
  forEachCharacter(text, [&](std::size_t, std::size_t byteEnd, std::size_t columns) {
    if (used + columns > width - 1) {
      return false;
    }
    used += columns;
    end = byteEnd;
    return true;
  });
  return std::string(text.substr(0, end)) + "…";
}

std::string safeForTerminal(std::string_view text) {
  if (isPlainAscii(text)) {
    return std::string(text);
  }
  std::string safe;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  const auto length = static_cast<std::int32_t>(text.size());
  std::int32_t at = 0;
  while (at < length) {
    const std::int32_t start = at;
    UChar32 c = 0;
    U8_NEXT(bytes, at, length, c);
    if (c == '\n' || c == '\t' || c == 0x2028 || c == 0x2029) {
      safe += ' ';
    } else if (c < 0 || u_charType(c) == U_CONTROL_CHAR || reversesWhatFollows(c)) {
      safe += "\uFFFD";
    } else {
      safe += text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(at - start));
    }
  }
  return safe;
}

}  // namespace zephyl::app
