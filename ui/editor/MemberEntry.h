// A row of the editor's members: what is shown, and the member of the group.

#pragma once

#include <string>
#include <vector>

#include "model/MemberSet.h"

namespace zephyl {

struct MemberEntry {
  std::string name;
  Member id;
  friend bool operator==(const MemberEntry&, const MemberEntry&) = default;
};
using MemberEntries = std::vector<MemberEntry>;

}  // namespace zephyl
