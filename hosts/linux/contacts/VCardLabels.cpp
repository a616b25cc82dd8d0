#include "hosts/linux/contacts/VCardLabels.h"

#include <array>
#include <string_view>
#include <utility>

#include "hosts/linux/contacts/AsciiText.h"

namespace zephyl::linux_host::vcard {

namespace {

constexpr std::string_view kHome = "_$!<Home>!$_";
constexpr std::string_view kWork = "_$!<Work>!$_";
constexpr std::string_view kOther = "_$!<Other>!$_";

// A type of the writer's own: "X-Boat" is the label "Boat".
std::string ownLabel(const Property& property) {
  for (const std::string_view type : property.types()) {
    if (type.size() > 2 && ascii::startsWith(type, "X-")) {
      return std::string(type.substr(2));
    }
  }
  return {};
}

std::string placeLabel(const Property& property) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 3> kPlaces = {
      {{"WORK", kWork}, {"HOME", kHome}, {"OTHER", kOther}}};
  for (const auto& [type, label] : kPlaces) {
    if (property.hasType(type)) {
      return std::string(label);
    }
  }
  return ownLabel(property);
}

}  // namespace

std::string phoneLabel(const Property& property) {
  if (property.hasType("IPHONE")) {
    return "iPhone";
  }
  if (property.hasType("FAX")) {
    return property.hasType("HOME")   ? "_$!<HomeFAX>!$_"
           : property.hasType("WORK") ? "_$!<WorkFAX>!$_"
                                      : "_$!<OtherFAX>!$_";
  }
  if (property.hasType("PAGER")) {
    return "_$!<Pager>!$_";
  }
  if (property.hasType("CELL") || property.hasType("MOBILE")) {
    return "_$!<Mobile>!$_";
  }
  if (property.hasType("MAIN")) {
    return "_$!<Main>!$_";
  }
  return placeLabel(property);
}

std::string emailLabel(const Property& property) {
  return placeLabel(property);
}

}  // namespace zephyl::linux_host::vcard
