// The address book, read-only.

#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/addressbook/ABPerson.h"

namespace zephyl {

class ABAddressBook {
 public:
  virtual ~ABAddressBook() = default;

  // Everybody, in the system's order. Any thread.
  [[nodiscard]] virtual std::vector<ABPersonRef> copyArrayOfAllPeople() = 0;

  // Null when nobody has that record id.
  [[nodiscard]] virtual ABPersonRef personWithRecordID(std::int32_t recordID) = 0;
};

using ABAddressBookRef = std::shared_ptr<ABAddressBook>;

}  // namespace zephyl
