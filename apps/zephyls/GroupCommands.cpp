// The commands about groups: what there is, what is in one, what is unread.

#include <set>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "apps/zephyls/Commands.h"
#include "apps/zephyls/Consent.h"
#include "apps/zephyls/Describe.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "apps/zephyls/UnresolvedMembers.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app {

namespace {

Json memberObjects(const ZephylRef& group) {
  Json members = Json::array();
  if (const auto contacts = group->contacts()) {
    for (const Member& member : *contacts) {
      const MemberDescription described = describe(member);
      members.push_back({{"kind", nameOf(described.kind)},
                         {"id", std::visit([](const auto& id) { return Json(id); }, member)},
                         {"name", described.name.empty() ? Json(nullptr) : Json(described.name)}});
    }
  }
  return members;
}

void printGroup(Output& output, const ZephylRef& group, const CKConversationArray& conversations) {
  output.line(
      {{group->title(), Style::kBold}, {"  " + std::to_string(group->identifier()), Style::kDim}});
  std::vector<Row> rows;
  const auto row = [&](const char* name, const std::string& value) {
    if (!value.empty()) {
      rows.push_back({{name, Style::kDim}, {value}});
    }
  };
  row("subtitle", group->subTitle());
  row("marks", traitsOf(group));
  row("colour", group->markerCode());
  row("picture", group->headerImagePath());
  row("masked text", group->shouldHideConversationsOnLockScreen() ? group->maskedMessage() : "");
  row("conversations", std::to_string(conversations.size()));
  row("unread", std::to_string(group->unreadCount()));
  if (const auto contacts = group->contacts()) {
    for (const Member& member : *contacts) {
      row("member", textOf(describe(member)));
    }
  }
  for (const TransferredMember& person : unresolvedMembers(group->dictionaryRepresentation())) {
    row("not found", textOf(person));
  }
  output.table(rows);
  output.line("");
  std::vector<Row> list;
  for (const CKConversationRef& conversation : conversations) {
    list.push_back(conversationRow(*conversation));
  }
  output.table(list);
}

Row listRow(const ZephylRef& group, std::size_t conversations) {
  const std::int64_t unread = group->unreadCount();
  return {{group->title(), group->isEnabled() ? Style::kBold : Style::kDim},
          {counted(conversations, "conversation")},
          {unread > 0 ? std::to_string(unread) + " unread" : "", Style::kUnread},
          {std::to_string(group->identifier()), Style::kDim},
          {traitsOf(group), Style::kDim}};
}

}  // namespace

int listGroups(Session& session, Output& output) {
  session.startGroups();
  std::vector<Row> rows;
  const auto groups = ZephylsDataController::sharedInstance()->allZephyls()->snapshot();
  for (const ZephylRef& group : *groups) {
    const std::size_t conversations = session.conversationsOf(group).size();
    if (output.isJson()) {
      output.object(groupObject(group, conversations));
    } else {
      rows.push_back(listRow(group, conversations));
    }
  }
  output.table(rows);
  return session.exitStatus();
}

int showGroup(Session& session, Output& output) {
  session.startGroups();
  const ZephylRef group = session.groupNamed(session.options().group.value_or(""));
  askForFingerprint(session, output, {group});
  const CKConversationArray conversations = session.conversationsOf(group);
  if (!output.isJson()) {
    printGroup(output, group, conversations);
    return session.exitStatus();
  }
  Json object = groupObject(group, conversations.size());
  object["members"] = memberObjects(group);
  Json guids = Json::array();
  for (const CKConversationRef& conversation : conversations) {
    guids.push_back(conversation->guid());
  }
  object["conversations"] = std::move(guids);
  output.object(object);
  return session.exitStatus();
}

int showUnread(Session& session, Output& output) {
  session.startGroups();
  const auto store = ZephylsDataController::sharedInstance();
  const ZephylVector groups = store->activeZephyls();
  std::vector<std::int64_t> counts;
  // All of them first, since what is unread elsewhere is taken from the counts as they stand.
  for (const ZephylRef& group : groups) {
    group->loadAffiliatedConversations(/*inBackground=*/false);
    counts.push_back(group->unreadCount());
  }
  std::vector<Row> rows;
  for (std::size_t index = 0; index < groups.size(); ++index) {
    const ZephylRef& group = groups[index];
    const std::int64_t elsewhere = store->unreadConversationsCountForOtherGroups(group);
    if (output.isJson()) {
      output.object({{"identifier", group->identifier()},
                     {"title", group->title()},
                     {"unreadCount", counts[index]},
                     {"unreadConversations", *group->unreadConversations()},
                     {"elsewhere", elsewhere}});
    } else {
      rows.push_back({{group->title(), counts[index] > 0 ? Style::kBold : Style::kPlain},
                      {std::to_string(counts[index]) + " unread",
                       counts[index] > 0 ? Style::kUnread : Style::kDim},
                      {std::to_string(elsewhere) + " elsewhere", Style::kDim}});
    }
  }
  output.table(rows);
  return session.exitStatus();
}

}  // namespace zephyl::app
