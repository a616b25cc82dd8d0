// The gate before protected groups, and the unlock session.

#include <atomic>
#include <memory>
#include <utility>

#include "platform/Host.h"
#include "platform/Once.h"
#include "platform/foundation/Clock.h"

#include "model/ZPLocalizedText.h"
#include "model/ZPSettings.h"
#include "services/ZPUtils.h"

namespace zephyl {

namespace {

constexpr LAPolicy kPolicy = LAPolicy::kDeviceOwnerAuthenticationWithBiometrics;

// When the last check was answered, in seconds since 1970; 0 without a session.
using Timestamp = std::atomic<double>;

std::shared_ptr<Timestamp> lastUnlocked() {
  static Once<Timestamp> shared;
  return shared.get([] { return std::make_shared<Timestamp>(0.0); });
}

}  // namespace

bool ZPUtils::shouldContinueWithoutRequestingForTouchID() {
  const auto settings = ZPSettings::sharedSettings();
  if (!settings->isRememberUnlcokSession()) {
    return false;
  }
  const double unlocked = *lastUnlocked();
  return unlocked > 0.0 && host().clock().now() - unlocked <= settings->unlockSessionTime() * 60.0;
}

void ZPUtils::requestForAuthentication(const std::string& reason, Completion completion) {
  if (!supportsTouchID() || shouldContinueWithoutRequestingForTouchID()) {
    if (completion) {
      completion(/*success=*/true, /*error=*/nullptr);
    }
    return;
  }
  const auto shared = context();
  shared->setLocalizedFallbackTitle("");
  NSError why;
  if (!shared->canEvaluatePolicy(kPolicy, &why)) {
    if (completion) {
      // Kept: the device's own reason is not passed on.
      const NSError error("com.vantor.zephyls", -1,
                          {{kNSLocalizedDescriptionKey,
                            zpLocalizedText("Your device cannot authenticate using TouchID.")}});
      completion(/*success=*/false, &error);
    }
    return;
  }
  // A reply that comes after the session was forgotten belongs to a host that is gone.
  shared->evaluatePolicy(kPolicy, reason,
                         [session = std::weak_ptr<Timestamp>(lastUnlocked()),
                          completion = std::move(completion)](bool success, const NSError* error) {
                           // Kept: set whether or not the check succeeded.
                           if (const auto unlocked = session.lock()) {
                             *unlocked = host().clock().now();
                           }
                           if (completion) {
                             completion(success, error);
                           }
                         });
}

void ZPUtils::resetLastUnlockedTimestamp() {
  *lastUnlocked() = 0.0;
}

}  // namespace zephyl
