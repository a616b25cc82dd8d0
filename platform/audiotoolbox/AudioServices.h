// System sounds and vibration.

#pragma once

#include <cstdint>

#include "platform/foundation/Dictionary.h"

namespace zephyl {

class AudioServices {
 public:
  virtual ~AudioServices() = default;

  // `vibration` has "VibePattern" (an array: on or off as a boolean, then milliseconds) and
  // "Intensity" (0 to 1). Does nothing on a device without a motor. Any thread.
  virtual void playSystemSoundWithVibration(std::uint32_t sound, const Dictionary& vibration) = 0;
};

}  // namespace zephyl
