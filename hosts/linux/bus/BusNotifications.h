// System-wide notifications that reach every process of the user that listens for the same device:
// signals on the message bus. Without a bus they reach this process only.
//
// A session bus lets in nobody but its user, so who sends is not looked at. Any thread but for the
// constructor and destructor, which are of the main thread.

#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string>

#include "platform/foundation/DarwinNotificationCenter.h"

#include "hosts/common/InProcessNotifications.h"

namespace zephyl {
class Dispatch;
class SystemLog;
}  // namespace zephyl

namespace zephyl::linux_host {

class PostedSignals;
class SessionBus;

inline constexpr char kNotifyInterface[] = "com.vantor.zephyls.DarwinNotify";
inline constexpr char kPostedSignal[] = "Posted";

class BusNotifications : public DarwinNotificationCenter {
 public:
  // Callbacks run on the main queue of `dispatch`, which must run none of its tasks once this is
  // gone. `path` is that of the signals: those of other paths are not heard. `log` must outlive
  // this. Connects when the first notification is posted or the first observer added.
  BusNotifications(std::shared_ptr<SessionBus> bus, std::string path, Dispatch& dispatch,
                   SystemLog& log);

  // Waits until the bus has all that was posted, so that a program may end after it.
  ~BusNotifications() override;
  BusNotifications(const BusNotifications&) = delete;
  BusNotifications& operator=(const BusNotifications&) = delete;

  // Reaches the observers of this process directly, and only once. A bus that has gone leaves one
  // line in the log.
  void post(const std::string& name) override;

  // Hears everything that is posted once it has returned.
  std::uint64_t addObserver(const std::string& name, std::function<void()> callback) override;
  void removeObserver(std::uint64_t observer) override;

 private:
  void listen();

  const std::shared_ptr<SessionBus> bus_;
  const std::string path_;
  SystemLog& log_;
  InProcessNotifications observers_;
  std::unique_ptr<PostedSignals> signals_;
  std::once_flag listening_;
  std::atomic<bool> hasPosted_ = false;
  std::atomic<bool> isLossTold_ = false;
};

}  // namespace zephyl::linux_host
