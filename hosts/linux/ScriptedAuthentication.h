// Biometric checks that a function answers, for devices whose owner says on the command line that
// there is, or is not, a reader.

#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/localauthentication/LAContext.h"

namespace zephyl::linux_host {

// As the phone's own errors.
inline constexpr const char* kAuthenticationErrorDomain = "com.apple.LocalAuthentication";
inline constexpr std::int64_t kAuthenticationFailed = -1;
inline constexpr std::int64_t kBiometryNotAvailable = -6;

class ScriptedAuthentication : public LAContext {
 public:
  struct Question {
    std::string localizedReason;
    std::string fallbackTitle;  // empty: no passcode button
  };
  // Nothing when the owner was recognized, else why not. On a thread of the context's own, one
  // question at a time.
  using Answer = std::function<std::optional<NSError>(const Question& question)>;

  // Without a function every check fails as one with a wrong finger does.
  explicit ScriptedAuthentication(Answer answer);

  // Waits for the questions that were asked to be answered, unless it runs inside a reply.
  ~ScriptedAuthentication() override;
  ScriptedAuthentication(const ScriptedAuthentication&) = delete;
  ScriptedAuthentication& operator=(const ScriptedAuthentication&) = delete;

  bool canEvaluatePolicy(LAPolicy policy, NSError* error) override;
  void evaluatePolicy(LAPolicy policy, const std::string& localizedReason, Reply reply) override;
  void setLocalizedFallbackTitle(const std::string& title) override;

 private:
  class Service;

  std::unique_ptr<Service> service_;
  std::mutex mutex_;
  std::string fallbackTitle_ = "Enter Password";
};

// A device without a reader: no check can be made, and one that is made all the same fails.
class NoAuthentication : public ScriptedAuthentication {
 public:
  NoAuthentication();

  bool canEvaluatePolicy(LAPolicy policy, NSError* error) override;
};

}  // namespace zephyl::linux_host
