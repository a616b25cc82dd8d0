#include "apps/zephyls/ShellMessagingCenter.h"

#include <utility>

#include "apps/common/ReadBeforeSave.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/SessionBusAddress.h"
#include "hosts/linux/bus/BusNotifications.h"
#include "hosts/linux/bus/SessionBus.h"

namespace zephyl::app {

ShellMessagingCenter::ShellMessagingCenter(std::shared_ptr<linux_host::SessionBus> bus,
                                           const ShellAddress& address, ShellStart::Options start,
                                           CPDistributedMessagingCenter& inProcess, SystemLog& log,
                                           Tell tell, linux_host::BusMessagingCenter::Limits limits)
    : bus_(std::move(bus)),
      center_(address.center.center),
      inProcess_(inProcess),
      tell_(std::move(tell)),
      overBus_(bus_, address.center, log, limits),
      start_(bus_, overBus_, address, std::move(start)) {}

bool ShellMessagingCenter::isServed() {
  const std::lock_guard lock(starting_);
  if (staysInProcess_ || !bus_->wasConnected()) {
    return false;
  }
  if (const auto reason = start_.whyNotServed()) {
    staysInProcess_ = true;
    tell_("the system shell cannot be started: " + *reason +
          "; the groups are read and written "
          "without it");
    return false;
  }
  wasServed_ = true;
  return true;
}

std::optional<Dictionary> ShellMessagingCenter::sendMessageAndReceiveReplyName(
    const std::string& center, const std::string& name, const Dictionary* userInfo) {
  // A shell that was idle has ended: it has not seen the message, and another takes its place.
  constexpr int kTries = 2;
  bool mustLook = !wasServed_;
  for (int i = 0; i < kTries; ++i) {
    if (staysInProcess_ || center != center_ || (mustLook && !isServed())) {
      break;
    }
    if (hangs_) {
      return std::nullopt;
    }
    auto answer = overBus_.ask(name, userInfo);
    if (!answer.isInTime && !hangs_.exchange(true)) {
      tell_("the system shell does not answer; it is not asked again");
    }
    if (answer.isServed) {
      return std::move(answer.reply);
    }
    mustLook = true;
  }
  return inProcess_.sendMessageAndReceiveReplyName(center, name, userInfo);
}

bool reachShell(linux_host::DeviceOptions& options, ShellMessagingCenter::Tell tell) {
  const auto busAddress = linux_host::sessionBusAddress();
  if (!busAddress) {
    return false;
  }
  const auto bus = std::make_shared<linux_host::SessionBus>(*busAddress);
  const ShellAddress address = shellAddressOf(options.deviceRoot);
  options.makeMessagingCenter = [bus, address, version = options.systemVersion,
                                 tell = std::move(tell)](CPDistributedMessagingCenter& inProcess,
                                                         SystemLog& log) {
    ShellStart::Options start;
    start.program = shellBesideThisProgram();
    start.iosVersion = version;
    return std::make_unique<ReadBeforeSave>(
        std::make_unique<ShellMessagingCenter>(bus, address, std::move(start), inProcess, log,
                                               tell),
        log);
  };
  options.makeNotifications = [bus, address](Dispatch& dispatch, SystemLog& log) {
    return std::make_unique<linux_host::BusNotifications>(bus, address.notifications, dispatch,
                                                          log);
  };
  return true;
}

}  // namespace zephyl::app
