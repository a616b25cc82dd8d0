// The commands that list conversations: all of them, by group, and why they are where they are.

#include <algorithm>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/Host.h"
#include "platform/chatkit/CKConversationList.h"

#include "apps/zephyls/Commands.h"
#include "apps/zephyls/Consent.h"
#include "apps/zephyls/Describe.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app {

namespace {

constexpr std::size_t kOverviewConversations = 5;

void print(Output& output, const CKConversationArray& conversations) {
  std::vector<Row> rows;
  for (const CKConversationRef& conversation : conversations) {
    if (output.isJson()) {
      output.object(conversationObject(*conversation));
    } else {
      rows.push_back(conversationRow(*conversation));
    }
  }
  output.table(rows);
}

// The element of a group, or of the favourites, and who it is.
std::string memberText(const Membership& membership) {
  const MemberDescription member = describe(*membership.member);
  return member.name.empty() || member.name == member.text ? member.text
                                                           : member.text + " (" + member.name + ")";
}

std::string participantText(const Membership& membership, const CKConversation& conversation) {
  return membership.handle ? conversation.facts().handleNames[*membership.handle] : "nobody";
}

std::string becauseOf(const Membership& membership, const CKConversation& conversation) {
  switch (membership.rule) {
    case MembershipRule::kNone:
      return "no member and no rule matches";
    case MembershipRule::kChatGuid:
      return "the conversation itself is a member: " + memberText(membership);
    case MembershipRule::kContact:
      return "a participant is a member: " + memberText(membership);
    case MembershipRule::kNumber:
      return "the number of the first participant is a member: " + memberText(membership);
    case MembershipRule::kNumberContact:
      return "the contact behind the first participant's number is a member: " +
             memberText(membership);
    case MembershipRule::kEverything:
      return "holds every conversation";
    case MembershipRule::kGroupConversation:
      return "holds every group conversation";
    case MembershipRule::kUnknownParticipant:
      return "a participant is not in the address book: " +
             participantText(membership, conversation);
    case MembershipRule::kKnownParticipant:
      return "a participant is in the address book: " + participantText(membership, conversation);
  }
  return {};
}

struct Explanation {
  ZephylRef group;
  Membership membership;
  bool hides = false;
  std::string because;
};

// Of the groups that hold the conversation, or would but for one that hides it.
std::vector<Explanation> explain(const CKConversationRef& conversation) {
  const auto store = ZephylsDataController::sharedInstance();
  const auto groups = store->allZephyls()->snapshot();
  const ZephylVector hiding =
      store->zephylsAssociatedWithConversation(conversation, host().addressBook());
  std::vector<Explanation> explanations;
  for (const ZephylRef& group : *groups) {
    Explanation one;
    one.group = group;
    one.membership = store->membershipOf(group, conversation, host().addressBook());
    if (one.membership.rule == MembershipRule::kNone) {
      continue;
    }
    one.hides = std::find(hiding.begin(), hiding.end(), group) != hiding.end();
    one.because = one.membership.hiddenBy == nullptr
                      ? becauseOf(one.membership, *conversation)
                      : "hidden by the group " + one.membership.hiddenBy->title();
    explanations.push_back(std::move(one));
  }
  return explanations;
}

void printHeader(Output& output, const ZephylRef& group, std::size_t conversations) {
  const auto unread = static_cast<std::size_t>(group->unreadCount());
  Row header{{group->title(), Style::kBold},
             {"  " + counted(conversations, "conversation"), Style::kDim}};
  if (unread > 0) {
    header.push_back({"  " + std::to_string(unread) + " unread", Style::kUnread});
  }
  if (const std::string traits = traitsOf(group); !traits.empty()) {
    header.push_back({"  " + traits, Style::kDim});
  }
  output.line(header);
}

// Of a protected group no more than that it is there: nothing is opened, so nothing is asked.
void printWithConversations(Session& session, Output& output, const ZephylRef& group) {
  CKConversationArray conversations = session.conversationsOf(group);
  const std::size_t all = conversations.size();
  printHeader(output, group, all);
  if (isLocked(group)) {
    output.line("");
    return;
  }
  conversations.resize(std::min(all, kOverviewConversations));
  print(output, conversations);
  if (all > conversations.size()) {
    output.line({{"   and " + std::to_string(all - conversations.size()) + " more", Style::kDim}});
  }
  output.line("");
}

}  // namespace

int listConversations(Session& session, Output& output) {
  session.startGroups();
  if (!session.options().group) {
    print(output, host().conversationList().conversations());
    return session.exitStatus();
  }
  const ZephylRef group = session.groupNamed(*session.options().group);
  askForFingerprint(session, output, {group});
  print(output, session.conversationsOf(group));
  return session.exitStatus();
}

int explainConversation(Session& session, Output& output) {
  session.startGroups();
  const CKConversationRef conversation = session.conversationNamed(session.options().guid);
  const std::vector<Explanation> explanations = explain(conversation);
  if (output.isJson()) {
    for (const Explanation& one : explanations) {
      output.object({{"identifier", one.group->identifier()},
                     {"title", one.group->title()},
                     {"member", one.membership.isShown()},
                     {"because", one.because},
                     {"hides", one.hides}});
    }
    return session.exitStatus();
  }
  output.line(
      {{conversation->facts().name, Style::kBold}, {"  " + conversation->guid(), Style::kDim}});
  std::vector<Row> rows;
  rows.reserve(explanations.size());
  for (const Explanation& one : explanations) {
    rows.push_back({{one.membership.isShown() ? "✓" : "–",
                     one.membership.isShown() ? Style::kGood : Style::kDim},
                    {one.group->title()},
                    {std::string(one.hides ? "hides it; " : "") + one.because +
                     (one.group->isEnabled() ? "" : " (the group is disabled)")}});
  }
  output.wholeTable(rows);
  return session.exitStatus();
}

int showOverview(Session& session, Output& output) {
  session.startGroups();
  const auto store = ZephylsDataController::sharedInstance();
  if (output.isJson()) {
    return listGroups(session, output);
  }
  const ZephylVector own = store->enabledUserCreatedZephyls();
  for (const ZephylRef& group : own) {
    printWithConversations(session, output, group);
  }
  for (const ZephylRef& group : store->activeZephyls()) {
    if (!group->isSystem()) {
      continue;
    }
    // Beside groups of the user's own the system groups only say how much there is.
    if (own.empty()) {
      printWithConversations(session, output, group);
    } else {
      printHeader(output, group, session.conversationsOf(group).size());
    }
  }
  if (session.places().isSample) {
    output.line("");
    output.line({{"This is a sample. Your own messages: zephyls --messages FILE --contacts FILE",
                  Style::kDim}});
  }
  return session.exitStatus();
}

}  // namespace zephyl::app
