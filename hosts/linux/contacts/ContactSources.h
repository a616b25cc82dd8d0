// Everybody in the contacts that the user named: vCard files, address books of phones, and folders
// of both.

#pragma once

#include <string>
#include <vector>

#include "platform/addressbook/ABPerson.h"

#include "hosts/linux/contacts/RecordIDs.h"

namespace zephyl::linux_host {

struct ContactsReading {
  // In the system's order: those of the first address book by their rows, then the others in the
  // order of the sources. Each has a record id of its own.
  std::vector<ABPersonRef> people;
  // "FILE:LINE: REASON": what was mended, or left out.
  std::vector<std::string> warnings;
  // "FILE: REASON": what could not be read.
  std::vector<std::string> errors;
};

// Files are told apart by what they hold. Folders are searched through for ".vcf", ".vcard" and
// ".sqlitedb" files, in the order of their paths. The first address book's people keep their row
// ids; everybody else's record ids come from `ids`, which is saved. Any thread, as long as it alone
// uses `ids`.
[[nodiscard]] ContactsReading readContacts(const std::vector<std::string>& sources, RecordIDs& ids);

// Of one source behind the others alone, whose people are known and keep the record ids that they
// have.
[[nodiscard]] ContactsReading readContactsBehind(const std::vector<ABPersonRef>& others,
                                                 const std::string& source, RecordIDs& ids);

}  // namespace zephyl::linux_host
