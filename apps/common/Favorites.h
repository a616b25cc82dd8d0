// The favourites that the user names on the command line.

#pragma once

#include <string>
#include <vector>

#include "platform/addressbook/ABFavorites.h"
#include "platform/addressbook/ABPerson.h"

#include "hosts/linux/contacts/HandleMatcher.h"

namespace zephyl::app {

// Each name is a record id, a full name, a phone number or an e-mail address. Throws CommandError
// when it fits nobody, or a full name several people.
[[nodiscard]] std::vector<ABFavoritesEntry> favoritesNamed(
    const std::vector<std::string>& names, const std::vector<ABPersonRef>& people,
    const linux_host::HandleMatcher& matcher);

}  // namespace zephyl::app
