// Reads a phone's address book, AddressBook.sqlitedb, whatever release wrote it.
//
// Any thread. The file is never written to; pictures stay in AddressBookImages.sqlitedb beside it
// until they are wanted.

#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "platform/addressbook/ABPerson.h"

#include "hosts/linux/contacts/ContactNotes.h"

namespace zephyl::linux_host {

// A person with record id 0, and the row that the phone takes the record id from.
struct AddressBookEntry {
  ABPerson person;
  std::int64_t rowID = 0;
};

struct AddressBookReading {
  // By row id. After an error those that could be read before it.
  std::vector<AddressBookEntry> entries;
  ContactNotes notes;
};

[[nodiscard]] AddressBookReading readAddressBook(const std::filesystem::path& file);

}  // namespace zephyl::linux_host
