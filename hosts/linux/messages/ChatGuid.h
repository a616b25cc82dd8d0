// The name under which a conversation is a member of a group. Pure functions, any thread.

#pragma once

#include <string>
#include <string_view>

namespace zephyl::linux_host {

// A chat's guid is SERVICE;KIND;IDENTIFIER. Recent releases write services there that membership
// does not know: "any" is replaced by `serviceName` (and kept if that is empty), then "RCS" by
// "SMS", its nearest relative. All other guids come back as they are.
[[nodiscard]] std::string canonicalChatGuid(std::string_view guid, std::string_view serviceName);

// Whether a guid alone tells that it is a group's.
[[nodiscard]] bool isGroupGuid(std::string_view guid);

}  // namespace zephyl::linux_host
