// Tells when an unlock should end: the desktop locks, the machine goes to sleep, or a bus goes away
// that would have said so.
//
// Lives on the thread that made it, which runs an event loop. Whoever can send signals on the buses
// can make it tell; the worst that comes of it is one more question for a finger.

#pragma once

#include <functional>
#include <memory>
#include <string>

namespace zephyl::linux_host {

enum class UnlockEnd { kLocked, kAsleep, kBusLost };

class UnlockWatcher {
 public:
  using Ended = std::function<void(UnlockEnd why)>;

  // `ended` runs on the thread of the object, perhaps several times for one lock. Addresses that
  // are empty mean the buses of the environment. Works with either bus missing; one that comes
  // later is not found.
  explicit UnlockWatcher(Ended ended, const std::string& systemBus = "",
                         const std::string& sessionBus = "");
  ~UnlockWatcher();
  UnlockWatcher(const UnlockWatcher&) = delete;
  UnlockWatcher& operator=(const UnlockWatcher&) = delete;

 private:
  class Signals;

  std::unique_ptr<Signals> signals_;
};

}  // namespace zephyl::linux_host
