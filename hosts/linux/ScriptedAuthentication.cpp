#include "hosts/linux/ScriptedAuthentication.h"

#include <condition_variable>
#include <deque>
#include <thread>
#include <utility>

namespace zephyl::linux_host {

// The thread that asks, made with the first question. It holds what it needs itself, since a reply
// may let go of the context.
class ScriptedAuthentication::Service {
 public:
  explicit Service(Answer answer) : state_(std::make_shared<State>()) {
    state_->answer = std::move(answer);
  }

  ~Service() {
    {
      const std::lock_guard lock(state_->mutex);
      state_->closing = true;
    }
    state_->changed.notify_one();
    if (thread_.get_id() == std::this_thread::get_id()) {
      thread_.detach();
    } else if (thread_.joinable()) {
      thread_.join();
    }
  }
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;

  void ask(Question question, Reply reply) {
    const std::lock_guard lock(state_->mutex);
    state_->asked.push_back({std::move(question), std::move(reply)});
    if (!thread_.joinable()) {
      thread_ = std::thread([state = state_] { serve(*state); });
    }
    state_->changed.notify_one();
  }

 private:
  struct Asked {
    Question question;
    Reply reply;
  };

  struct State {
    Answer answer;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Asked> asked;
    bool closing = false;
  };

  static void serve(State& state) {
    std::unique_lock lock(state.mutex);
    for (;;) {
      state.changed.wait(lock, [&] { return state.closing || !state.asked.empty(); });
      if (state.asked.empty()) {
        return;
      }
      Asked next = std::move(state.asked.front());
      state.asked.pop_front();
      lock.unlock();
      const std::optional<NSError> error = state.answer(next.question);
      next.reply(!error, error ? &*error : nullptr);
      next.reply = nullptr;
      lock.lock();
    }
  }

  std::shared_ptr<State> state_;
  std::thread thread_;
};

namespace {

NSError failureWithCode(std::int64_t code) {
  return NSError(kAuthenticationErrorDomain, code);
}

std::optional<NSError> deny(const ScriptedAuthentication::Question& /*question*/) {
  return failureWithCode(kAuthenticationFailed);
}

std::optional<NSError> denyForWantOfReader(const ScriptedAuthentication::Question& /*question*/) {
  return failureWithCode(kBiometryNotAvailable);
}

}  // namespace

ScriptedAuthentication::ScriptedAuthentication(Answer answer)
    : service_(std::make_unique<Service>(answer ? std::move(answer) : Answer(deny))) {}

ScriptedAuthentication::~ScriptedAuthentication() = default;

bool ScriptedAuthentication::canEvaluatePolicy(LAPolicy /*policy*/, NSError* /*error*/) {
  return true;
}

void ScriptedAuthentication::evaluatePolicy(LAPolicy /*policy*/, const std::string& localizedReason,
                                            Reply reply) {
  std::string fallbackTitle;
  {
    const std::lock_guard lock(mutex_);
    fallbackTitle = fallbackTitle_;
  }
  service_->ask({localizedReason, std::move(fallbackTitle)}, std::move(reply));
}

void ScriptedAuthentication::setLocalizedFallbackTitle(const std::string& title) {
  const std::lock_guard lock(mutex_);
  fallbackTitle_ = title;
}

NoAuthentication::NoAuthentication() : ScriptedAuthentication(denyForWantOfReader) {}

bool NoAuthentication::canEvaluatePolicy(LAPolicy /*policy*/, NSError* error) {
  if (error != nullptr) {
    *error = failureWithCode(kBiometryNotAvailable);
  }
  return false;
}

}  // namespace zephyl::linux_host
