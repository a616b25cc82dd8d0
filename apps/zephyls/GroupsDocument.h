// Groups on their way from one device to another: a JSON document that says of each member what is
// needed to find it in another address book.
//
// {"format": "zephyls-groups", "version": 1, "exported": time, "groups": [...]}; a group has the
// keys of its dictionary but for those that belong to the device, then "picture" (base64 of a PNG),
// "members" and "carried" (base64 of a binary property list: keys and elements that this program
// does not know). Members are {"kind": "person", "name", "phones", "emails", "id"},
// {"kind": "conversation", "guid", "name"} or {"kind": "address", "address"}.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/Value.h"

#include "apps/zephyls/Describe.h"

namespace zephyl::app {

struct TransferredMember {
  MemberKind kind = MemberKind::kPerson;
  std::string text;                      // the GUID or the address; empty for a person
  std::string name;                      // empty when there was nobody by that record id
  std::vector<std::string> phones = {};  // these and the following of persons only
  std::vector<std::string> emails = {};
  std::int64_t recordID = 0;  // on the device that the document comes from

  friend bool operator==(const TransferredMember&, const TransferredMember&) = default;
};

struct TransferredGroup {
  std::int64_t identifier = 0;  // on the device that the document comes from
  // By the keys of a group's dictionary, known or not. Not among them: identifier, picture name,
  // members, and whether it is active or a system group.
  Dictionary properties;
  std::optional<Data> picture;
  std::vector<TransferredMember> members;
  // Elements of the list of members that are no members.
  Array otherElements;
};

// `time` in seconds since 1970.
[[nodiscard]] nlohmann::ordered_json documentOf(const std::vector<TransferredGroup>& groups,
                                                double time);

// What a document of this or an older version holds. Without "enabled" a group is enabled. Throws
// CommandError, which names `file` and the place, for everything else: nothing of a document that
// is wrong in one place is taken.
[[nodiscard]] std::vector<TransferredGroup> groupsOfDocument(const std::string& contents,
                                                             const std::string& file);

// Whether a key of a group's dictionary travels under its own name.
[[nodiscard]] bool isTransferred(const std::string& key);

}  // namespace zephyl::app
