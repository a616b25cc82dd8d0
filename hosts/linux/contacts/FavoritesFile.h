// The phone's file of favourite contacts, com.apple.mobilephone.speeddial.plist: an array of one
// dictionary a favourite. Pure functions, any thread.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/addressbook/ABFavorites.h"
#include "platform/foundation/Value.h"

namespace zephyl::linux_host {

struct FavoritesReading {
  // In the order of the file. What a favourite does not say, or says in a wrong type, is absent.
  std::vector<ABFavoritesEntry> entries;
  // One for each favourite, and each value of one, that is left out.
  std::vector<std::string> warnings;
  // Why nothing could be read at all.
  std::vector<std::string> errors;
};

// `file` names the source in what is told.
[[nodiscard]] FavoritesReading readFavorites(const Value& root, const std::string& file);
[[nodiscard]] FavoritesReading readFavoritesFile(std::string_view bytes, const std::string& file);

}  // namespace zephyl::linux_host
