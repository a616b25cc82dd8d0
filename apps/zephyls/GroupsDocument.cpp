#include "apps/zephyls/GroupsDocument.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>

#include "platform/foundation/PropertyList.h"

#include "apps/common/CommandError.h"
#include "apps/zephyls/Base64.h"
#include "apps/zephyls/GroupTexts.h"
#include "apps/zephyls/Json.h"
#include "model/MemberSet.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"

namespace zephyl::app {

namespace {

constexpr char kFormat[] = "zephyls-groups";
constexpr std::int64_t kVersion = 1;
// A number in the list of a member is on this level.
constexpr int kDeepest = 6;

// What a device says of its own groups.
constexpr const char* kKeysOfDevice[] = {keys::kIdentifier, keys::kHeaderImagePath,
                                         keys::kContacts,   keys::kActive,
                                         keys::kSystem,     keys::kZephylSystemMode};

Json memberObject(const TransferredMember& member) {
  switch (member.kind) {
    case MemberKind::kPerson:
      return {{"kind", "person"},
              {"name", member.name.empty() ? Json(nullptr) : Json(member.name)},
              {"phones", member.phones},
              {"emails", member.emails},
              {"id", member.recordID}};
    case MemberKind::kConversation:
      return {{"kind", "conversation"}, {"guid", member.text}, {"name", member.name}};
    case MemberKind::kAddress:
      break;
  }
  return {{"kind", "address"}, {"address", member.text}};
}

Json groupObjectOf(const TransferredGroup& group) {
  Json object{{"identifier", group.identifier}};
  Dictionary carried;
  for (const auto& [key, value] : group.properties) {
    if (isTransferred(key)) {
      Json json = jsonOf(value);
      // A time before the first or after the last year that a text can hold is left out.
      if (value.ifDate() == nullptr || secondsOfIsoTime(json)) {
        object[key] = std::move(json);
      }
    } else {
      carried.set(key, value);
    }
  }
  object["picture"] = group.picture ? Json(base64(*group.picture)) : Json(nullptr);
  Json members = Json::array();
  for (const TransferredMember& member : group.members) {
    members.push_back(memberObject(member));
  }
  object["members"] = std::move(members);
  if (!group.otherElements.empty()) {
    carried.set(keys::kContacts, group.otherElements);
  }
  if (!carried.empty()) {
    object["carried"] = base64(writeBinaryPropertyList(Value(carried)));
  }
  return object;
}

// A part of the document with the way to it.
class Part {
 public:
  Part(const Json& json, std::string place) : json_(json), place_(std::move(place)) {}

  [[noreturn]] void fail(const std::string& reason) const {
    throw CommandError(place_ + ": " + reason);
  }
  [[nodiscard]] const std::string& place() const { return place_; }

  // Null when the key is missing.
  [[nodiscard]] Part at(const std::string& key) const {
    static const Json kNothing;
    if (!json_.is_object()) {
      fail("is no object");
    }
    const auto found = json_.find(key);
    return {found == json_.end() ? kNothing : *found, place_ + (isRoot() ? " " : ".") + key};
  }
  [[nodiscard]] bool isNull() const { return json_.is_null(); }
  [[nodiscard]] std::string text() const {
    return json_.is_string() ? json_.get<std::string>() : (fail("is no text"), std::string());
  }
  [[nodiscard]] std::string textOrEmpty() const { return isNull() ? std::string() : text(); }
  [[nodiscard]] bool flag() const {
    return json_.is_boolean() ? json_.get<bool>() : (fail("is neither true nor false"), false);
  }
  [[nodiscard]] std::int64_t integer() const {
    const bool fits = json_.is_number_integer() &&
                      (!json_.is_number_unsigned() || json_.get<std::uint64_t>() <= INT64_MAX);
    return fits ? json_.get<std::int64_t>() : (fail("is no whole number"), 0);
  }
  [[nodiscard]] std::int64_t integerFrom(std::int64_t least) const {
    const std::int64_t value = integer();
    return value >= least ? value : (fail("must be " + std::to_string(least) + " or more"), 0);
  }
  [[nodiscard]] std::string filledText() const {
    std::string filled = text();
    return filled.empty() ? (fail("must not be empty"), filled) : filled;
  }
  [[nodiscard]] Date time() const {
    const auto seconds = secondsOfIsoTime(text());
    return seconds ? Date::since1970(*seconds)
                   : (fail("is no time such as 2026-11-21T09:30:00Z"), Date());
  }
  [[nodiscard]] Data bytes() const {
    auto decoded = bytesOfBase64(text());
    return decoded ? std::move(*decoded) : (fail("is no base64"), Data());
  }
  template <class Take>
  void each(const Take& take) const {
    if (!json_.is_array()) {
      fail("is no list");
    }
    for (std::size_t index = 0; index < json_.size(); ++index) {
      take(Part(json_[index], place_ + "[" + std::to_string(index) + "]"));
    }
  }

 private:
  // The root bears the name of the file.
  [[nodiscard]] bool isRoot() const { return place_.ends_with(':'); }

  const Json& json_;
  std::string place_;
};

// As groups store it: eight hexadecimal digits, or nothing.
std::string markerCodeIn(const Part& part) {
  const std::string code = part.text();
  try {
    return code.empty() ? code : markerCodeFrom(code);
  } catch (const CommandError& error) {
    part.fail(std::string("is ") + error.what());
  }
}

Value propertyFrom(const Part& part, const GroupKey& key) {
  if (std::string_view(key.name) == keys::kMarkerCode) {
    return markerCodeIn(part);
  }
  switch (key.type) {
    case Value::Type::kBoolean:
      return part.flag();
    case Value::Type::kDate:
      return part.time();
    default:
      return part.text();
  }
}

std::vector<std::string> textsFrom(const Part& part) {
  std::vector<std::string> texts;
  if (!part.isNull()) {
    part.each([&](const Part& one) { texts.push_back(one.text()); });
  }
  return texts;
}

std::string guidIn(const Part& part) {
  std::string guid = part.filledText();
  return isChatGuid(guid) ? guid : (part.fail("is no GUID of a conversation: " + guid), guid);
}

// Members are told apart by their beginning, so an address must not look like a conversation.
std::string addressIn(const Part& part) {
  std::string address = part.filledText();
  const std::string plain = ZPUtils::plainPhoneNumber(address);
  if (plain.empty() || isChatGuid(plain)) {
    part.fail("is no address: " + address);
  }
  return address;
}

TransferredMember memberFrom(const Part& part) {
  const std::string kind = part.at("kind").text();
  if (kind == "conversation") {
    return {MemberKind::kConversation, guidIn(part.at("guid")), part.at("name").textOrEmpty()};
  }
  if (kind == "address") {
    return {MemberKind::kAddress, addressIn(part.at("address")), {}};
  }
  if (kind != "person") {
    part.at("kind").fail("is no kind of member: " + kind);
  }
  const Part id = part.at("id");
  return {MemberKind::kPerson,           {},
          part.at("name").textOrEmpty(), textsFrom(part.at("phones")),
          textsFrom(part.at("emails")),  id.isNull() ? 0 : id.integerFrom(0)};
}

// Keys that this program knows come from their own places only.
void takeCarried(const Part& part, TransferredGroup& group) {
  const PropertyListResult list = readPropertyList(part.bytes());
  const Dictionary* carried = list.ok() ? list.value().ifDictionary() : nullptr;
  if (carried == nullptr) {
    part.fail("is no property list with a dictionary");
  }
  for (const auto& [key, value] : *carried) {
    if (key == keys::kContacts && value.ifArray() != nullptr) {
      group.otherElements = *value.ifArray();
    } else if (groupKeyNamed(key) == nullptr) {
      group.properties.set(key, value);
    }
  }
}

TransferredGroup groupFrom(const Part& part) {
  TransferredGroup group;
  const Part identifier = part.at(keys::kIdentifier);
  group.identifier = identifier.isNull() ? 0 : identifier.integerFrom(1);
  for (const GroupKey& key : kGroupKeys) {
    const Part property = part.at(key.name);
    if (isTransferred(key.name) && !property.isNull()) {
      group.properties.set(key.name, propertyFrom(property, key));
    }
  }
  if (part.at(keys::kEnabled).isNull()) {
    group.properties.set(keys::kEnabled, true);
  }
  static_cast<void>(part.at(keys::kTitle).filledText());
  if (const Part picture = part.at("picture"); !picture.isNull()) {
    group.picture = picture.bytes();
  }
  part.at("members").each([&](const Part& one) { group.members.push_back(memberFrom(one)); });
  if (const Part carried = part.at("carried"); !carried.isNull()) {
    takeCarried(carried, group);
  }
  return group;
}

Json parsed(const std::string& contents, const std::string& file) {
  const auto refuseDeep = [&](int depth, Json::parse_event_t /*event*/, Json& /*part*/) {
    if (depth > kDeepest) {
      throw CommandError(file + ": no export of groups: lists stand inside one another too deep");
    }
    return true;
  };
  try {
    return Json::parse(contents, refuseDeep);
  } catch (const Json::parse_error& error) {
    // "[json.exception.parse_error.101] parse error at line 1, column 5: …"
    const std::string what = error.what();
    const std::size_t place = what.find("at line ");
    throw CommandError(file + ": no whole JSON document: " +
                       (place == std::string::npos ? what : what.substr(place)));
  }
}

}  // namespace

bool isTransferred(const std::string& key) {
  return groupKeyNamed(key) != nullptr &&
         std::find(std::begin(kKeysOfDevice), std::end(kKeysOfDevice), key) ==
             std::end(kKeysOfDevice);
}

nlohmann::ordered_json documentOf(const std::vector<TransferredGroup>& groups, double time) {
  Json list = Json::array();
  for (const TransferredGroup& group : groups) {
    list.push_back(groupObjectOf(group));
  }
  return {{"format", kFormat},
          {"version", kVersion},
          {"exported", isoTime(time)},
          {"groups", std::move(list)}};
}

std::vector<TransferredGroup> groupsOfDocument(const std::string& contents,
                                               const std::string& file) {
  const Json document = parsed(contents, file);
  if (!document.is_object() || document.value("format", Json()) != kFormat) {
    throw CommandError(file + ": no export of groups, as `zephyls groups export` writes it");
  }
  const Part root(document, file + ":");
  const std::int64_t version = root.at("version").integer();
  if (version != kVersion) {
    throw CommandError(file + ": is of version " + std::to_string(version) +
                       (version > kVersion ? ", written by a newer zephyls; this one reads version "
                                           : ", which no zephyls has written; this one reads "
                                             "version ") +
                       std::to_string(kVersion));
  }
  if (const Part exported = root.at("exported"); !exported.isNull()) {
    static_cast<void>(exported.time());
  }
  std::vector<TransferredGroup> groups;
  root.at("groups").each([&](const Part& one) { groups.push_back(groupFrom(one)); });
  return groups;
}

}  // namespace zephyl::app
