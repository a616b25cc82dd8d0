#include "hosts/linux/contacts/FavoritesFile.h"

#include <cstddef>
#include <optional>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyList.h"

#include "hosts/linux/contacts/ContactNotes.h"

namespace zephyl::linux_host {

namespace {

constexpr const char* kUid = "ABUid";
constexpr const char* kDatabase = "ABDatabaseUUID";

ABFavoritesEntry entryOf(const Dictionary& favorite, const std::string& place,
                         const std::string& file, ContactNotes& notes) {
  ABFavoritesEntry entry;
  if (const Value* uid = favorite.find(kUid)) {
    if (const std::int64_t* number = uid->ifInteger()) {
      entry.abUid = *number;
    } else {
      notes.warning(file, 0, place + ": ABUid is no integer and is left out");
    }
  }
  if (const Value* database = favorite.find(kDatabase)) {
    if (const std::string* text = database->ifString()) {
      entry.abDatabaseUUID = *text;
    } else {
      notes.warning(file, 0, place + ": ABDatabaseUUID is no text and is left out");
    }
  }
  return entry;
}

}  // namespace

FavoritesReading readFavorites(const Value& root, const std::string& file) {
  FavoritesReading result;
  const Array* favorites = root.ifArray();
  if (favorites == nullptr) {
    result.errors.push_back(file + ": this is no list of favourites: its root is no array");
    return result;
  }
  ContactNotes notes;
  for (std::size_t i = 0; i < favorites->size(); ++i) {
    const std::string place = "favourite " + std::to_string(i + 1);
    const Dictionary* favorite = (*favorites)[i].ifDictionary();
    if (favorite == nullptr) {
      notes.warning(file, 0, place + " is no dictionary and is left out");
      continue;
    }
    const ABFavoritesEntry entry = entryOf(*favorite, place, file, notes);
    if (entry.abUid || entry.abDatabaseUUID) {
      result.entries.push_back(entry);
    } else {
      notes.warning(file, 0, place + " names nobody and is left out");
    }
  }
  result.warnings = notes.warnings();
  return result;
}

FavoritesReading readFavoritesFile(std::string_view bytes, const std::string& file) {
  const PropertyListResult read = readPropertyList(bytes);
  if (read.ok()) {
    return readFavorites(read.value(), file);
  }
  FavoritesReading result;
  result.errors.push_back(read.error().message(file));
  return result;
}

}  // namespace zephyl::linux_host
