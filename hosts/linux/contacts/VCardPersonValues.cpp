// The multi-value fields of a vCard: phones, e-mail addresses, addresses, profiles and the picture.

#include <algorithm>
#include <utility>

#include "hosts/linux/contacts/AsciiText.h"
#include "hosts/linux/contacts/VCardEncoding.h"
#include "hosts/linux/contacts/VCardLabels.h"
#include "hosts/linux/contacts/VCardPerson.h"
#include "hosts/linux/contacts/VCardPhoto.h"

namespace zephyl::linux_host::vcard {

namespace {

// "tel:+1-418-656-9254;ext=102;phone-context=example" without the scheme and what is no number.
std::string phoneOfAddress(std::string_view address) {
  std::string phone;
  address.remove_prefix(std::string_view("tel:").size());
  std::size_t start = 0;
  while (start <= address.size()) {
    const std::size_t end = std::min(address.find(';', start), address.size());
    const std::string_view part = address.substr(start, end - start);
    if (start == 0) {
      phone = fromPercentEncoding(part);
    } else if (ascii::startsWith(part, "ext=")) {
      phone += ';' + std::string(part);
    }
    start = end + 1;
  }
  return phone;
}

}  // namespace

void PersonBuilder::readPhone(const Property& property) {
  std::string value = text(property);
  if (ascii::startsWith(value, "tel:")) {
    value = phoneOfAddress(value);
  }
  if (value.empty()) {
    return;
  }
  const std::string& own = groupText(property).label;
  phones_.push_back({property.preference(), {own.empty() ? phoneLabel(property) : own, value}});
}

void PersonBuilder::readEmail(const Property& property) {
  std::string value = text(property);
  if (ascii::startsWith(value, "mailto:")) {
    value = fromPercentEncoding(std::string_view(value).substr(7));
  }
  if (value.empty()) {
    return;
  }
  const std::string& own = groupText(property).label;
  emails_.push_back({property.preference(), {own.empty() ? emailLabel(property) : own, value}});
}

// Post-office box and extended address are lines of the street, in the order of the card.
void PersonBuilder::readAddress(const Property& property) {
  std::vector<std::string> parts = components(property, /*joinLists=*/false);
  parts.resize(std::max<std::size_t>(parts.size(), 7));
  ABAddress address;
  for (std::size_t i = 0; i < 3; ++i) {
    if (!parts[i].empty()) {
      address.street += address.street.empty() ? parts[i] : '\n' + parts[i];
    }
  }
  address.city = std::move(parts[3]);
  address.state = std::move(parts[4]);
  address.zip = std::move(parts[5]);
  address.country = std::move(parts[6]);
  if (address == ABAddress()) {
    return;
  }
  const std::string& code = groupText(property).countryCode;
  address.countryCode = code.empty() ? std::string(property.parameter("CC")) : code;
  person_.addresses.push_back(std::move(address));
}

void PersonBuilder::readSocialProfile(const Property& property) {
  constexpr std::string_view kNameScheme = "x-apple:";
  const auto parameter = [&](std::string_view name) {
    return toUtf8(parameterText(property.parameter(name), version_), {}).text;
  };
  ABSocialProfile profile;
  for (const std::string_view type : property.types()) {
    if (profile.service.empty() && !ascii::equal(type, "pref")) {
      profile.service = type;
    }
  }
  if (const std::string service = parameter("SERVICE-TYPE"); !service.empty()) {
    profile.service = service;
  }
  profile.username = parameter(property.parameter("X-USER").empty() ? "USERNAME" : "X-USER");
  profile.userIdentifier = parameter("X-USERID");
  std::string value = text(property);
  const bool isName = ascii::startsWith(value, kNameScheme);
  if (isName) {
    value.erase(0, kNameScheme.size());
  }
  if (isName || ascii::equal(property.parameter("VALUE"), "text")) {
    profile.username = profile.username.empty() ? value : profile.username;
  } else {
    profile.url = value;
  }
  if (!profile.username.empty() || !profile.url.empty() || !profile.userIdentifier.empty()) {
    person_.socialProfiles.push_back(std::move(profile));
  }
}

void PersonBuilder::readPhoto(const Property& property) {
  const bool isHere = property.binary == Binary::kPadded || property.binary == Binary::kUnpadded ||
                      photoBytes(property).has_value();
  if (isHere && std::exchange(hasPhoto_, true)) {
    warnOfSecond(property);
  } else if (isHere) {
    person_.fullSizeImage = photoLoader(file_, state_, property.place);
    person_.thumbnailImage = person_.fullSizeImage;
  } else if (property.binary == Binary::kBroken) {
    warn(property, "is not proper base64 and is left out");
  } else if (!ascii::trimmed(property.value).empty()) {
    warn(property, "is kept elsewhere, is not fetched and is left out");
  }
}

}  // namespace zephyl::linux_host::vcard
