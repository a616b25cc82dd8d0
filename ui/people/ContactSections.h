// Contacts by the sections of the current collation, each once a phone number, in their order.
// Main thread.

#pragma once

#include <vector>

#include "platform/Export.h"
#include "platform/addressbook/ABAddressBook.h"

#include "contacts/APContact.h"

namespace zephyl {

using ContactSections = std::vector<APContactArray>;

// One empty list for each section.
[[nodiscard]] ZP_EXPORT ContactSections emptyContactSections();

// The rule, which ContactPartition follows in less time. Of those with the same first phone number
// the first one is kept. A section is in the order of last names; neighbours with the same one are
// in the order of first names. Names that are missing are that of the whole person.
[[nodiscard]] ZP_EXPORT ContactSections contactSectionsByTheRule(const APContactArray& contacts,
                                                                 ABPersonSortOrdering ordering);

}  // namespace zephyl
