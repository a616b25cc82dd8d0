#include "hosts/linux/contacts/CompositeName.h"

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

}  // namespace

std::optional<std::string> compositeName(const ABPerson& person, std::string_view formattedName,
                                         std::string_view fallback) {
  if (person.isCompany && !person.organization.empty()) {
    return person.organization;
  }
  const std::string parts = nameParts(person);
  for (const std::string_view name :
       {std::string_view(parts), formattedName, std::string_view(person.organization), fallback,
        std::string_view(person.nickname)}) {
    if (!name.empty()) {
      return std::string(name);
    }
  }
  return std::nullopt;
}

}  // namespace zephyl::linux_host
