// For builds without libheif.

#include "hosts/linux/screen/HeifPictures.h"

namespace zephyl::linux_host {

QSize heifSize(const Data& /*file*/) {
  return {0, 0};
}

Picture readHeif(const Data& /*file*/, int /*maximumSide*/, std::int64_t /*mostPixels*/) {
  return {{}, "Pictures of this kind (HEIC) cannot be read here."};
}

}  // namespace zephyl::linux_host
