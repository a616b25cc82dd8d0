#include "apps/zephyls/GroupsExport.h"

#include <limits>
#include <utility>

#include "platform/Host.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/PropertyList.h"

#include "apps/common/CommandError.h"
#include "apps/zephyls/GroupPicture.h"
#include "apps/zephyls/GroupTexts.h"
#include "apps/zephyls/UnresolvedMembers.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"

namespace zephyl::app {

namespace {

std::vector<std::string> valuesOf(const std::vector<ABLabeledText>& labelled) {
  std::vector<std::string> values;
  values.reserve(labelled.size());
  for (const ABLabeledText& one : labelled) {
    values.push_back(one.value);
  }
  return values;
}

TransferredMember personMember(std::int64_t recordID) {
  TransferredMember member;
  member.recordID = recordID;
  const ABPersonRef person =
      std::in_range<std::int32_t>(recordID)
          ? host().addressBook()->personWithRecordID(static_cast<std::int32_t>(recordID))
          : nullptr;
  if (person != nullptr) {
    member.name = person->compositeName.value_or("");
    member.phones = valuesOf(person->phones);
    member.emails = valuesOf(person->emails);
  }
  return member;
}

void addMember(TransferredGroup& group, const Member& member, const Value& element) {
  if (const auto* number = std::get_if<std::int64_t>(&member)) {
    if (memberKind(member) == MemberKind::kPerson) {
      group.members.push_back(personMember(*number));
    } else {
      group.otherElements.push_back(element);
    }
    return;
  }
  const std::string& text = std::get<std::string>(member);
  const std::string plain = ZPUtils::plainPhoneNumber(text);
  // What an import would refuse as an address.
  if (plain.empty() || isChatGuid(plain) != isChatGuid(text)) {
    group.otherElements.push_back(element);
    return;
  }
  const bool isConversation = isChatGuid(text);
  group.members.push_back({isConversation ? MemberKind::kConversation : MemberKind::kAddress, text,
                           isConversation ? describe(member).name : std::string()});
}

void addMembers(TransferredGroup& group, const Dictionary& dictionary) {
  const Value contacts = dictionary[keys::kContacts];
  if (contacts.ifArray() != nullptr) {
    for (const Value& element : *contacts.ifArray()) {
      const MemberSet one(Array{element});
      if (one.empty()) {
        group.otherElements.push_back(element);
      } else {
        addMember(group, *one.begin(), element);
      }
    }
  }
  for (TransferredMember& person : unresolvedMembers(dictionary)) {
    group.members.push_back(std::move(person));
  }
}

std::optional<Data> pictureOf(const ZephylRef& group,
                              const std::function<void(const std::string&)>& complain) {
  if (group->headerImagePath().empty()) {
    return std::nullopt;
  }
  const std::string name = "the picture of the group \"" + group->title() + "\"";
  const UIImageRef image = group->headerImage();
  if (image == nullptr) {
    complain(name + " cannot be read and is left out: " + group->headerImagePath());
    return std::nullopt;
  }
  try {
    const std::string png = checkedPicture(image->file(), name);
    return Data(png.begin(), png.end());
  } catch (const CommandError& error) {
    complain(std::string(error.what()) + "; it is left out");
    return std::nullopt;
  }
}

// A colour that an import would refuse.
void leaveOutBadColour(TransferredGroup& group,
                       const std::function<void(const std::string&)>& complain) {
  const Value code = group.properties[keys::kMarkerCode];
  if (code.ifString() == nullptr || code.ifString()->empty()) {
    return;
  }
  try {
    static_cast<void>(markerCodeFrom(*code.ifString()));
  } catch (const CommandError& error) {
    complain("the group \"" + *group.properties[keys::kTitle].ifString() + "\" has " +
             error.what() + "; it is left out");
    group.properties.remove(keys::kMarkerCode);
  }
}

}  // namespace

std::set<std::int64_t> protectedInFile() {
  std::set<std::int64_t> identifiers;
  const auto contents = host().files().contentsAtPath(kGroupsFilePath);
  const PropertyListResult list = readPropertyList(contents.value_or(""));
  if (!list.ok() || list.value().ifArray() == nullptr) {
    return identifiers;
  }
  for (const Value& group : *list.value().ifArray()) {
    const Dictionary* const dictionary = group.ifDictionary();
    if (dictionary != nullptr && (*dictionary)[keys::kPasswordProtected].boolValue()) {
      identifiers.insert((*dictionary)[keys::kIdentifier].integerValue());
    }
  }
  return identifiers;
}

TransferredGroup transferredGroup(const ZephylRef& group,
                                  const std::set<std::int64_t>& protectedGroups,
                                  const std::function<void(const std::string&)>& complain) {
  const Dictionary dictionary = group->dictionaryRepresentation();
  TransferredGroup transferred;
  transferred.identifier = group->identifier();
  for (const auto& [key, value] : dictionary) {
    const GroupKey* known = groupKeyNamed(key);
    const bool isOwnKey = known == nullptr && key != kUnresolvedMembersKey;
    // A known key with a value of another type has no meaning elsewhere.
    if (isOwnKey || (isTransferred(key) && value.type() == known->type)) {
      transferred.properties.set(key, value);
    }
  }
  if (dictionary[keys::kTitle].ifString() == nullptr) {
    transferred.properties.set(keys::kTitle, group->title());
  }
  if (protectedGroups.contains(group->identifier())) {
    transferred.properties.set(keys::kPasswordProtected, true);
  }
  leaveOutBadColour(transferred, complain);
  addMembers(transferred, dictionary);
  transferred.picture = pictureOf(group, complain);
  return transferred;
}

}  // namespace zephyl::app
