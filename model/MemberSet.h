// The members of a group: record ids of people, chat GUIDs, and phone numbers or e-mail addresses
// in plain form, each once, in the order in which they came. 12 and "12" differ.
//
// Immutable once it is handed to a group, so any thread may read it.

#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <variant>
#include <vector>

#include "platform/Export.h"
#include "platform/foundation/Value.h"

namespace zephyl {

using Member = std::variant<std::int64_t, std::string>;

// Whether a text names a conversation: by its beginning.
[[nodiscard]] ZP_EXPORT bool isChatGuid(const std::string& text);

// The number that a member is, or that its text begins with; 0 for other texts.
[[nodiscard]] ZP_EXPORT std::int64_t memberNumber(const Member& member);

enum class MemberKind { kPerson, kConversation, kAddress };

// What stands for what in a group: a number of 1 or more for a person's record id, a chat GUID for
// its conversation, anything else for a phone number or an e-mail address.
//
// Kept: a text that begins with a number counts as that number, so a phone number kept as text,
// "+15550100" too, counts as a record id, which is nobody's as a rule. Which conversations a group
// holds does not go by this: there 12 and "12" differ, and a phone number is found as it stands.
[[nodiscard]] ZP_EXPORT MemberKind memberKind(const Member& member);

class ZP_EXPORT MemberSet {
 public:
  MemberSet() = default;
  MemberSet(std::initializer_list<Member> members);

  // Integers and texts become members, a real without fraction and a boolean the integer that they
  // equal. Elements of other types are no members; they are carried along and written back by
  // `array`.
  explicit MemberSet(const Array& elements);

  // False when it was there already.
  bool add(const Member& member);
  // False when it was not there.
  bool remove(const Member& member);

  [[nodiscard]] bool contains(const Member& member) const { return index_.contains(member); }
  [[nodiscard]] bool empty() const { return members_.empty(); }
  [[nodiscard]] std::size_t size() const { return members_.size(); }
  [[nodiscard]] auto begin() const { return members_.begin(); }
  [[nodiscard]] auto end() const { return members_.end(); }

  // What a property list stores: the members, then the carried elements.
  [[nodiscard]] Array array() const;

 private:
  bool add(const Member& member, const Value& stored);

  std::vector<Member> members_;
  // What stands for each member in a property list, by position.
  std::vector<Value> stored_;
  std::unordered_set<Member> index_;
  Array carried_;
};

// A copy that may be changed, of a set that need not be there: null has no members.
[[nodiscard]] ZP_EXPORT MemberSet membersOrNone(const MemberSet* members);

}  // namespace zephyl
