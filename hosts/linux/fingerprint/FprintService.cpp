#include "hosts/linux/fingerprint/FprintService.h"

#include <utility>

#include "hosts/linux/ScriptedAuthentication.h"
#include "hosts/linux/fingerprint/FprintCheck.h"
#include "hosts/linux/fingerprint/FprintProtocol.h"

namespace zephyl::linux_host {

namespace {

NSError lockoutError(std::chrono::steady_clock::duration left) {
  const auto seconds = std::chrono::ceil<std::chrono::seconds>(left).count();
  return fingerprintError(kBiometryLockout, std::string("Too many fingers did not match. Try again "
                                                        "in ")
                                                .append(std::to_string(seconds))
                                                .append(seconds == 1 ? " second." : " seconds."));
}

}  // namespace

FprintAuthentication::Service::Service(FprintOptions options) : state_(std::make_shared<State>()) {
  state_->options = std::move(options);
}

FprintAuthentication::Service::~Service() {
  {
    const std::lock_guard lock(state_->mutex);
    state_->closing = true;
    cancelAll(*state_, kSystemCancel);
  }
  state_->changed.notify_one();
  if (thread_.get_id() == std::this_thread::get_id()) {
    thread_.detach();
  } else if (thread_.joinable()) {
    thread_.join();
  }
}

void FprintAuthentication::Service::check(std::string reason, Reply reply) {
  const std::lock_guard lock(state_->mutex);
  state_->asked.push_back({std::move(reason), std::move(reply)});
  if (!thread_.joinable()) {
    thread_ = std::thread([state = state_] { serve(*state); });
  }
  state_->changed.notify_one();
}

void FprintAuthentication::Service::cancel(std::int64_t code) {
  const std::lock_guard lock(state_->mutex);
  cancelAll(*state_, code);
}

// Under the lock. The first cancellation of a check counts.
void FprintAuthentication::Service::cancelAll(State& state, std::int64_t code) {
  for (Asked& asked : state.asked) {
    if (asked.cancelCode == 0) {
      asked.cancelCode = code;
    }
  }
  if (state.running != nullptr) {
    state.running->cancel(code);
  }
}

void FprintAuthentication::Service::serve(State& state) {
  std::unique_lock lock(state.mutex);
  for (;;) {
    state.changed.wait(lock, [&] { return state.closing || !state.asked.empty(); });
    if (state.asked.empty()) {
      return;
    }
    Asked next = std::move(state.asked.front());
    state.asked.pop_front();
    std::optional<FprintCheck> check(std::in_place, state.options, std::move(next.reason));
    check->cancel(next.cancelCode);
    state.running = &*check;
    lock.unlock();
    const std::optional<NSError> error = outcomeOf(*check, state);
    lock.lock();
    state.running = nullptr;
    lock.unlock();
    check.reset();
    ++state.ended;
    next.reply(!error, error ? &*error : nullptr);
    next.reply = nullptr;
    lock.lock();
  }
}

std::optional<NSError> FprintAuthentication::Service::outcomeOf(FprintCheck& check, State& state) {
  const auto left = state.lockout.left(state.options.now());
  if (left > left.zero()) {
    return lockoutError(left);
  }
  std::optional<NSError> error = check.run();
  if (!error) {
    state.lockout.succeeded();
  } else if (error->code() == kAuthenticationFailed) {
    state.lockout.failed(state.options.now());
  }
  return error;
}

}  // namespace zephyl::linux_host
