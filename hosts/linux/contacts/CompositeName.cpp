#include "hosts/linux/contacts/CompositeName.h"

#include <algorithm>

#include "hosts/linux/contacts/AsciiText.h"

namespace zephyl::linux_host {

namespace {

std::string nameParts(const ABPerson& person) {
  std::string name;
  for (const std::string* part :
       {&person.prefix, &person.firstName, &person.middleName, &person.lastName, &person.suffix}) {
    if (!part->empty()) {
      name += name.empty() ? *part : ' ' + *part;
    }
  }
  return name;
}

bool isEmailAddress(std::string_view text) {
  const std::size_t at = text.find('@');
  return at != std::string_view::npos && at > 0 && at + 1 < text.size() &&
         text.find('@', at + 1) == std::string_view::npos &&
         text.find_first_of(" \t") == std::string_view::npos;
}

bool isNumber(std::string_view text) {
  return std::ranges::any_of(text, ascii::isDigit) &&
         text.find_first_not_of("0123456789+-.,/()*# \t") == std::string_view::npos;
}

// Programs that want a formatted name of everybody put an address where there is none.
std::string_view nameOrNothing(std::string_view formattedName) {
  const std::string_view text = ascii::trimmed(formattedName);
  return isEmailAddress(text) || isNumber(text) ? std::string_view() : formattedName;
}

}  // namespace

std::optional<std::string> compositeName(const ABPerson& person, std::string_view formattedName,
                                         std::string_view fallback) {
  if (person.isCompany && !person.organization.empty()) {
    return person.organization;
  }
  const std::string parts = nameParts(person);
  for (const std::string_view name :
       {std::string_view(parts), nameOrNothing(formattedName),
        std::string_view(person.organization), fallback, std::string_view(person.nickname)}) {
    if (!name.empty()) {
      return std::string(name);
    }
  }
  return std::nullopt;
}

}  // namespace zephyl::linux_host
