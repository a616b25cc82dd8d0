// What the tests of the fingerprint reader share: a system bus of the test's own, a clock that the
// test moves, the checks with their answers and the prompts shown meanwhile.

#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/fingerprint/FprintAuthentication.h"
#include "hosts/linux/fingerprint/FprintMock_testing.h"
#include "hosts/linux/testing/PrivateBus.h"

namespace zephyl::test {

inline constexpr LAPolicy kPolicy = LAPolicy::kDeviceOwnerAuthenticationWithBiometrics;

// No answer came.
inline constexpr std::int64_t kNever = -1000;

struct CheckAnswer {
  std::int64_t code = 0;  // 0: the owner was recognized
  std::string domain;
  std::string sentence;
  std::thread::id thread;
};

// One check: asked at once, its answer waited for when it is wanted.
class AskedCheck {
 public:
  AskedCheck(LAContext& context, const std::string& reason)
      : answer_(promise_->get_future().share()) {
    context.evaluatePolicy(
        kPolicy, reason,
        [promise = promise_, replies = replies_](bool success, const NSError* error) {
          ++*replies;
          promise->set_value({error == nullptr ? (success ? 0 : kNever) : error->code(),
                              error == nullptr ? "" : error->domain(),
                              error == nullptr ? "" : error->localizedDescription(),
                              std::this_thread::get_id()});
        });
  }

  [[nodiscard]] CheckAnswer answer() const {
    if (answer_.wait_for(std::chrono::seconds(20)) != std::future_status::ready) {
      ADD_FAILURE() << "no answer";
      return {kNever, "", "", {}};
    }
    return answer_.get();
  }
  [[nodiscard]] bool isAnswered() const {
    return answer_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
  }
  [[nodiscard]] int replies() const { return *replies_; }

 private:
  std::shared_ptr<std::atomic<int>> replies_ = std::make_shared<std::atomic<int>>(0);
  std::shared_ptr<std::promise<CheckAnswer>> promise_ =
      std::make_shared<std::promise<CheckAnswer>>();
  std::shared_future<CheckAnswer> answer_;
};

class FprintTest : public ::testing::Test {
 protected:
  using Kind = linux_host::FprintPrompt::Kind;
  using Prompts = std::vector<std::pair<Kind, std::string>>;
  using Calls = std::vector<std::string>;

  [[nodiscard]] linux_host::FprintOptions options() {
    linux_host::FprintOptions options;
    options.busAddress = bus_.address();
    options.prompt = [this](const linux_host::FprintPrompt& prompt) {
      const std::lock_guard lock(mutex_);
      prompts_.emplace_back(prompt.kind, prompt.text);
      prompted_.notify_all();
    };
    options.now = [this] {
      return std::chrono::steady_clock::time_point(std::chrono::seconds(1000 + seconds_));
    };
    return options;
  }

  [[nodiscard]] Prompts prompts() const {
    const std::lock_guard lock(mutex_);
    return prompts_;
  }

  // Whether the reader waits for a finger by the end of a generous time.
  [[nodiscard]] bool waitForQuestion() {
    std::unique_lock lock(mutex_);
    return prompted_.wait_for(lock, std::chrono::seconds(20), [&] { return !prompts_.empty(); });
  }

  void passSeconds(int seconds) { seconds_ += seconds; }

  PrivateBus bus_{PrivateBus::Kind::kSystem};

 private:
  mutable std::mutex mutex_;
  std::condition_variable prompted_;
  Prompts prompts_;
  std::atomic<int> seconds_ = 0;
};

}  // namespace zephyl::test
