// What painting keeps between two pictures: pictures scaled to the size that they are drawn at, and
// blurred shadows. One for a screen, shared by its contexts. Any thread.

#pragma once

#include "hosts/linux/screen/ScaledPictures.h"
#include "hosts/linux/screen/ShadowPictures.h"

namespace zephyl::linux_host {

struct PaintCaches {
  ScaledPictures pictures;
  ShadowPictures shadows;
};

}  // namespace zephyl::linux_host
