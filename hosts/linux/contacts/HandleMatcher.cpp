#include "hosts/linux/contacts/HandleMatcher.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <tuple>
#include <utility>

#include <phonenumbers/phonenumberutil.h>
#include <unicode/unistr.h>

#include "hosts/linux/contacts/AsciiText.h"
#include "hosts/linux/contacts/DialledDigits.h"

namespace zephyl::linux_host {

namespace {

using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;

std::string withoutCase(std::string_view text) {
  text = ascii::trimmed(text);
  const bool isAscii = std::all_of(text.begin(), text.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  if (isAscii) {
    return ascii::lower(text);
  }
  std::string folded;
  icu::UnicodeString::fromUTF8(std::string(text)).foldCase().toUTF8String(folded);
  return folded;
}

// How e-mail addresses, names and short numbers are compared: the first two without regard to case,
// numbers by what is dialled.
std::string exactForm(std::string_view text, const std::string& digits) {
  const bool isWord = digits.empty() || std::any_of(text.begin(), text.end(),
                                                    [](char c) { return ascii::isLetter(c); });
  if (isWord || text.find('@') != std::string_view::npos) {
    return withoutCase(text);
  }
  std::string dialled;
  for (const char c : text) {
    if (c == '*' || c == '#' || c == '+') {
      dialled += c;
    }
  }
  return dialled + digits;
}

// The number asked for, parsed once for all that end like it.
class AskedNumber {
 public:
  AskedNumber(const std::string& text, const std::string& homeRegion)
      : text_(text), digits_(dialledDigits(text)), homeRegion_(homeRegion), number_(parse(text)) {}

  [[nodiscard]] bool matches(const std::string& stored) const {
    // Equal digits also match what has lost the "+" before a foreign country's code.
    if (stored == text_ || dialledDigits(stored) == digits_) {
      return true;
    }
    const std::optional<PhoneNumber> other = number_ ? parse(stored) : std::nullopt;
    if (!other) {
      return false;
    }
    const auto match = PhoneNumberUtil::GetInstance()->IsNumberMatch(*number_, *other);
    return match == PhoneNumberUtil::EXACT_MATCH || match == PhoneNumberUtil::NSN_MATCH ||
           match == PhoneNumberUtil::SHORT_NSN_MATCH;
  }

 private:
  [[nodiscard]] std::optional<PhoneNumber> parse(const std::string& text) const {
    PhoneNumber number;
    const auto error = PhoneNumberUtil::GetInstance()->Parse(text, homeRegion_, &number);
    return error == PhoneNumberUtil::NO_PARSING_ERROR ? std::optional(number) : std::nullopt;
  }

  const std::string& text_;
  std::string digits_;
  const std::string& homeRegion_;
  std::optional<PhoneNumber> number_;
};

}  // namespace

HandleMatcher::HandleMatcher(std::vector<ABPersonRef> people, std::string homeRegion)
    : people_(std::move(people)), homeRegion_(std::move(homeRegion)) {
  for (std::uint32_t person = 0; person < people_.size(); ++person) {
    const std::vector<ABLabeledText>& phones = people_[person]->phones;
    for (std::uint32_t phone = 0; phone < phones.size(); ++phone) {
      addPhone(phones[phone].value, person, phone);
    }
    for (const ABLabeledText& email : people_[person]->emails) {
      exact_.emplace(withoutCase(email.value), person);
    }
  }
  std::sort(phones_.begin(), phones_.end(), [](const Phone& left, const Phone& right) {
    return std::tie(left.ending, left.person, left.phone) <
           std::tie(right.ending, right.person, right.phone);
  });
}

void HandleMatcher::addPhone(const std::string& text, std::uint32_t person, std::uint32_t phone) {
  const std::string digits = dialledDigits(text);
  const auto ending = endingOf(digits);
  if (ending && text.find('@') == std::string::npos) {
    phones_.push_back({*ending, person, phone});
  } else {
    exact_.emplace(exactForm(text, digits), person);
  }
}

ABPersonRef HandleMatcher::personForHandle(const std::string& handle) const {
  const std::string digits = dialledDigits(handle);
  const auto ending = endingOf(digits);
  if (ending && handle.find('@') == std::string::npos) {
    return personWithNumber(handle, *ending);
  }
  const std::string form = exactForm(handle, digits);
  const auto found = form.empty() ? exact_.end() : exact_.find(form);
  return found == exact_.end() ? nullptr : people_[found->second];
}

ABPersonRef HandleMatcher::personWithNumber(const std::string& text, std::uint32_t ending) const {
  const auto first = std::lower_bound(
      phones_.begin(), phones_.end(), ending,
      [](const Phone& phone, std::uint32_t number) { return phone.ending < number; });
  if (first == phones_.end() || first->ending != ending) {
    return nullptr;
  }
  const AskedNumber asked(text, homeRegion_);
  for (auto phone = first; phone != phones_.end() && phone->ending == ending; ++phone) {
    const ABPersonRef& person = people_[phone->person];
    if (asked.matches(person->phones[phone->phone].value)) {
      return person;
    }
  }
  return nullptr;
}

}  // namespace zephyl::linux_host
