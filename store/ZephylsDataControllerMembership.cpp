// Which group shows which conversation: the one place where membership is decided.

#include <algorithm>
#include <optional>

#include "model/ContactIdentity.h"
#include "services/ZPUtils.h"
#include "store/ZephylsDataController.h"

namespace zephyl {

namespace {

bool hidesItsConversations(const ZephylRef& group) {
  return !group->isSystem() && group->isEnabled() &&
         group->shouldHideConversationsInDefaultGroups();
}

// The number of the conversation's first handle, or the contact behind it.
Membership matchFirstNumber(const MemberSet& members, const CKConversation& conversation,
                            const ABAddressBookRef& addressBook) {
  const std::string plain = ZPUtils::plainPhoneNumber(conversation.handles().front().displayID());
  if (members.contains(plain)) {
    return {MembershipRule::kNumber, plain, 0, nullptr};
  }
  const std::int64_t contact = ZPUtils::contactIDFromPhoneNumber(plain, addressBook);
  if (contact >= 1 && members.contains(contact)) {
    return {MembershipRule::kNumberContact, contact, 0, nullptr};
  }
  return {};
}

Membership matchHandle(const MemberSet& members, const CKConversation& conversation,
                       std::size_t index, const ABAddressBookRef& addressBook) {
  if (const auto identity = contactIdentity(conversation.handles()[index])) {
    return members.contains(*identity)
               ? Membership{MembershipRule::kContact, *identity, index, nullptr}
               : Membership();
  }
  // Kept: the number tested is the first handle's, whichever handle is examined.
  return matchFirstNumber(members, conversation, addressBook);
}

// How many handles the rules look at: the first of a one-to-one conversation, all of a group.
std::size_t examinedHandles(const CKConversation& conversation) {
  const std::size_t count = conversation.handles().size();
  return conversation.isGroupConversation() ? count : std::min<std::size_t>(count, 1);
}

// The match of a set of members; the hide rule, which may take its answer back, is not asked.
Membership matchMembers(const MemberSet& members, const CKConversation& conversation,
                        const ABAddressBookRef& addressBook) {
  if (members.contains(conversation.guid())) {
    return {MembershipRule::kChatGuid, conversation.guid(), std::nullopt, nullptr};
  }
  for (std::size_t index = 0; index < examinedHandles(conversation); ++index) {
    if (auto match = matchHandle(members, conversation, index, addressBook);
        match.rule != MembershipRule::kNone) {
      return match;
    }
  }
  return {};
}

// A participant who is a known contact, or is none: the first of a one-to-one conversation, who
// counts as none when missing, or any of a group.
Membership matchParticipant(const CKConversation& conversation, bool known) {
  const MembershipRule rule =
      known ? MembershipRule::kKnownParticipant : MembershipRule::kUnknownParticipant;
  const auto& handles = conversation.handles();
  if (!conversation.isGroupConversation()) {
    const std::optional<std::size_t> first =
        handles.empty() ? std::nullopt : std::optional<std::size_t>(0);
    return firstContactIdentity(conversation).has_value() == known
               ? Membership{rule, std::nullopt, first, nullptr}
               : Membership();
  }
  const auto decides = std::find_if(handles.begin(), handles.end(), [&](const IMHandle& handle) {
    return contactIdentity(handle).has_value() == known;
  });
  return decides == handles.end()
             ? Membership()
             : Membership{rule, std::nullopt, static_cast<std::size_t>(decides - handles.begin()),
                          nullptr};
}

}  // namespace

Membership ZephylsDataController::matchSystemGroup(std::int64_t mode,
                                                   const CKConversation& conversation,
                                                   const ABAddressBookRef& addressBook) {
  switch (mode) {
    case ZephylSystemModeAll:
      return {MembershipRule::kEverything, std::nullopt, std::nullopt, nullptr};
    case ZephylSystemModeFavorites:
      return matchMembers(*favoritesContactsABUIDs(), conversation, addressBook);
    case ZephylSystemModeAllGroups:
      return conversation.isGroupConversation() ? Membership{MembershipRule::kGroupConversation,
                                                             std::nullopt, std::nullopt, nullptr}
                                                : Membership();
    case ZephylSystemModeUnknown:
      return matchParticipant(conversation, /*known=*/false);
    case ZephylSystemModeKnown:
      return matchParticipant(conversation, /*known=*/true);
    default:
      return {};
  }
}

Membership ZephylsDataController::membershipOf(const ZephylRef& zephyl,
                                               const CKConversationRef& conversation,
                                               const ABAddressBookRef& addressBook) {
  if (!zephyl->isSystem()) {
    const auto members = zephyl->contacts();
    return members == nullptr ? Membership() : matchMembers(*members, *conversation, addressBook);
  }
  Membership membership = matchSystemGroup(zephyl->zephylSystemMode(), *conversation, addressBook);
  // The default groups, and only they, ask the hide rule, once some group has ever hidden.
  if (membership.rule != MembershipRule::kNone && isAnyOfGroupHasHideConversationsEnabled()) {
    membership.hiddenBy = firstGroupHiding(conversation);
  }
  return membership;
}

bool ZephylsDataController::isConversationMemberOfGroup(const ZephylRef& zephyl,
                                                        const CKConversationRef& conversation,
                                                        const ABAddressBookRef& addressBook) {
  return membershipOf(zephyl, conversation, addressBook).isShown();
}

ZephylRef ZephylsDataController::firstGroupHiding(const CKConversationRef& conversation) {
  const auto groups = zephyls_.load()->snapshot();
  const auto found = std::find_if(groups->begin(), groups->end(), [&](const ZephylRef& group) {
    if (!hidesItsConversations(group)) {
      return false;
    }
    if (group->conversations() == nullptr) {
      group->loadAffiliatedConversations(/*inBackground=*/false);
    }
    return group->isConversationMemberOfYou(conversation);
  });
  return found == groups->end() ? nullptr : *found;
}

bool ZephylsDataController::shouldShowConversationForDefaultGroups(
    const CKConversationRef& conversation, const ABAddressBookRef& /*addressBook*/) {
  return firstGroupHiding(conversation) == nullptr;
}

bool ZephylsDataController::isMemberOfAnyHiddenGroup(const ZephylRef& zephyl,
                                                     std::int64_t contactId,
                                                     const std::vector<std::string>& chatGUIDS) {
  const auto members = zephyl->contacts();
  if (members == nullptr) {
    return false;
  }
  if (contactId >= 1 && members->contains(contactId)) {
    return true;
  }
  return std::any_of(chatGUIDS.begin(), chatGUIDS.end(),
                     [&](const std::string& guid) { return members->contains(guid); });
}

ZephylRef ZephylsDataController::isPartOfAnyZephyl(std::int64_t contactId,
                                                   const std::vector<std::string>& chatGUIDS) {
  const auto groups = zephyls_.load()->snapshot();
  const auto found = std::find_if(groups->begin(), groups->end(), [&](const ZephylRef& group) {
    return hidesItsConversations(group) && isMemberOfAnyHiddenGroup(group, contactId, chatGUIDS);
  });
  return found == groups->end() ? nullptr : *found;
}

ZephylVector ZephylsDataController::zephylsAssociatedWithConversation(
    const CKConversationRef& conversation, const ABAddressBookRef& addressBook) {
  const auto groups = zephyls_.load()->snapshot();
  ZephylVector hiding;
  for (const ZephylRef& group : *groups) {
    if (hidesItsConversations(group) &&
        isConversationMemberOfGroup(group, conversation, addressBook)) {
      hiding.push_back(group);
    }
  }
  return hiding;
}

void ZephylsDataController::forceReloadConversationsForUserGroups() {
  for (const ZephylRef& group : enabledUserCreatedZephyls()) {
    group->loadAffiliatedConversations(/*inBackground=*/false);
  }
}

}  // namespace zephyl
