// Where contacts stand among one another: numbers that take the place of their names and phones.

#pragma once

#include <cstdint>
#include <vector>

#include "platform/Export.h"
#include "platform/addressbook/ABAddressBook.h"

#include "contacts/APContact.h"

namespace zephyl {

struct ContactPlace {
  static constexpr std::uint32_t kNoPhone = 0xFFFFFFFF;

  std::uint32_t section = 0;
  // By last name, then by first name; equal for those whose names sort alike.
  std::uint32_t order = 0;
  // Last names that sort alike and are not the same, as a letter written in two ways: first names
  // then go into no `order`, but are compared among neighbours with the same last name.
  bool isUnlike = false;
  std::uint32_t lastName = 0;
  std::uint32_t firstNameOrder = 0;
  // The same for equal first phones.
  std::uint32_t phone = kNoPhone;
};

struct ContactPlaces {
  std::vector<ContactPlace> places;  // of each contact, in their order
  // All are below these.
  std::uint32_t orders = 0;
  std::uint32_t phones = 0;
  bool hasUnlikeNames = false;
};

// By the installed host's collation. Each name is looked at once, however many bear it.
[[nodiscard]] ZP_EXPORT ContactPlaces contactPlaces(const APContactArray& contacts,
                                                    ABPersonSortOrdering ordering);

}  // namespace zephyl
