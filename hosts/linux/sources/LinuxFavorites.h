// The phone's favourites, read anew each time they are asked for, under the class name of every
// release.

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/addressbook/ABFavorites.h"

namespace zephyl::linux_host {

class LinuxFavorites : public ABFavorites {
 public:
  // `read` is called on any thread.
  using Read = std::function<std::vector<ABFavoritesEntry>()>;

  explicit LinuxFavorites(Read read) : read_(std::move(read)) {}

  std::optional<std::vector<ABFavoritesEntry>> entries(const std::string& className) override {
    const bool exists = className == "CNFavorites" || className == "ABFavoritesListManager";
    return exists ? std::optional(read_()) : std::nullopt;
  }

 private:
  const Read read_;
};

}  // namespace zephyl::linux_host
