// Property-list values and times as JSON.

#pragma once

#include <optional>
#include <string>

#include <nlohmann/json_fwd.hpp>

#include "platform/foundation/Value.h"

namespace zephyl::app {

// Dates as ISO 8601 in UTC, data as base64, references of keyed archives as {"CF$UID": number}.
// Numbers that JSON cannot hold (infinite, not a number) become null.
[[nodiscard]] nlohmann::ordered_json jsonOf(const Value& value);

// "2026-11-21T09:30:00Z", with a fraction where there is one. Seconds since 1970.
[[nodiscard]] std::string isoTime(double seconds);

// The time that `isoTime` wrote so; nothing for other texts.
[[nodiscard]] std::optional<double> secondsOfIsoTime(const std::string& text);

// "2026-11-21 09:30" in the user's time zone.
[[nodiscard]] std::string localTime(double seconds);

}  // namespace zephyl::app
