// The keys of a group's dictionary, in the order in which they are written, the phone's paths of
// what is stored, and the names under which groups travel between processes.

#pragma once

#include <array>
#include <string_view>

#include "platform/foundation/Value.h"

namespace zephyl {

inline constexpr char kGroupsFilePath[] =
    "/var/mobile/Library/Preferences/com.vantor.zephyls-profiles.plist";
inline constexpr char kGroupPicturesDirectory[] = "/var/mobile/Library/Preferences/Zephyls";

inline constexpr char kZephylsMessageCenter[] = "com.vantor.zephyls";
inline constexpr char kGetGroupsMessage[] = "com.vantor.zephyls.groups.get";
inline constexpr char kSaveGroupsMessage[] = "com.vantor.zephyls.groups.save";
// Carries the archive of a dictionary with an image and the path at which it becomes a file.
inline constexpr char kSaveImageMessage[] = "com.vantor.zephyls.groups.save.image";
inline constexpr char kSaveImageKey[] = "image";
inline constexpr char kSaveImagePathKey[] = "path";
// The key of what every message and reply carries. Kept: it is also the name of the message that
// asks for a group's picture.
inline constexpr char kServiceMessageData[] = "ZephylsServiceMessageData";

namespace keys {

inline constexpr char kIdentifier[] = "identifier";
inline constexpr char kTitle[] = "title";
inline constexpr char kSubTitle[] = "subTitle";
inline constexpr char kHeaderImagePath[] = "headerImagePath";
inline constexpr char kBackGroundImagePath[] = "backGroundImagePath";
inline constexpr char kMarkerCode[] = "markerCode";
inline constexpr char kCreatedDate[] = "createdDate";
inline constexpr char kEnabled[] = "enabled";
inline constexpr char kActive[] = "active";
inline constexpr char kSystem[] = "system";
inline constexpr char kPasswordProtected[] = "passwordProtected";
inline constexpr char kZephylSystemMode[] = "zephylSystemMode";
inline constexpr char kUpdatedDate[] = "updatedDate";
inline constexpr char kContacts[] = "contacts";
inline constexpr char kHidesInDefaultGroups[] = "shouldHideConversationsInDefaultGroups";
inline constexpr char kHidesOnLockScreen[] = "shouldHideConversationsOnLockScreen";
inline constexpr char kMaskedMessage[] = "maskedMessage";

}  // namespace keys

// A key with the type of its value as the library writes it.
struct GroupKey {
  const char* name;
  Value::Type type;
};

inline constexpr std::array<GroupKey, 17> kGroupKeys = {{
    {keys::kIdentifier, Value::Type::kInteger},
    {keys::kTitle, Value::Type::kString},
    {keys::kSubTitle, Value::Type::kString},
    {keys::kHeaderImagePath, Value::Type::kString},
    {keys::kBackGroundImagePath, Value::Type::kString},
    {keys::kMarkerCode, Value::Type::kString},
    {keys::kCreatedDate, Value::Type::kDate},
    {keys::kEnabled, Value::Type::kBoolean},
    {keys::kActive, Value::Type::kBoolean},
    {keys::kSystem, Value::Type::kBoolean},
    {keys::kPasswordProtected, Value::Type::kBoolean},
    {keys::kZephylSystemMode, Value::Type::kInteger},
    {keys::kUpdatedDate, Value::Type::kDate},
    {keys::kContacts, Value::Type::kArray},
    {keys::kHidesInDefaultGroups, Value::Type::kBoolean},
    {keys::kHidesOnLockScreen, Value::Type::kBoolean},
    {keys::kMaskedMessage, Value::Type::kString},
}};

// Null for a key that the library does not know.
[[nodiscard]] inline const GroupKey* groupKeyNamed(std::string_view name) {
  for (const GroupKey& key : kGroupKeys) {
    if (name == key.name) {
      return &key;
    }
  }
  return nullptr;
}

}  // namespace zephyl
