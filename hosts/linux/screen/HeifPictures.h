// Pictures of newer phones. Read with libheif; a build without it knows none of them. Any thread.

#pragma once

#include <QSize>
#include <cstdint>

#include "hosts/linux/screen/PictureFile.h"

namespace zephyl::linux_host {

// Whether the head is one of those files', whether or not this build reads them.
[[nodiscard]] bool isHeif(const Data& file);

// As `pictureSize` and `readPicture`. More than `mostPixels` are not read.
[[nodiscard]] QSize heifSize(const Data& file);
[[nodiscard]] Picture readHeif(const Data& file, int maximumSide, std::int64_t mostPixels);

}  // namespace zephyl::linux_host
