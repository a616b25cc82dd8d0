// The files of contacts that the user's sources stand for.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "hosts/linux/contacts/ContactNotes.h"

namespace zephyl::linux_host {

struct ContactFile {
  enum class Kind { kVCards, kAddressBook };

  std::filesystem::path path;
  Kind kind = Kind::kVCards;
};

// A file that is named itself may have any name; folders are searched through for files with the
// names of contacts, sorted by their paths. What is missing or cannot be looked into is an error.
// Links to folders inside of folders are not followed, and told.
[[nodiscard]] std::vector<ContactFile> contactFiles(const std::vector<std::string>& sources,
                                                    ContactNotes& notes);

}  // namespace zephyl::linux_host
