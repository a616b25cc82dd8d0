// The favourites of the phone's address book, under the class names of the releases.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zephyl {

// One favourite; what a release's class does not answer is absent.
struct ABFavoritesEntry {
  std::optional<std::int64_t> abUid;
  std::optional<std::int64_t> privateAbUid;
  std::optional<std::string> abDatabaseUUID;
  // The identifier of `contactProperty`'s contact.
  std::optional<std::string> contactIdentifier;
};

class ABFavorites {
 public:
  virtual ~ABFavorites() = default;

  // The entries of the shared instance of the class of that name, in the user's order; nothing when
  // the device has no such class. Any thread.
  [[nodiscard]] virtual std::optional<std::vector<ABFavoritesEntry>> entries(
      const std::string& className) = 0;
};

}  // namespace zephyl
