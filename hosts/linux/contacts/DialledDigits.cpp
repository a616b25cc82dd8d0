#include "hosts/linux/contacts/DialledDigits.h"

#include <algorithm>
#include <cstddef>

#include <unicode/uchar.h>

#include "platform/foundation/Utf8.h"

#include "hosts/linux/contacts/AsciiText.h"

namespace zephyl::linux_host {

namespace {

constexpr std::size_t kEnding = 7;
// Fewer letters than these are a remark and no part of the number.
constexpr std::size_t kFewestLetters = 3;

char digitOfLetter(char letter) {
  //                                    ABCDEFGHIJKLMNOPQRSTUVWXYZ
  constexpr std::string_view kDigits = "22233344455566677778889999";
  return kDigits[static_cast<std::size_t>(ascii::upper(letter) - 'A')];
}

// Whether what begins here is dialled after the number.
bool endsNumber(std::string_view rest, std::size_t digits) {
  if (rest.front() == ',' || rest.front() == ';') {
    return digits > 0;
  }
  return digits >= kEnding &&
         (rest.front() == '#' || ascii::startsWith(rest, "x") || ascii::startsWith(rest, "ext"));
}

}  // namespace

std::string dialledDigits(std::string_view text) {
  std::string digits;
  std::string withLetters;
  std::size_t letters = 0;
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Character character = utf8CharacterAt(text, at);
    const auto digit = u_charDigitValue(static_cast<UChar32>(character.codePoint));
    if (digit >= 0 && digit <= 9) {
      digits += static_cast<char>('0' + digit);
      withLetters += digits.back();
    } else if (endsNumber(text.substr(at), digits.size())) {
      break;
    } else if (ascii::isLetter(text[at]) && !digits.empty()) {
      withLetters += digitOfLetter(text[at]);
      ++letters;
    }
    at += std::max<std::size_t>(character.length, 1);
  }
  return letters >= kFewestLetters ? withLetters : digits;
}

std::optional<std::uint32_t> endingOf(std::string_view digits) {
  if (digits.size() < kEnding) {
    return std::nullopt;
  }
  std::uint32_t ending = 0;
  for (const char digit : digits.substr(digits.size() - kEnding)) {
    ending = ending * 10 + static_cast<std::uint32_t>(digit - '0');
  }
  return ending;
}

}  // namespace zephyl::linux_host
