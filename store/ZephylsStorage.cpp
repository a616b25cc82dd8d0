#include "store/ZephylsStorage.h"

#include "platform/Host.h"
#include "platform/appsupport/CPDistributedMessagingCenter.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/foundation/PropertyListFile.h"

#include "model/ZPLocalizedText.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"

namespace zephyl {

namespace {

// From version 12 on only the system shell touches the groups file.
bool goesThroughMessages() {
  return ZPUtils::isIOS12() && host().processInfo().bundleIdentifier() != "com.apple.springboard";
}

Value askMessageCenter(const char* message, const Dictionary* userInfo) {
  const auto reply = host().messagingCenter().sendMessageAndReceiveReplyName(kZephylsMessageCenter,
                                                                             message, userInfo);
  return reply ? (*reply)[kServiceMessageData] : Value();
}

}  // namespace

std::optional<Array> ZephylsStorage::getAllGroups() {
  if (!goesThroughMessages()) {
    return arrayWithContentsOfFile(kGroupsFilePath);
  }
  const Value groups = askMessageCenter(kGetGroupsMessage, nullptr);
  return groups.ifArray() == nullptr ? std::nullopt : std::optional(*groups.ifArray());
}

bool ZephylsStorage::saveGroupsDataToDisk(const Array& groups) {
  if (!goesThroughMessages()) {
    return writeToFile(groups, kGroupsFilePath);
  }
  const Dictionary userInfo{{kServiceMessageData, groups}};
  return askMessageCenter(kSaveGroupsMessage, &userInfo).boolValue();
}

std::shared_ptr<NSBundle> ZephylsStorage::zephylsBundle() {
  auto bundle = zephylsBundle_.load();
  if (bundle == nullptr) {
    bundle = NSBundle::bundleWithPath(kZephylsSettingsBundlePath);
    if (bundle != nullptr) {
      bundle->load();
      zephylsBundle_.store(bundle);
    }
  }
  return bundle;
}

}  // namespace zephyl
