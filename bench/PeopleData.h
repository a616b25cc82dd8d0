// Invented people, the same in every run.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "contacts/APContact.h"

namespace zephyl::bench {

// Names of thirteen scripts, most of them mixed of syllables, so that many share a last name; one
// in fifty with the first phone of another; three in four with e-mail and postal addresses.
[[nodiscard]] APContactArray inventedContacts(std::size_t count);

// What users type.
[[nodiscard]] std::vector<std::string> inventedSearches();

}  // namespace zephyl::bench
