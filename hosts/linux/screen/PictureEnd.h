// Whether a picture file is there to its end. Decoders show the upper part of a file that was cut
// off, and grey below. Any thread.

#pragma once

#include "platform/foundation/Value.h"

namespace zephyl::linux_host {

// By the marks that PNG, JPEG and GIF files have at the end and the sizes that BMP files declare.
// True for other kinds, whose decoders tell. What follows the end does not matter.
[[nodiscard]] bool hasPictureEnd(const Data& file);

}  // namespace zephyl::linux_host
