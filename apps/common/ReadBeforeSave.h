// A message center that keeps groups from being lost when their owner goes away between two
// messages: whoever asked for the groups and got no reply takes them for none, and would save that.
// Any thread.

#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>

#include "platform/appsupport/CPDistributedMessagingCenter.h"

namespace zephyl {
class SystemLog;
}

namespace zephyl::app {

class ReadBeforeSave : public CPDistributedMessagingCenter {
 public:
  // `log` must outlive this.
  ReadBeforeSave(std::unique_ptr<CPDistributedMessagingCenter> center, SystemLog& log);

  // As the center's own. But groups are not sent to be saved while the last request for them had no
  // reply, or one with something else: there is no reply then either, and a line in the log. A
  // reply without groups counts, since there may be none.
  std::optional<Dictionary> sendMessageAndReceiveReplyName(const std::string& center,
                                                           const std::string& name,
                                                           const Dictionary* userInfo) override;

 private:
  const std::unique_ptr<CPDistributedMessagingCenter> center_;
  SystemLog& log_;
  std::atomic<bool> wasUnanswered_ = false;
};

}  // namespace zephyl::app
