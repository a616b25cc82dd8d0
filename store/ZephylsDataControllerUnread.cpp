// Unread counts over all groups.

#include <set>
#include <string>

#include "platform/foundation/NSNotificationCenter.h"

#include "store/ZephylsDataController.h"

namespace zephyl {

void ZephylsDataController::updateUnreadMessageCountForZephyls() {
  const auto groups = zephyls_.load()->snapshot();
  for (const ZephylRef& group : *groups) {
    group->setRequiresUpdateForUnReadCount(true);
  }
  NSNotificationCenter::defaultCenter()->postNotificationName(kZephylDataUpdateNotification);
}

std::int64_t ZephylsDataController::unreadConversationsCountForOtherGroups(
    const ZephylRef& zephyl) {
  std::set<std::string> elsewhere;
  for (const ZephylRef& group : activeZephyls()) {
    const auto unread = group->unreadConversations();
    if (group != zephyl && unread != nullptr) {
      elsewhere.insert(unread->begin(), unread->end());
    }
  }
  if (const auto own = zephyl == nullptr ? nullptr : zephyl->unreadConversations()) {
    for (const std::string& guid : *own) {
      elsewhere.erase(guid);
    }
  }
  return static_cast<std::int64_t>(elsewhere.size());
}

}  // namespace zephyl
