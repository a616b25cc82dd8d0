// Decides what a desktop notice says about new messages: the name and the text, or the masked text
// of a group that wants it so, or nothing at all.
//
// By the installed host and the store of groups, on the main thread. Made for a process that runs
// long: settings and groups are those of the files as they are now.

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/chatkit/CKConversation.h"
#include "platform/foundation/Value.h"

#include "hosts/linux/messages/NewMessages.h"
#include "hosts/linux/notices/DesktopNotices.h"
#include "model/Zephyl.h"

namespace zephyl::app {

// The group whose masked text stands in the place of the name and the text of this conversation's
// messages: the first enabled group of the user, in the order of the store, that holds it and has
// its switch for the lock screen on. Null when there is none.
[[nodiscard]] ZephylRef groupMasking(const CKConversationRef& conversation);

class Announcer {
 public:
  // More messages than these are told of in one notice.
  static constexpr std::size_t kMostMessages = linux_host::NewMessages::kMostTexts;

  using Show = std::function<void(linux_host::DesktopNotice)>;

  // `readConversations` reads people and the list of the host anew and may throw std::exception. It
  // is called for each announcement: who takes part, and who is who, may have changed meanwhile.
  Announcer(std::function<void()> readConversations, Show show)
      : readConversations_(std::move(readConversations)), show_(std::move(show)) {}

  // One notice a conversation, about its GUID. Nothing while the extension is switched off.
  //
  // Where it cannot be told whether a group masks a message, because the groups cannot be read or
  // the conversations cannot, or this one is nowhere to be found, the notice says no more than that
  // there is one.
  void announce(const std::vector<linux_host::NewMessage>& messages);

 private:
  // The new messages of one conversation, in order; null when it is unknown.
  struct Bundle {
    std::string guid;
    CKConversationRef conversation;
    std::vector<const linux_host::NewMessage*> messages;
  };

  [[nodiscard]] std::vector<Bundle> bundlesOf(
      const std::vector<linux_host::NewMessage>& messages) const;
  void findConversations(std::vector<Bundle>& bundles) const;
  [[nodiscard]] bool refreshGroups();
  [[nodiscard]] static linux_host::DesktopNotice noticeOf(const Bundle& bundle,
                                                          bool groupsAreKnown);
  [[nodiscard]] static linux_host::DesktopNotice noticeOfAll(const std::vector<Bundle>& bundles,
                                                             std::size_t messages,
                                                             bool groupsAreKnown);

  const std::function<void()> readConversations_;
  const Show show_;
  // What the store was last filled from.
  std::optional<Array> groups_;
};

}  // namespace zephyl::app
