// The system shell: the one process that owns the groups of a device. Answers the message center on
// the session bus, and announces new messages while it stays.
//
// Made and run on the thread of the QCoreApplication.

#pragma once

#include <QTimer>
#include <memory>
#include <string>

#include "apps/common/Places.h"
#include "apps/common/ShellAddress.h"
#include "apps/common/UserData.h"
#include "apps/springboard/ShellOptions.h"
#include "hosts/linux/LinuxSystemLog.h"

namespace zephyl::linux_host {
class DesktopNotices;
class LinuxDevice;
class MessageCenterService;
class SessionBus;
}  // namespace zephyl::linux_host

namespace zephyl::app {

class MessageAnnouncements;

class Shell {
 public:
  // Throws CommandError, as `run`. `options` must outlive this.
  explicit Shell(const ShellOptions& options);
  ~Shell();
  Shell(const Shell&) = delete;
  Shell& operator=(const Shell&) = delete;

  // Serves until it is told to end, or nobody has asked for long enough: then gives the exit
  // status. What was asked by then is answered. Returns at once when another process serves the
  // device.
  [[nodiscard]] int run();

 private:
  // Whether the device is this process's to serve.
  [[nodiscard]] bool isFirst();
  void makeDevice();
  void makeNotices(const std::string& busAddress);
  void announce();
  void restartIdleTimer();
  [[nodiscard]] bool announces() const;

  const ShellOptions& options_;
  const Places places_;
  const ShellAddress address_;
  linux_host::LinuxSystemLog log_;
  UserData userData_;
  QTimer idle_;
  std::shared_ptr<linux_host::SessionBus> bus_;
  std::unique_ptr<linux_host::MessageCenterService> service_;
  // The device's log tells of them, until it goes.
  std::unique_ptr<linux_host::DesktopNotices> notices_;
  std::unique_ptr<linux_host::LinuxDevice> device_;
  std::unique_ptr<MessageAnnouncements> announcements_;
};

}  // namespace zephyl::app
