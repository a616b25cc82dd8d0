// What the list of groups is for.

#pragma once

#include <cstdint>

namespace zephyl {

enum ZephylsMode : std::int64_t {
  ZephylsModeBrowse = 0,
  ZephylsModeManage = 1,
  ZephylsModeAddToGroups = 2,
};

}  // namespace zephyl
