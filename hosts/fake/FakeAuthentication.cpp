#include "hosts/fake/FakeAuthentication.h"

#include <cassert>

namespace zephyl::fake {

bool FakeAuthentication::canEvaluatePolicy(LAPolicy policy, NSError* error) {
  const std::lock_guard lock(mutex_);
  ++questions_;
  questionedOn_ = std::this_thread::get_id();
  questionedPolicy_ = policy;
  questionedForError_ = error != nullptr;
  if (!available_ && error != nullptr) {
    *error = NSError("com.apple.LocalAuthentication", -6);
  }
  return available_;
}

void FakeAuthentication::evaluatePolicy(LAPolicy /*policy*/, const std::string& localizedReason,
                                        Reply reply) {
  const std::lock_guard lock(mutex_);
  reason_ = localizedReason;
  waiting_.push_back(std::move(reply));
}

void FakeAuthentication::setLocalizedFallbackTitle(const std::string& title) {
  const std::lock_guard lock(mutex_);
  fallbackTitle_ = title;
}

void FakeAuthentication::setAvailable(bool available) {
  const std::lock_guard lock(mutex_);
  available_ = available;
}

void FakeAuthentication::answer(bool success, const NSError* error) {
  Reply reply;
  {
    const std::lock_guard lock(mutex_);
    assert(!waiting_.empty());
    reply = std::move(waiting_.front());
    waiting_.pop_front();
  }
  dispatch_.runOnOwnThread([&] { reply(success, error); });
}

bool FakeAuthentication::isWaiting() {
  const std::lock_guard lock(mutex_);
  return !waiting_.empty();
}

int FakeAuthentication::questions() {
  const std::lock_guard lock(mutex_);
  return questions_;
}

std::thread::id FakeAuthentication::questionedOn() {
  const std::lock_guard lock(mutex_);
  return questionedOn_;
}

std::optional<LAPolicy> FakeAuthentication::questionedPolicy() {
  const std::lock_guard lock(mutex_);
  return questionedPolicy_;
}

bool FakeAuthentication::questionedForError() {
  const std::lock_guard lock(mutex_);
  return questionedForError_;
}

std::string FakeAuthentication::reason() {
  const std::lock_guard lock(mutex_);
  return reason_;
}

std::string FakeAuthentication::fallbackTitle() {
  const std::lock_guard lock(mutex_);
  return fallbackTitle_;
}

}  // namespace zephyl::fake
