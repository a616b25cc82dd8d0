#include "apps/springboard/Announcer.h"

#include <algorithm>
#include <exception>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/Host.h"
#include "platform/chatkit/CKConversationList.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/SystemLog.h"

#include "model/ZPSettings.h"
#include "model/ZephylKeys.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app {
namespace {

using linux_host::DesktopNotice;
using linux_host::NewMessage;

constexpr std::string_view kProgram = "Messages";
constexpr std::string_view kNewMessage = "New message";
constexpr std::string_view kAttachment = "Attachment";
constexpr std::size_t kMostNames = 4;

std::string nameOfSender(const std::string& address, const CKConversation::Facts& facts) {
  const std::size_t names = std::min(facts.handles.size(), facts.handleNames.size());
  for (std::size_t index = 0; index < names; ++index) {
    if (facts.handles[index].displayID() == address) {
      return facts.handleNames[index];
    }
  }
  return address;
}

std::string lineOf(const NewMessage& message, const CKConversation::Facts& facts) {
  std::string line;
  if (facts.isGroupConversation && !message.sender.empty()) {
    line = nameOfSender(message.sender, facts) + ": ";
  }
  if (!message.text) {
    return line.append(kNewMessage);
  }
  return line.append(message.text->empty() ? kAttachment : std::string_view(*message.text));
}

}  // namespace

ZephylRef groupMasking(const CKConversationRef& conversation) {
  const auto store = ZephylsDataController::sharedInstance();
  const auto addressBook = host().addressBook();
  for (const ZephylRef& group : store->enabledUserCreatedZephyls()) {
    if (group->shouldHideConversationsOnLockScreen() &&
        store->membershipOf(group, conversation, addressBook).isShown()) {
      return group;
    }
  }
  return nullptr;
}

void Announcer::announce(const std::vector<NewMessage>& messages) {
  // The shared settings are those of the start, and the user may have changed his mind since.
  if (messages.empty() || !ZPSettings().isZephylsEnabled()) {
    return;
  }
  std::vector<Bundle> bundles = bundlesOf(messages);
  findConversations(bundles);
  const bool groupsAreKnown = refreshGroups();
  if (messages.size() > kMostMessages) {
    show_(noticeOfAll(bundles, messages.size(), groupsAreKnown));
    return;
  }
  for (const Bundle& bundle : bundles) {
    show_(noticeOf(bundle, groupsAreKnown));
  }
}

// In the order of the first message of each.
std::vector<Announcer::Bundle> Announcer::bundlesOf(const std::vector<NewMessage>& messages) const {
  std::vector<Bundle> bundles;
  std::unordered_map<std::string_view, std::size_t> indexes;
  for (const NewMessage& message : messages) {
    const auto [index, isNew] = indexes.try_emplace(message.chatGuid, bundles.size());
    if (isNew) {
      bundles.push_back({.guid = message.chatGuid, .conversation = nullptr, .messages = {}});
    }
    bundles[index->second].messages.push_back(&message);
  }
  return bundles;
}

// None when they cannot be read: those that are known may hold others by now.
void Announcer::findConversations(std::vector<Bundle>& bundles) const {
  try {
    readConversations_();
  } catch (const std::exception& error) {
    host().systemLog().log(error.what());
    return;
  }
  std::unordered_map<std::string_view, CKConversationRef> known;
  const CKConversationArray conversations = host().conversationList().conversations();
  for (const CKConversationRef& conversation : conversations) {
    known.try_emplace(conversation->guid(), conversation);
  }
  for (Bundle& bundle : bundles) {
    const auto found = known.find(bundle.guid);
    bundle.conversation = found == known.end() ? nullptr : found->second;
  }
}

// Whether the store holds what the groups file holds. Others write that file while this process
// runs, and a save that is under way leaves it unreadable for a moment.
bool Announcer::refreshGroups() {
  const auto store = ZephylsDataController::sharedInstance();
  const auto stored = store->getAllGroups();
  if (!stored) {
    groups_.reset();
    return !host().files().fileExistsAtPath(kGroupsFilePath);
  }
  if (stored != groups_) {
    store->reloadAllZephyls();
    groups_ = stored;
  }
  return stored->empty() || !store->allZephyls()->empty();
}

DesktopNotice Announcer::noticeOf(const Bundle& bundle, bool groupsAreKnown) {
  DesktopNotice notice{
      .about = bundle.guid, .title = std::string(kProgram), .body = std::string(kNewMessage)};
  if (!groupsAreKnown || bundle.conversation == nullptr) {
    return notice;
  }
  if (const ZephylRef group = groupMasking(bundle.conversation)) {
    notice.body = group->maskedMessage();
    return notice;
  }
  const CKConversation::Facts& facts = bundle.conversation->facts();
  notice.title = facts.name;
  notice.body.clear();
  for (const NewMessage* message : bundle.messages) {
    notice.body.append(notice.body.empty() ? "" : "\n").append(lineOf(*message, facts));
  }
  return notice;
}

// Names no one when any of the conversations is masked: who is missing would give that one away.
DesktopNotice Announcer::noticeOfAll(const std::vector<Bundle>& bundles, std::size_t messages,
                                     bool groupsAreKnown) {
  DesktopNotice notice{.about = "new messages", .title = std::string(kProgram), .body = {}};
  notice.body.append(std::to_string(messages)).append(" new messages in ");
  notice.body.append(std::to_string(bundles.size()));
  notice.body.append(bundles.size() == 1 ? " conversation" : " conversations");
  const bool mayName =
      groupsAreKnown && std::all_of(bundles.begin(), bundles.end(), [](const Bundle& bundle) {
        return bundle.conversation != nullptr && groupMasking(bundle.conversation) == nullptr;
      });
  for (std::size_t index = 0; mayName && index < std::min(bundles.size(), kMostNames); ++index) {
    notice.body.append(index == 0 ? "\n" : ", ").append(bundles[index].conversation->facts().name);
  }
  if (mayName && bundles.size() > kMostNames) {
    notice.body.append(", …");
  }
  return notice;
}

}  // namespace zephyl::app
