// A message center whose servers are parts of this process. Requests and replies take the form in
// which they would go from process to process. Any thread.

#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

#include "platform/appsupport/CPDistributedMessagingCenter.h"

namespace zephyl {
class SystemLog;
}  // namespace zephyl

namespace zephyl::linux_host {

class InProcessMessagingCenter : public CPDistributedMessagingCenter {
 public:
  // Runs on the thread of the sender, without a lock; `userInfo` may be null and lives for the
  // call.
  using Handler = std::function<std::optional<Dictionary>(const Dictionary* userInfo)>;

  // What a message bus takes at most, with a little to spare.
  static constexpr std::size_t kMaximumBytes = 60'000'000;

  // A request or reply larger than `maximumBytes` is not passed on: there is no reply, and a line
  // in `log`, which must outlive this.
  explicit InProcessMessagingCenter(SystemLog& log, std::size_t maximumBytes = kMaximumBytes)
      : log_(log), maximumBytes_(maximumBytes) {}

  // An empty handler takes the message's away.
  void setHandler(const std::string& center, const std::string& name, Handler handler);

  std::optional<Dictionary> sendMessageAndReceiveReplyName(const std::string& center,
                                                           const std::string& name,
                                                           const Dictionary* userInfo) override;

 private:
  using Key = std::pair<std::string, std::string>;  // center and name

  [[nodiscard]] Handler handlerFor(const Key& key);
  // As it arrives; nothing when it cannot be sent.
  [[nodiscard]] std::optional<Dictionary> overTheWire(const Dictionary& dictionary,
                                                      const std::string& what);

  SystemLog& log_;
  const std::size_t maximumBytes_;
  std::mutex mutex_;
  std::map<Key, Handler> handlers_;
};

}  // namespace zephyl::linux_host
