#include "apps/zephyls/UnresolvedMembers.h"

#include <utility>

namespace zephyl::app {

namespace {

Array arrayOf(const std::vector<std::string>& texts) {
  return {texts.begin(), texts.end()};
}

std::string textIn(const Dictionary& dictionary, const char* key) {
  const Value value = dictionary[key];
  return value.ifString() == nullptr ? std::string() : *value.ifString();
}

std::vector<std::string> textsIn(const Dictionary& dictionary, const char* key) {
  std::vector<std::string> texts;
  const Value value = dictionary[key];
  if (value.ifArray() != nullptr) {
    for (const Value& element : *value.ifArray()) {
      if (element.ifString() != nullptr) {
        texts.push_back(*element.ifString());
      }
    }
  }
  return texts;
}

}  // namespace

std::vector<TransferredMember> unresolvedMembers(const Dictionary& group) {
  std::vector<TransferredMember> people;
  const Value stored = group[kUnresolvedMembersKey];
  if (stored.ifArray() == nullptr) {
    return people;
  }
  for (const Value& element : *stored.ifArray()) {
    if (const Dictionary* person = element.ifDictionary()) {
      people.push_back({MemberKind::kPerson,
                        {},
                        textIn(*person, "name"),
                        textsIn(*person, "phones"),
                        textsIn(*person, "emails"),
                        (*person)["id"].integerValue()});
    }
  }
  return people;
}

void setUnresolvedMembers(Dictionary& group, const std::vector<TransferredMember>& people) {
  Array stored;
  stored.reserve(people.size());
  for (const TransferredMember& person : people) {
    stored.emplace_back(Dictionary{{"name", person.name},
                                   {"phones", arrayOf(person.phones)},
                                   {"emails", arrayOf(person.emails)},
                                   {"id", person.recordID}});
  }
  if (stored.empty()) {
    group.remove(kUnresolvedMembersKey);
  } else {
    group.set(kUnresolvedMembersKey, std::move(stored));
  }
}

std::string textOf(const TransferredMember& person) {
  std::string text = person.name.empty() ? "somebody without a name, record id " +
                                               std::to_string(person.recordID) + " there"
                                         : person.name;
  std::string addresses;
  for (const auto* values : {&person.phones, &person.emails}) {
    for (const std::string& value : *values) {
      addresses.append(addresses.empty() ? "" : ", ").append(value);
    }
  }
  return addresses.empty() ? text : text.append(" (").append(addresses).append(")");
}

}  // namespace zephyl::app
