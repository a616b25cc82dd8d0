// The short vibration, with the detour over the system shell's settings.

#include "platform/Host.h"
#include "platform/audiotoolbox/AudioServices.h"
#include "platform/foundation/DarwinNotificationCenter.h"
#include "platform/foundation/Dispatch.h"
#include "platform/foundation/NSUserDefaults.h"

#include "services/ZPUtils.h"

namespace zephyl {

namespace {

constexpr std::uint32_t kVibrateSound = 4095;
// Gives the shell time to take up the changed setting before the vibration.
constexpr double kSettingDelaySeconds = 0.3;
constexpr char kShellDomain[] = "com.apple.springboard";
constexpr char kRingVibrate[] = "ring-vibrate";
constexpr char kSilentVibrate[] = "silent-vibrate";

void play() {
  const Dictionary vibration{{"VibePattern", Array{true, 300.0}}, {"Intensity", 1.0}};
  host().audioServices().playSystemSoundWithVibration(kVibrateSound, vibration);
}

void writeShellSettings(Dictionary domain, bool ring, bool silent) {
  domain.set(kRingVibrate, ring);
  domain.set(kSilentVibrate, silent);
  host().userDefaults().setPersistentDomain(domain, kShellDomain);
  host().darwinNotifications().post("com.apple.springboard.ring-vibrate.changed");
  host().darwinNotifications().post("com.apple.springboard.silent-vibrate.changed");
}

}  // namespace

void ZPUtils::vibrateDevice() {
  if (!isIOS9()) {
    return;
  }
  const Dictionary domain =
      host().userDefaults().persistentDomainForName(kShellDomain).value_or(Dictionary());
  // The choice depends on the ring switch alone; the silent switch only needs restoring.
  if (domain[kRingVibrate].boolValue()) {
    play();
    return;
  }
  const bool silent = domain[kSilentVibrate].boolValue();
  writeShellSettings(domain, /*ring=*/true, /*silent=*/true);
  host().dispatch().mainAfter(kSettingDelaySeconds, [domain, silent] {
    play();
    writeShellSettings(domain, /*ring=*/false, silent);
  });
}

}  // namespace zephyl
