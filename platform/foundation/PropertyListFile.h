// Property-list files, by the phone's paths. What cannot be read is named in the system log with
// file, place and reason.

#pragma once

#include <optional>
#include <string>

#include "platform/Export.h"
#include "platform/foundation/Dictionary.h"
#include "platform/foundation/Value.h"

namespace zephyl {

// Nothing when the file is missing or unreadable, or its root is of another type. Any thread.
[[nodiscard]] ZP_EXPORT std::optional<Array> arrayWithContentsOfFile(const std::string& path);
[[nodiscard]] ZP_EXPORT std::optional<Dictionary> dictionaryWithContentsOfFile(
    const std::string& path);

// Writes in place, not through a temporary file: as XML, or in binary form where a text holds
// characters that XML forbids. False when anything failed. Any thread.
ZP_EXPORT bool writeToFile(const Value& root, const std::string& path);

}  // namespace zephyl
