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
