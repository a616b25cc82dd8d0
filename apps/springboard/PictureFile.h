// The file of a group picture as it is stored: a PNG that decodes whole. Whatever the bytes are,
// what is read of them is bounded. Pure functions, any thread; no display is needed.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/foundation/Value.h"

namespace zephyl::app {

struct PictureLimits {
  // Of the file that comes in and of the one that is stored: more would not go into a message.
  std::size_t bytes = 50'000'000;
  std::int64_t pixels = 50'000'000;
};

// Exactly one of the two is empty.
struct StoredPicture {
  std::string png;
  std::string refusal;  // why there is none
};

// A whole PNG stays byte for byte; a picture of another kind is turned upright, if its file says
// how, and written anew at its own size. Refused is what is larger than the limits, by what its
// header says before anything is decoded, and what does not decode.
[[nodiscard]] StoredPicture storedPicture(const Data& file, const PictureLimits& limits = {});

}  // namespace zephyl::app
