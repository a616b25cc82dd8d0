// A list of conversations that somebody else fills. What a group shows is decided by a function
// that is given, since a host knows no rules. Any thread.

#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "platform/chatkit/CKConversationList.h"

namespace zephyl {

class FilteredConversationList : public CKConversationList {
 public:
  // Runs on the thread that asks, without a lock.
  using Shows = std::function<bool(const std::shared_ptr<Zephyl>&, const CKConversationRef&)>;

  CKConversationArray conversations() override;
  CKConversationArray filteredConversationsByZephyl(const std::shared_ptr<Zephyl>& zephyl) override;

  CKConversationRef conversationForExistingChatWithGUID(const std::string& guid) override;
  void shouldShowAllConversations(bool all) override;
  CKConversationArray listedConversations() override;

  // Which group the user is in; null for none. Runs like `Shows`. Without one, all are listed.
  using ActiveGroup = std::function<std::shared_ptr<Zephyl>()>;
  void setActiveGroup(ActiveGroup activeGroup);
  [[nodiscard]] bool isShowingAllConversations();

  // The most recent first.
  void setConversations(CKConversationArray conversations);

  // Without one every group shows everything.
  void setShows(Shows shows);

 private:
  std::mutex mutex_;
  // Never changed, only replaced, so that those who walk it need no lock.
  std::shared_ptr<const CKConversationArray> conversations_ =
      std::make_shared<const CKConversationArray>();
  Shows shows_;
  ActiveGroup activeGroup_;
  bool showsAll_ = false;
};

}  // namespace zephyl
