#include "hosts/linux/contacts/InternationalNumber.h"

#include <algorithm>
#include <cstddef>

#include <phonenumbers/phonenumberutil.h>

#include "hosts/linux/contacts/AsciiText.h"

namespace zephyl::linux_host {

std::optional<std::string> internationalNumber(const std::string& text,
                                               const std::string& homeRegion) {
  using i18n::phonenumbers::PhoneNumber;
  using i18n::phonenumbers::PhoneNumberUtil;
  // No number is longer, with all that is written between its digits.
  constexpr std::size_t kMostBytes = 100;
  const bool hasLetters =
      std::any_of(text.begin(), text.end(), [](char c) { return ascii::isLetter(c) || c == '@'; });
  const PhoneNumberUtil& numbers = *PhoneNumberUtil::GetInstance();
  PhoneNumber number;
  if (hasLetters || text.size() > kMostBytes ||
      numbers.Parse(text, homeRegion, &number) != PhoneNumberUtil::NO_PARSING_ERROR ||
      number.has_extension() ||
      numbers.IsPossibleNumberWithReason(number) != PhoneNumberUtil::IS_POSSIBLE) {
    return std::nullopt;
  }
  std::string result;
  numbers.Format(number, PhoneNumberUtil::E164, &result);
  return result;
}

}  // namespace zephyl::linux_host
