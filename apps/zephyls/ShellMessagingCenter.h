// The message center as a program of the user reaches it: the system shell answers, which is
// started when a message is sent and none is there. Where none can be had, this process answers
// itself. A shell that hangs is waited for once in a run. Any thread.

#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "platform/appsupport/CPDistributedMessagingCenter.h"

#include "apps/common/ShellAddress.h"
#include "apps/zephyls/ShellStart.h"
#include "hosts/linux/bus/BusMessagingCenter.h"

namespace zephyl::linux_host {
struct DeviceOptions;
class SessionBus;
}  // namespace zephyl::linux_host

namespace zephyl::app {

class ShellMessagingCenter : public CPDistributedMessagingCenter {
 public:
  // Called at most once, on the thread of a sender.
  using Tell = std::function<void(const std::string& message)>;

  // `inProcess` and `log` must outlive this.
  ShellMessagingCenter(std::shared_ptr<linux_host::SessionBus> bus, const ShellAddress& address,
                       ShellStart::Options start, CPDistributedMessagingCenter& inProcess,
                       SystemLog& log, Tell tell,
                       linux_host::BusMessagingCenter::Limits limits = {});

  // Nothing, at once, after a request that the shell did not answer in time: it may have the groups
  // in hand, so nobody else may touch them.
  std::optional<Dictionary> sendMessageAndReceiveReplyName(const std::string& center,
                                                           const std::string& name,
                                                           const Dictionary* userInfo) override;

 private:
  [[nodiscard]] bool isServed();

  const std::shared_ptr<linux_host::SessionBus> bus_;
  const std::string center_;
  CPDistributedMessagingCenter& inProcess_;
  const Tell tell_;
  linux_host::BusMessagingCenter overBus_;
  std::mutex starting_;
  ShellStart start_;
  std::atomic<bool> wasServed_ = false;
  std::atomic<bool> staysInProcess_ = false;
  std::atomic<bool> hangs_ = false;
};

// With a message bus of the session: messages go to the shell of the device, and notifications to
// every process of the user. Without one the device stays as it is; false then. After `deviceRoot`
// and `systemVersion` are filled in.
bool reachShell(linux_host::DeviceOptions& options, ShellMessagingCenter::Tell tell);

}  // namespace zephyl::app
