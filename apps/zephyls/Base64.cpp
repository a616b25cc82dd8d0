#include "apps/zephyls/Base64.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace zephyl::app {

namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string base64(const Data& bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    const std::size_t present = std::min<std::size_t>(3, bytes.size() - at);
    unsigned triple = 0;
    for (std::size_t index = 0; index < 3; ++index) {
      triple = (triple << 8U) | (index < present ? bytes[at + index] : 0U);
    }
    for (std::size_t digit = 0; digit < 4; ++digit) {
      text += digit <= present ? kDigits[(triple >> (18U - 6U * digit)) & 63U] : '=';
    }
  }
  return text;
}

std::optional<Data> bytesOfBase64(std::string_view text) {
  Data bytes;
  bytes.reserve(text.size() / 4 * 3);
  for (std::size_t at = 0; at < text.size(); at += 4) {
    const std::string_view four = text.substr(at, 4);
    const bool isLast = at + 4 >= text.size();
    const std::size_t digits = isLast ? four.find_last_not_of('=') + 1 : four.size();
    std::uint32_t triple = 0;
    for (std::size_t index = 0; index < digits; ++index) {
      const std::size_t digit = kDigits.find(four[index]);
      if (digit == std::string_view::npos) {
        return std::nullopt;
      }
      triple |= static_cast<std::uint32_t>(digit) << (18U - 6U * index);
    }
    if (four.size() != 4 || digits < 2) {
      return std::nullopt;
    }
    for (std::size_t index = 0; index + 1 < digits; ++index) {
      bytes.push_back(static_cast<std::uint8_t>(triple >> (16U - 8U * index)));
    }
  }
  // Bits that stand for nothing must not be set.
  return base64(bytes) == text ? std::optional(std::move(bytes)) : std::nullopt;
}

}  // namespace zephyl::app
