#include "hosts/linux/contacts/PhoneFormatter.h"

#include <algorithm>
#include <cstddef>
#include <mutex>
#include <string_view>

#include <phonenumbers/phonenumberutil.h>

#include "hosts/linux/contacts/AsciiText.h"

namespace zephyl::linux_host {

namespace {

using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;

constexpr std::size_t kMostKnown = 100'000;
// No number is longer, with all that is written between its digits.
constexpr std::size_t kMostBytes = 100;
constexpr std::ptrdiff_t kFewestDigits = 7;

// Whether the text is nothing but digits and what people write between them. Other scripts' digits
// and signs pass; the parser knows them.
bool looksDialled(std::string_view text) {
  constexpr std::string_view kForeign = "@,;*#:_&=<>\"'?!";
  return text.size() <= kMostBytes && std::none_of(text.begin(), text.end(), [&](char c) {
           return ascii::isLetter(c) || kForeign.find(c) != std::string_view::npos;
         });
}

std::string formatted(const PhoneNumber& number, PhoneNumberUtil::PhoneNumberFormat format) {
  std::string result;
  PhoneNumberUtil::GetInstance()->Format(number, format, &result);
  return result;
}

std::string shown(const std::string& text, const std::string& homeRegion) {
  if (!looksDialled(text)) {
    return text;
  }
  const PhoneNumberUtil& numbers = *PhoneNumberUtil::GetInstance();
  std::string digits = text;
  numbers.NormalizeDigitsOnly(&digits);
  PhoneNumber number;
  if (std::ssize(digits) < kFewestDigits ||
      numbers.ParseAndKeepRawInput(text, homeRegion, &number) !=
          PhoneNumberUtil::NO_PARSING_ERROR) {
    return text;
  }
  const bool isHome = number.country_code() == numbers.GetCountryCodeForRegion(homeRegion);
  const bool hasPlus = number.country_code_source() == PhoneNumber::FROM_NUMBER_WITH_PLUS_SIGN;
  if (!isHome) {
    return hasPlus ? formatted(number, PhoneNumberUtil::INTERNATIONAL) : text;
  }
  std::string national = formatted(number, PhoneNumberUtil::NATIONAL);
  if (!hasPlus) {
    return national;
  }
  // A number that begins with "0" at home does not behind the country code.
  std::string significant;
  numbers.GetNationalSignificantNumber(number, &significant);
  digits = national;
  numbers.NormalizeDigitsOnly(&digits);
  return digits == significant ? "+" + std::to_string(number.country_code()) + " " + national
                               : formatted(number, PhoneNumberUtil::INTERNATIONAL);
}

}  // namespace

std::optional<std::string> PhoneFormatter::abCopyPhoneNumberFromString(const std::string& text) {
  {
    const std::shared_lock lock(mutex_);
    if (const auto known = known_.find(text); known != known_.end()) {
      return known->second;
    }
  }
  std::string result = shown(text, homeRegion_);
  const std::lock_guard lock(mutex_);
  if (known_.size() >= kMostKnown) {
    known_.clear();
  }
  known_.emplace(text, result);
  return result;
}

}  // namespace zephyl::linux_host
