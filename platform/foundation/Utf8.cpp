#include "platform/foundation/Utf8.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <cstring>

namespace zephyl {

namespace {

constexpr std::uint64_t kHighBits = 0x8080808080808080U;

unsigned char byteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

bool isContinuation(unsigned char byte) {
  return (byte & 0xC0U) == 0x80U;
}

bool isSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDFFF;
}

Utf8Character withTail(std::string_view text, std::size_t at, std::size_t length,
                       char32_t minimum) {
  if (text.size() - at < length) {
    return {};
  }
  char32_t codePoint = byteAt(text, at) & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned char next = byteAt(text, at + i);
    if (!isContinuation(next)) {
      return {};
    }
    codePoint = (codePoint << 6U) | (next & 0x3FU);
  }
  if (codePoint < minimum || codePoint > 0x10FFFF || isSurrogate(codePoint)) {
    return {};
  }
  return {codePoint, length};
}

}  // namespace

Utf8Character utf8CharacterAt(std::string_view text, std::size_t at) {
  assert(at < text.size());
  const unsigned char first = byteAt(text, at);
  if (first < 0x80) {
    return {first, 1};
  }
  if (first >= 0xF0) {
    return first < 0xF8 ? withTail(text, at, 4, 0x10000) : Utf8Character{};
  }
  if (first >= 0xE0) {
    return withTail(text, at, 3, 0x800);
  }
  return first >= 0xC0 ? withTail(text, at, 2, 0x80) : Utf8Character{};
}

std::size_t findInvalidUtf8(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    std::uint64_t block = 0;
    if (text.size() - at >= sizeof block) {
      std::memcpy(&block, text.data() + at, sizeof block);
      if ((block & kHighBits) == 0) {
        at += sizeof block;
        continue;
      }
    }
    const Utf8Character character = utf8CharacterAt(text, at);
    if (character.length == 0) {
      return at;
    }
    at += character.length;
  }
  return std::string_view::npos;
}

std::string repairedUtf8(std::string_view text) {
  std::string repaired;
  repaired.reserve(text.size());
  while (!text.empty()) {
    const std::size_t valid = findInvalidUtf8(text);
    repaired.append(text.substr(0, valid));
    if (valid == std::string_view::npos) {
      break;
    }
    appendUtf8(repaired, U'\uFFFD');
    text.remove_prefix(valid + 1);
  }
  return repaired;
}

std::size_t utf16Length(std::string_view text) {
  std::size_t units = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = std::max<std::size_t>(utf8CharacterAt(text, at).length, 1);
    units += length == 4 ? 2 : 1;
    at += length;
  }
  return units;
}

void appendUtf8(std::string& text, char32_t codePoint) {
  assert(codePoint <= 0x10FFFF && !isSurrogate(codePoint));
  const auto tail = [&](unsigned shift) {
    return static_cast<char>(0x80U | ((codePoint >> shift) & 0x3FU));
  };
  if (codePoint < 0x80) {
    text += static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    text += {static_cast<char>(0xC0U | (codePoint >> 6U)), tail(0)};
  } else if (codePoint < 0x10000) {
    text += {static_cast<char>(0xE0U | (codePoint >> 12U)), tail(6), tail(0)};
  } else {
    text += {static_cast<char>(0xF0U | (codePoint >> 18U)), tail(12), tail(6), tail(0)};
  }
}

Utf16Conversion utf8FromUtf16(std::string_view bytes, ByteOrder order) {
  const std::size_t high = order == ByteOrder::kBigEndian ? 0 : 1;
  const auto unitAt = [&](std::size_t at) {
    return static_cast<char32_t>((static_cast<unsigned>(byteAt(bytes, at + high)) << 8U) |
                                 byteAt(bytes, at + 1 - high));
  };
  Utf16Conversion result;
  result.text.reserve(bytes.size() / 2);
  std::size_t at = 0;
  while (bytes.size() - at >= 2) {
    char32_t codePoint = unitAt(at);
    std::size_t length = 2;
    if (isSurrogate(codePoint)) {
      const char32_t low = bytes.size() - at >= 4 ? unitAt(at + 2) : 0;
      if (codePoint >= 0xDC00 || low < 0xDC00 || low > 0xDFFF) {
        break;
      }
      codePoint = 0x10000 + ((codePoint - 0xD800) << 10U) + (low - 0xDC00);
      length = 4;
    }
    appendUtf8(result.text, codePoint);
    at += length;
  }
  if (at < bytes.size()) {
    result.invalidAt = at;
  }
  return result;
}

}  // namespace zephyl
