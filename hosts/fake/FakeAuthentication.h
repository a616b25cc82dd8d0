// Biometrics that answer as a test says.

#pragma once

#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include "platform/localauthentication/LAContext.h"

#include "hosts/fake/FakeDispatch.h"

namespace zephyl::fake {

class FakeAuthentication : public LAContext {
 public:
  // Replies run on threads of `dispatch`, which must outlive this.
  explicit FakeAuthentication(FakeDispatch& dispatch) : dispatch_(dispatch) {}

  bool canEvaluatePolicy(LAPolicy policy, NSError* error) override;
  void evaluatePolicy(LAPolicy policy, const std::string& localizedReason, Reply reply) override;
  void setLocalizedFallbackTitle(const std::string& title) override;

  void setAvailable(bool available);

  // Answers the check that waits, the oldest first, on a thread of its own, and returns when the
  // reply has run. Asserts that one waits. Main thread.
  void answer(bool success, const NSError* error = nullptr);
  [[nodiscard]] bool isWaiting();

  // How often it was asked whether a check could be made.
  [[nodiscard]] int questions();
  // Of the last question: its thread, its policy, and whether it had a place for an error.
  [[nodiscard]] std::thread::id questionedOn();
  [[nodiscard]] std::optional<LAPolicy> questionedPolicy();
  [[nodiscard]] bool questionedForError();
  // The reason given with the newest check.
  [[nodiscard]] std::string reason();
  [[nodiscard]] std::string fallbackTitle();

 private:
  FakeDispatch& dispatch_;
  std::mutex mutex_;
  bool available_ = true;
  int questions_ = 0;
  std::thread::id questionedOn_;
  std::optional<LAPolicy> questionedPolicy_;
  bool questionedForError_ = false;
  std::string reason_;
  std::string fallbackTitle_ = "Enter Password";
  std::deque<Reply> waiting_;
};

}  // namespace zephyl::fake
