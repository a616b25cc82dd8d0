// A group of this device as it travels to another.

#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>

#include "apps/zephyls/GroupsDocument.h"
#include "model/Zephyl.h"

namespace zephyl::app {

// The identifiers of the groups that the groups file calls protected. A device without a reader
// takes the flag from its records, so the file is read before the groups are. Needs the session's
// device.
[[nodiscard]] std::set<std::int64_t> protectedInFile();

// Protected when `protectedGroups` has it. `complain` is told what is left out: a picture that
// cannot be read. Needs the session's groups started.
[[nodiscard]] TransferredGroup transferredGroup(
    const ZephylRef& group, const std::set<std::int64_t>& protectedGroups,
    const std::function<void(const std::string&)>& complain);

}  // namespace zephyl::app
