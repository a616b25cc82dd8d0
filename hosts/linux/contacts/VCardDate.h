// Reads the time stamps of vCards: "2012-03-05T13:32:54Z", "20121012T210525Z", "2012-03-05",
// fractions of a second, "+01:00" and "-0500". Without a zone the time is UTC.

#pragma once

#include <optional>
#include <string_view>

namespace zephyl::linux_host::vcard {

// Seconds since 1970-01-01 00:00:00 UTC; what follows a valid time stamp is not looked at.
[[nodiscard]] std::optional<double> secondsSince1970(std::string_view text);

}  // namespace zephyl::linux_host::vcard
