#include "hosts/linux/messages/Utf8Text.h"

#include <cstddef>

namespace zephyl::linux_host {
namespace {

struct Sequence {
  std::size_t length = 1;
  bool wellFormed = false;
};

unsigned byteAt(std::string_view bytes, std::size_t index) {
  return static_cast<unsigned char>(bytes[index]);
}

// The range that the second byte must lie in excludes overlong forms, surrogates and values
// beyond U+10FFFF.
Sequence sequenceAt(std::string_view bytes, std::size_t at) {
  const unsigned lead = byteAt(bytes, at);
  if (lead < 0x80) {
    return {1, true};
  }
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4) {
    return {1, false};
  }
  const unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  for (std::size_t index = 1; index < length; ++index) {
    if (at + index >= bytes.size()) {
      return {index, false};
    }
    const unsigned byte = byteAt(bytes, at + index);
    if (byte < (index == 1 ? low : 0x80U) || byte > (index == 1 ? high : 0xBFU)) {
      return {index, false};
    }
  }
  return {length, true};
}

}  // namespace

bool isWellFormedUtf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    const Sequence sequence = sequenceAt(bytes, at);
    if (!sequence.wellFormed) {
      return false;
    }
    at += sequence.length;
  }
  return true;
}

std::string wellFormedUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    const Sequence sequence = sequenceAt(bytes, at);
    if (sequence.wellFormed) {
      text.append(bytes, at, sequence.length);
    } else {
      text.append("\xEF\xBF\xBD");
    }
    at += sequence.length;
  }
  return text;
}

}  // namespace zephyl::linux_host
