#include "hosts/linux/contacts/HomeRegion.h"

#include <phonenumbers/phonenumberutil.h>
#include <unicode/locid.h>

namespace zephyl::linux_host {

std::string homeRegionFor(std::string_view locale) {
  const icu::Locale parsed(std::string(locale).c_str());
  std::string region = parsed.getCountry();
  const auto& numbers = *i18n::phonenumbers::PhoneNumberUtil::GetInstance();
  return numbers.GetCountryCodeForRegion(region) == 0 ? "US" : region;
}

}  // namespace zephyl::linux_host
