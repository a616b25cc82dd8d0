// The thread on which the fingerprint checks of one context run, one after another. Internal to
// FprintAuthentication.

#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "platform/localauthentication/LAContext.h"

#include "hosts/linux/fingerprint/FingerprintLockout.h"
#include "hosts/linux/fingerprint/FprintAuthentication.h"

namespace zephyl::linux_host {

class FprintCheck;

// Made with the first check. The thread holds what it needs itself, since a reply may let go of the
// context.
class FprintAuthentication::Service {
 public:
  explicit Service(FprintOptions options);

  // Cancels, and waits unless on the thread itself.
  ~Service();
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;

  void check(std::string reason, Reply reply);
  void cancel(std::int64_t code);

  [[nodiscard]] std::uint64_t checksEnded() const { return state_->ended; }

 private:
  struct Asked {
    std::string reason;
    Reply reply;
    std::int64_t cancelCode = 0;
  };

  struct State {
    FprintOptions options;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Asked> asked;
    FprintCheck* running = nullptr;
    bool closing = false;
    FingerprintLockout lockout;  // the thread's own
    std::atomic<std::uint64_t> ended = 0;
  };

  static void serve(State& state);
  static void cancelAll(State& state, std::int64_t code);
  [[nodiscard]] static std::optional<NSError> outcomeOf(FprintCheck& check, State& state);

  std::shared_ptr<State> state_;
  std::thread thread_;
};

}  // namespace zephyl::linux_host
