#include "apps/common/ReadBeforeSave.h"

#include <utility>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/SystemLog.h"

#include "model/ZephylKeys.h"

namespace zephyl::app {

ReadBeforeSave::ReadBeforeSave(std::unique_ptr<CPDistributedMessagingCenter> center, SystemLog& log)
    : center_(std::move(center)), log_(log) {}

std::optional<Dictionary> ReadBeforeSave::sendMessageAndReceiveReplyName(
    const std::string& center, const std::string& name, const Dictionary* userInfo) {
  const bool isOfGroups = center == kZephylsMessageCenter;
  if (isOfGroups && name == kSaveGroupsMessage && wasUnanswered_) {
    log_.log("the groups are not saved, since they could not be read before");
    return std::nullopt;
  }
  auto reply = center_->sendMessageAndReceiveReplyName(center, name, userInfo);
  if (isOfGroups && name == kGetGroupsMessage) {
    const Value groups = reply ? (*reply)[kServiceMessageData] : Value();
    wasUnanswered_ = !reply || (!groups.isNull() && groups.ifArray() == nullptr);
  }
  return reply;
}

}  // namespace zephyl::app
