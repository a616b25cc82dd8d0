// The device owner's biometric check. Mechanism only: when to ask, and what an answer means, is
// decided in services/ZPUtils.

#pragma once

#include <functional>
#include <string>

#include "platform/foundation/NSError.h"

namespace zephyl {

enum class LAPolicy { kDeviceOwnerAuthenticationWithBiometrics = 1 };

class LAContext {
 public:
  // `error` is null on success and valid only during the call.
  using Reply = std::function<void(bool success, const NSError* error)>;

  virtual ~LAContext() = default;

  // Whether a check could be made now. `error` may be null. Any thread.
  [[nodiscard]] virtual bool canEvaluatePolicy(LAPolicy policy, NSError* error) = 0;

  // Returns at once. `reply` runs exactly once, on a thread of the service's own, after this call
  // has returned.
  virtual void evaluatePolicy(LAPolicy policy, const std::string& localizedReason, Reply reply) = 0;

  // An empty title hides the passcode button.
  virtual void setLocalizedFallbackTitle(const std::string& title) = 0;
};

}  // namespace zephyl
