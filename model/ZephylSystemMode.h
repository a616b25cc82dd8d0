// Which group a system group is, as it is stored.

#pragma once

#include <cstdint>

namespace zephyl {

enum ZephylSystemMode : std::int64_t {
  ZephylSystemModeUser = 0,
  ZephylSystemModeAll = 1,
  ZephylSystemModeFavorites = 2,
  ZephylSystemModeAllGroups = 3,
  ZephylSystemModeUnknown = 4,
  ZephylSystemModeKnown = 5,
};

}  // namespace zephyl
