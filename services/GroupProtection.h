// What the device's owner is told about protected groups: why the finger is asked for, and that it
// was not recognized. Localized; any thread.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/foundation/NSError.h"

namespace zephyl {

// "A", "A and B", "A, B and C". Kept: in every language.
[[nodiscard]] ZP_EXPORT std::string joinedTitles(const std::vector<std::string>& titles);

// Why the finger is asked for before one group is opened, edited or deleted, before several are
// deleted, and before something is added to several. The titles are those of the protected ones.
[[nodiscard]] ZP_EXPORT std::string reasonToOpenGroup(const std::string& title);
[[nodiscard]] ZP_EXPORT std::string reasonToDeleteGroups(const std::vector<std::string>& titles);
[[nodiscard]] ZP_EXPORT std::string reasonToAddToGroups();

// Of a check without success; `error` is what came with it, or null. Nothing when the owner or the
// system cancelled it, about which there is nothing to say.
[[nodiscard]] ZP_EXPORT std::optional<std::string> whyNotRecognized(const NSError* error);

}  // namespace zephyl
