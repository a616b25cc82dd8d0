// The region whose way of dialling numbers without a country code follow.

#pragma once

#include <string>
#include <string_view>

namespace zephyl::linux_host {

// That of a locale's name as the C library or a property list writes it ("de_AT.UTF-8", "en-GB"),
// in capitals; "US" for a locale without a region, or with one that has no telephones.
[[nodiscard]] std::string homeRegionFor(std::string_view locale);

}  // namespace zephyl::linux_host
