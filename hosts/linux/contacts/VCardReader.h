// Reads vCard files of versions 2.1, 3.0 and 4.0, several cards a file, as phones and programs
// write them rather than as they should: whatever can be understood is kept, and whatever is mended
// or left out is told with its line.
//
// Any thread. Time grows with the file, memory with the people in it: their pictures stay in the
// file until they are wanted.

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "platform/addressbook/ABPerson.h"

#include "hosts/linux/contacts/ContactNotes.h"
#include "hosts/linux/contacts/VCardLines.h"

namespace zephyl::linux_host {

// A person with record id 0, and a number that follows from the text of the card alone.
struct VCardEntry {
  ABPerson person;
  std::uint64_t textHash = 0;
};

struct VCardReading {
  // In the order of the file.
  std::vector<VCardEntry> entries;
  ContactNotes notes;
};

// A file that cannot be read, or holds text and no card, is an error; an empty one a warning. Of a
// card that is cut short everything that is whole is kept, with a warning. No more than
// `mostBytesOfLine` are kept of a line.
[[nodiscard]] VCardReading readVCards(const std::filesystem::path& file,
                                      std::size_t mostBytesOfLine = vcard::Lines::kMostBytes);

}  // namespace zephyl::linux_host
