// By which of their names people are listed. Pure functions, any thread.

#pragma once

#include <string>

#include "platform/Export.h"
#include "platform/addressbook/ABAddressBook.h"

#include "contacts/APContact.h"

namespace zephyl {

// The one of the order, else the other one, else that of the whole person.
[[nodiscard]] ZP_EXPORT const std::string& nameForSection(const APContact& contact,
                                                          ABPersonSortOrdering ordering);

// The one of the order, else that of the whole person.
[[nodiscard]] ZP_EXPORT const std::string& nameToEmphasize(const APContact& contact,
                                                           ABPersonSortOrdering ordering);

}  // namespace zephyl
