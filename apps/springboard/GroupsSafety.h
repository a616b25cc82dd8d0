// The groups file's safety copies: where they lie, and what the device must know to keep them. The
// same for every program that reads or writes the file.

#pragma once

#include <optional>
#include <string>

#include "hosts/linux/safety/SafetyCopies.h"

namespace zephyl::app {

// The folder of the copies of one device root's groups, below the folder where programs keep their
// state. Two roots never share one.
[[nodiscard]] std::string groupCopiesFolder(const std::string& stateFolder,
                                            const std::string& deviceRoot);

// The folder of what programs must know of one another's saves, in the device root itself: programs
// that were started in different ways may have different state folders.
[[nodiscard]] std::string groupNotesFolder(const std::string& deviceRoot);

[[nodiscard]] linux_host::SafetyOptions safetyOfGroups(const std::string& stateFolder,
                                                       const std::string& deviceRoot);

// Why nothing of the contents could be shown: no property list, no array, or an array of other
// things only. Groups beside something else still are groups.
[[nodiscard]] std::optional<std::string> whyNoGroupsAtAll(const std::string& contents);

}  // namespace zephyl::app
