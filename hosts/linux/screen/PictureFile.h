// Reading picture files, whoever wrote them: PNG, JPEG, GIF, BMP, and WebP, TIFF and HEIC where
// they can be read on this machine. By content; what a file is called does not matter. Any thread.

#pragma once

#include <QImage>
#include <QSize>
#include <string>

#include "platform/foundation/Value.h"

namespace zephyl::linux_host {

// Upright, by the file's head alone; zero for what is no picture.
[[nodiscard]] QSize pictureSize(const Data& file);

struct Picture {
  // Upright, in the colours of a screen; null when it cannot be read.
  QImage image;
  // Why it cannot be read, for the user.
  std::string problem;
};

// No side is longer than `maximumSide`. A picture that is cut off is not shown in part.
[[nodiscard]] Picture readPicture(const Data& file, int maximumSide);

}  // namespace zephyl::linux_host
