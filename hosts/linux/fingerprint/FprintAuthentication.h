// The fingerprint reader of this machine, through the fingerprint service on the system bus.
//
// A check can be made when there is a reader and a finger of the calling user is enrolled. After
// five failed checks in a row the reader rests (FingerprintLockout.h). Meanwhile a check can still
// be made and fails at once with kBiometryLockout: to say that none can be made would open what is
// protected, since a device without biometrics keeps nobody out.

#pragma once

#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/localauthentication/LAContext.h"

#include "hosts/linux/fingerprint/FprintOptions.h"

namespace zephyl::linux_host {

class FprintAuthentication : public LAContext {
 public:
  // Touches no bus. The QCoreApplication must exist when a question is put.
  explicit FprintAuthentication(FprintOptions options = {});

  // Cancels the checks that run or wait, and waits until all are answered, unless it runs inside a
  // reply.
  ~FprintAuthentication() override;
  FprintAuthentication(const FprintAuthentication&) = delete;
  FprintAuthentication& operator=(const FprintAuthentication&) = delete;

  // Only what is known to be missing makes it false: a bus, the service, a reader, an enrolled
  // finger. A reader that is forbidden, locked out or does not answer is there, and the check then
  // fails: "no" would open what it protects. Takes the limit for an answer and a little at most.
  // Answers are kept for a second or until a check ends, since a list of groups asks for each.
  bool canEvaluatePolicy(LAPolicy policy, NSError* error) override;

  // One check at a time, in the order asked. The error has the phone's domain and codes, and a
  // sentence for the owner.
  void evaluatePolicy(LAPolicy policy, const std::string& localizedReason, Reply reply) override;

  // There is never a passcode button.
  void setLocalizedFallbackTitle(const std::string& title) override;

  // Ends the checks that run or wait with kUserCancel; later ones are not touched. Any thread, but
  // not a signal handler.
  void cancel();

 private:
  class Service;
  struct Answer {
    std::chrono::steady_clock::time_point time;
    std::optional<NSError> whyNot;
    std::uint64_t checks = 0;  // that had ended
  };

  [[nodiscard]] std::optional<NSError> whyNoCheck() const;

  const FprintOptions options_;
  std::unique_ptr<Service> service_;
  std::mutex asking_;
  std::optional<Answer> last_;
};

}  // namespace zephyl::linux_host
