// The dictionary form of a group.

#include <cassert>
#include <set>
#include <string_view>
#include <utility>

#include "platform/Host.h"
#include "platform/foundation/Clock.h"

#include "model/Zephyl.h"
#include "model/ZephylKeys.h"

namespace zephyl {

namespace {

Dictionary systemGroup(const char* title, const char* subTitle, ZephylSystemMode mode) {
  return Dictionary{{keys::kTitle, title},
                    {keys::kSubTitle, subTitle},
                    {keys::kZephylSystemMode, static_cast<std::int64_t>(mode)},
                    {keys::kEnabled, true},
                    {keys::kPasswordProtected, true},
                    {keys::kSystem, true}};
}

// Reads the keys of a dictionary one by one. A value whose type its key does not have is handed to
// `carried`, and what it converts to (or the zero value) is given back.
class Reader {
 public:
  Reader(const Dictionary& dictionary, Dictionary& carried)
      : dictionary_(dictionary), carried_(carried) {}

  std::string text(const char* key) {
    const Value value = take(key);
    return value.ifString() == nullptr ? std::string() : *value.ifString();
  }
  bool boolean(const char* key) { return take(key).boolValue(); }
  std::int64_t integer(const char* key) { return take(key).integerValue(); }
  std::optional<Date> date(const char* key) {
    const Value value = take(key);
    return value.ifDate() == nullptr ? std::nullopt : std::optional(*value.ifDate());
  }
  std::shared_ptr<const MemberSet> members(const char* key) {
    const Value value = take(key);
    return value.ifArray() == nullptr ? std::make_shared<const MemberSet>()
                                      : std::make_shared<const MemberSet>(*value.ifArray());
  }

  // Everything under keys that were not asked for.
  void carryTheRest() {
    for (const auto& [key, value] : dictionary_) {
      if (!known_.contains(key)) {
        carried_.set(key, value);
      }
    }
  }

 private:
  Value take(const char* key) {
    known_.insert(key);
    Value value = dictionary_[key];
    const GroupKey* known = groupKeyNamed(key);
    assert(known != nullptr);
    if (!value.isNull() && value.type() != known->type) {
      carried_.set(key, value);
    }
    return value;
  }

  const Dictionary& dictionary_;
  Dictionary& carried_;
  std::set<std::string_view> known_;
};

}  // namespace

void Zephyl::setPropertiesFromDicitonary(const Dictionary& dictionary) {
  Dictionary carried;
  Reader read(dictionary, carried);
  identifier_ = read.integer(keys::kIdentifier);
  title_ = read.text(keys::kTitle);
  subTitle_ = read.text(keys::kSubTitle);
  headerImagePath_ = read.text(keys::kHeaderImagePath);
  backGroundImagePath_ = read.text(keys::kBackGroundImagePath);
  markerCode_ = read.text(keys::kMarkerCode);
  createdDate_ = read.date(keys::kCreatedDate);
  enabled_ = read.boolean(keys::kEnabled);
  active_ = read.boolean(keys::kActive);
  system_ = read.boolean(keys::kSystem);
  passwordProtected_ = read.boolean(keys::kPasswordProtected);
  zephylSystemMode_ = read.integer(keys::kZephylSystemMode);
  requiresUpdateForUnReadCount_ = true;
  updatedDate_ = read.date(keys::kUpdatedDate);
  contacts_.store(read.members(keys::kContacts));
  unreadConversations_.store(std::make_shared<const std::set<std::string>>());
  hidesInDefaultGroups_ = read.boolean(keys::kHidesInDefaultGroups);
  hidesOnLockScreen_ = read.boolean(keys::kHidesOnLockScreen);
  maskedMessage_ = read.text(keys::kMaskedMessage);
  read.carryTheRest();
  carried_ = std::move(carried);
}

Dictionary Zephyl::dictionaryRepresentation() {
  Dictionary result;
  std::set<std::string_view> written;
  const auto write = [&](const char* key, const Value& value) {
    const Value* carried = carried_.find(key);
    result.set(key, carried == nullptr ? value : *carried);
    written.insert(key);
  };
  // Asked first: it may clear a flag, and with it what is carried for that flag.
  const bool passwordProtected = isPasswordProtected();
  const auto members = contacts();
  write(keys::kIdentifier, identifier_);
  write(keys::kTitle, title_);
  write(keys::kSubTitle, subTitle_);
  write(keys::kHeaderImagePath, headerImagePath_);
  write(keys::kBackGroundImagePath, backGroundImagePath_);
  write(keys::kMarkerCode, markerCode_);
  write(keys::kCreatedDate, createdDate_ ? *createdDate_ : Date::since1970(host().clock().now()));
  write(keys::kEnabled, enabled_.load());
  write(keys::kActive, active_.load());
  write(keys::kSystem, system_.load());
  write(keys::kPasswordProtected, passwordProtected);
  write(keys::kZephylSystemMode, zephylSystemMode_.load());
  if (updatedDate_ || carried_.find(keys::kUpdatedDate) != nullptr) {
    write(keys::kUpdatedDate, updatedDate_.value_or(Date{}));
  }
  write(keys::kContacts, members == nullptr ? Array() : members->array());
  write(keys::kHidesInDefaultGroups, hidesInDefaultGroups_.load());
  write(keys::kHidesOnLockScreen, hidesOnLockScreen_.load());
  // Kept: written through the getter, so a default text becomes the group's own.
  write(keys::kMaskedMessage, maskedMessage());
  for (const auto& [key, value] : carried_) {
    if (!written.contains(key)) {
      result.set(key, value);
    }
  }
  return result;
}

Dictionary Zephyl::allMessagesDictionaryRepresenation() {
  return systemGroup("All", "All messages grouped under this group.", ZephylSystemModeAll);
}

Dictionary Zephyl::allFavoritesDictionaryRepresenation(const void* /*ignored*/) {
  // Kept: "Favoties" is stored exactly so.
  return systemGroup("Favorites", "Your Favoties Contacts from Phonebook",
                     ZephylSystemModeFavorites);
}

Dictionary Zephyl::allGroupsDictionaryRepresenation() {
  return systemGroup("All Groups", "All group conversations are grouped under this.",
                     ZephylSystemModeAllGroups);
}

Dictionary Zephyl::allUnknownDictionaryRepresenation() {
  return systemGroup("Unknown", "All conversations from Unknown numbers are grouped under this.",
                     ZephylSystemModeUnknown);
}

Dictionary Zephyl::allKnownDictionaryRepresenation() {
  return systemGroup("Known", "All conversations from known numbers are grouped under this.",
                     ZephylSystemModeKnown);
}

}  // namespace zephyl
