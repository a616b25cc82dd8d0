// What both cells of the group list show of a group in the same way. Main thread.

#pragma once

#include <cstdint>
#include <string>

#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIImage.h"

namespace zephyl {

class Zephyl;

// Of the group's marker text; clear without one, black for a text that is no colour.
[[nodiscard]] UIColor markerColorOfGroup(const Zephyl& group);

// The title, followed by the count when it is 1 or more: "Work (3)".
[[nodiscard]] std::string titleWithUnreadCount(const Zephyl& group, std::int64_t unreadCount);

// A picture of the settings bundle; null when it has none of that name.
[[nodiscard]] UIImageRef settingsPicture(const std::string& name);

}  // namespace zephyl
