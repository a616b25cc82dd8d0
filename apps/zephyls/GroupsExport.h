// A group of this device as it travels to another.

#pragma once

#include <functional>
#include <string>

#include "apps/zephyls/GroupsDocument.h"
#include "model/Zephyl.h"

namespace zephyl::app {

// `complain` is told what is left out: a picture that cannot be read. Needs the session's groups
// started.
[[nodiscard]] TransferredGroup transferredGroup(
    const ZephylRef& group, const std::function<void(const std::string&)>& complain);

}  // namespace zephyl::app
