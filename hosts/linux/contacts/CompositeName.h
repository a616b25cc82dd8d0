// The one rule by which every source of contacts names a person.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/addressbook/ABPerson.h"

namespace zephyl::linux_host {

// A company's is its organization. A person's is "Prefix First Middle Last Suffix" of the parts
// that are there; without any, the first of these that is not empty: `formattedName`, as the person
// is called in full, unless that is an e-mail address or a number; the organization; `fallback`,
// which a source may keep for that; the nickname. nullopt when all are empty.
[[nodiscard]] std::optional<std::string> compositeName(const ABPerson& person,
                                                       std::string_view formattedName,
                                                       std::string_view fallback);

}  // namespace zephyl::linux_host
