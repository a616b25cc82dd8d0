#include "ui/people/ContactNames.h"

namespace zephyl {

const std::string& nameForSection(const APContact& contact, ABPersonSortOrdering ordering) {
  const bool byLast = ordering == ABPersonSortOrdering::kByLastName;
  const std::string& one = byLast ? contact.lastName() : contact.firstName();
  const std::string& other = byLast ? contact.firstName() : contact.lastName();
  return !one.empty() ? one : !other.empty() ? other : contact.compositeName();
}

const std::string& nameToEmphasize(const APContact& contact, ABPersonSortOrdering ordering) {
  return ordering == ABPersonSortOrdering::kByLastName ? contact.lastNameOrCompositeName()
                                                       : contact.firstNameOrCompositeName();
}

}  // namespace zephyl
