#include "hosts/common/FilteredConversationList.h"

#include <algorithm>
#include <iterator>

namespace zephyl {

CKConversationArray FilteredConversationList::conversations() {
  const std::lock_guard lock(mutex_);
  return *conversations_;
}

CKConversationArray FilteredConversationList::filteredConversationsByZephyl(
    const std::shared_ptr<Zephyl>& zephyl) {
  std::shared_ptr<const CKConversationArray> all;
  Shows shows;
  {
    const std::lock_guard lock(mutex_);
    all = conversations_;
    shows = shows_;
  }
  if (!shows) {
    return *all;
  }
  CKConversationArray shown;
  std::copy_if(all->begin(), all->end(), std::back_inserter(shown),
               [&](const CKConversationRef& conversation) { return shows(zephyl, conversation); });
  return shown;
}

CKConversationRef FilteredConversationList::conversationForExistingChatWithGUID(
    const std::string& guid) {
  std::shared_ptr<const CKConversationArray> all;
  {
    const std::lock_guard lock(mutex_);
    all = conversations_;
  }
  const auto found = std::find_if(
      all->begin(), all->end(),
      [&guid](const CKConversationRef& conversation) { return conversation->guid() == guid; });
  return found == all->end() ? nullptr : *found;
}

void FilteredConversationList::shouldShowAllConversations(bool all) {
  const std::lock_guard lock(mutex_);
  showsAll_ = all;
}

bool FilteredConversationList::isShowingAllConversations() {
  const std::lock_guard lock(mutex_);
  return showsAll_;
}

CKConversationArray FilteredConversationList::listedConversations() {
  ActiveGroup activeGroup;
  {
    const std::lock_guard lock(mutex_);
    if (!showsAll_) {
      activeGroup = activeGroup_;
    }
  }
  const auto group = activeGroup ? activeGroup() : nullptr;
  return group == nullptr ? conversations() : filteredConversationsByZephyl(group);
}

void FilteredConversationList::setActiveGroup(ActiveGroup activeGroup) {
  const std::lock_guard lock(mutex_);
  activeGroup_ = std::move(activeGroup);
}

void FilteredConversationList::setConversations(CKConversationArray conversations) {
  auto next = std::make_shared<const CKConversationArray>(std::move(conversations));
  const std::lock_guard lock(mutex_);
  conversations_ = std::move(next);
}

void FilteredConversationList::setShows(Shows shows) {
  const std::lock_guard lock(mutex_);
  shows_ = std::move(shows);
}

}  // namespace zephyl
