// Loading and saving.

#include "store/ZephylsDataController.h"

#include <array>
#include <mutex>
#include <set>
#include <utility>

#include "platform/Host.h"
#include "platform/Once.h"
#include "platform/appsupport/CPDistributedMessagingCenter.h"
#include "platform/foundation/DarwinNotificationCenter.h"
#include "platform/foundation/NSNotificationCenter.h"

#include "model/ZephylKeys.h"

namespace zephyl {

namespace {

void postEverywhere(const std::string& name, NotificationUserInfo userInfo) {
  NSNotificationCenter::defaultCenter()->postNotificationName(name, std::move(userInfo));
  host().darwinNotifications().post(name);
}

// The system groups, in the order in which they are made.
ZephylVector makeSystemGroups(const std::set<std::int64_t>& present) {
  const std::array<std::pair<ZephylSystemMode, Dictionary>, 5> all = {
      {{ZephylSystemModeAll, Zephyl::allMessagesDictionaryRepresenation()},
       {ZephylSystemModeFavorites, Zephyl::allFavoritesDictionaryRepresenation(nullptr)},
       {ZephylSystemModeAllGroups, Zephyl::allGroupsDictionaryRepresenation()},
       {ZephylSystemModeUnknown, Zephyl::allUnknownDictionaryRepresenation()},
       {ZephylSystemModeKnown, Zephyl::allKnownDictionaryRepresenation()}}};
  ZephylVector made;
  for (const auto& [mode, dictionary] : all) {
    if (!present.contains(mode)) {
      made.push_back(std::make_shared<Zephyl>(dictionary));
    }
  }
  return made;
}

Array dictionariesOf(const ZephylVector& groups) {
  Array dictionaries;
  dictionaries.reserve(groups.size());
  for (const ZephylRef& group : groups) {
    dictionaries.emplace_back(group->dictionaryRepresentation());
  }
  return dictionaries;
}

// Many at once, since each change of the list copies it.
void appendAndLoad(ZephylArray& list, const ZephylVector& groups) {
  list.append(groups);
  for (const ZephylRef& group : groups) {
    if (group->isEnabled() && !group->isSystem()) {
      group->loadAffiliatedConversations(/*inBackground=*/!group->isActive());
    }
  }
}

}  // namespace

std::shared_ptr<ZephylsDataController> ZephylsDataController::sharedInstance() {
  static Once<ZephylsDataController> shared;
  auto store = shared.get([] { return std::make_shared<ZephylsDataController>(); });
  store->initializeOnce();
  return store;
}

void ZephylsDataController::initializeOnce() {
  if (initialized_) {
    return;
  }
  // Loading asks the host for conversations, and the host asks for the store again: the loading
  // thread passes, all others wait.
  const std::lock_guard lock(initialization_);
  if (!std::exchange(initializing_, true)) {
    initialize();
    initialized_ = true;
  }
}

ZephylsDataController::~ZephylsDataController() {
  NSNotificationCenter::defaultCenter()->removeObserver(this);
}

void ZephylsDataController::initialize() {
  loadZephyls();
}

void ZephylsDataController::loadZephyls() {
  const auto groups = std::make_shared<ZephylArray>();
  zephyls_.store(groups);
  const Array stored = getAllGroups().value_or(Array());
  ZephylVector read;
  for (const Value& element : stored) {
    // The file may hold anything; what is no group cannot be shown.
    if (element.ifDictionary() == nullptr) {
      continue;
    }
    read.push_back(std::make_shared<Zephyl>(*element.ifDictionary()));
    // A load on this thread may look at the list, which then ends with this group.
    if (read.back()->isActive()) {
      appendAndLoad(*groups, std::exchange(read, {}));
    }
  }
  appendAndLoad(*groups, read);
  updateGroupsHasHideConvosStatus();
}

void ZephylsDataController::reloadAllZephyls() {
  zephyls_.load()->removeAll();
  loadZephyls();
}

bool ZephylsDataController::saveEveryGroup() {
  const auto groups = zephyls_.load()->snapshot();
  return saveGroupsDataToDisk(dictionariesOf(*groups));
}

bool ZephylsDataController::saveAllGroupsToDisk(const ZephylRef& payload, bool postNotification,
                                                const std::string& notificationName) {
  const bool saved = saveEveryGroup();
  updateGroupsHasHideConvosStatus();
  updateGroupsForUnreadCountStatus();
  if (saved && postNotification) {
    postEverywhere(notificationName, payload == nullptr
                                         ? NotificationUserInfo()
                                         : NotificationUserInfo{{kZephylsKey, payload}});
  }
  return saved;
}

bool ZephylsDataController::saveAllNewGroupsToDisk(const ZephylVector& groups,
                                                   bool /*postNotification*/,
                                                   const std::string& notificationName) {
  if (groups.empty()) {
    return false;
  }
  zephyls_.load()->append(groups);
  const bool saved = saveEveryGroup();
  updateGroupsHasHideConvosStatus();
  // Kept: posted after a failed save too, and whatever the flag says.
  postEverywhere(notificationName, {});
  return saved;
}

void ZephylsDataController::createDefaultGroups() {
  const Array stored = getAllGroups().value_or(Array());
  if (stored.empty()) {
    // Kept: straight to the file, without the list and without a notification.
    saveGroupsDataToDisk(dictionariesOf(makeSystemGroups({})));
    return;
  }
  const auto groups = zephyls_.load()->snapshot();
  if (groups->empty()) {
    return;
  }
  std::set<std::int64_t> present;
  for (const ZephylRef& group : *groups) {
    present.insert(group->zephylSystemMode());
  }
  saveAllNewGroupsToDisk(makeSystemGroups(present), /*postNotification=*/true,
                         kZephylAddedNotification);
}

}  // namespace zephyl
