#include "apps/common/Favorites.h"

#include "apps/common/CommandError.h"

namespace zephyl::app {

namespace {

ABPersonRef personNamed(const std::string& name, const std::vector<ABPersonRef>& people,
                        const linux_host::HandleMatcher& matcher) {
  ABPersonRef found;
  for (const ABPersonRef& person : people) {
    if (std::to_string(person->recordID) == name) {
      return person;
    }
    if (person->compositeName == name) {
      if (found != nullptr) {
        throw CommandError("several people are called \"" + name +
                           "\"; name the favourite by record id: `zephyls contacts` shows them");
      }
      found = person;
    }
  }
  return found == nullptr ? matcher.personForHandle(name) : found;
}

}  // namespace

std::vector<ABFavoritesEntry> favoritesNamed(const std::vector<std::string>& names,
                                             const std::vector<ABPersonRef>& people,
                                             const linux_host::HandleMatcher& matcher) {
  std::vector<ABFavoritesEntry> entries;
  for (const std::string& name : names) {
    const ABPersonRef person = personNamed(name, people, matcher);
    if (person == nullptr) {
      throw CommandError("the favourite \"" + name +
                         "\" is nobody of the address book; `zephyls contacts` shows everybody");
    }
    entries.emplace_back();
    entries.back().abUid = person->recordID;
  }
  return entries;
}

}  // namespace zephyl::app
