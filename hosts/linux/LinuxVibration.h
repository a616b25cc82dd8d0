// Vibration by the desktop's feedback service on the session bus, where there is one; else nothing
// happens. No service is started for it, and nobody waits. Any thread.

#pragma once

#include <string>

#include "platform/audiotoolbox/AudioServices.h"

namespace zephyl {
class Dispatch;
}  // namespace zephyl

namespace zephyl::linux_host {

class LinuxVibration : public AudioServices {
 public:
  // Speaks to the bus on a background queue of `dispatch`, which must outlive this.
  // `applicationIdentifier` is who the service is told asks; `busAddress` is that of the user's
  // session bus unless given.
  LinuxVibration(Dispatch& dispatch, std::string applicationIdentifier,
                 std::string busAddress = {});

  // The service knows events, not patterns: it gives its own short buzz whatever the pattern is,
  // unless the pattern is nowhere on or the intensity is 0.
  void playSystemSoundWithVibration(std::uint32_t sound, const Dictionary& vibration) override;

 private:
  Dispatch& dispatch_;
  const std::string applicationIdentifier_;
  const std::string busAddress_;
};

}  // namespace zephyl::linux_host
