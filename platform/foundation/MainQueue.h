// The main queue of the installed host, as a queue to name where results are wanted.

#pragma once

#include <memory>

#include "platform/Export.h"
#include "platform/foundation/Dispatch.h"

namespace zephyl {

// Any thread.
[[nodiscard]] ZP_EXPORT std::shared_ptr<SerialQueue> mainQueue();

}  // namespace zephyl
