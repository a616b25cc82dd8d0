// The form in which messages name a phone number. A pure function, any thread.

#pragma once

#include <optional>
#include <string>

namespace zephyl::linux_host {

// "+15555550100": plus, country code and number. A number without a country code is taken as one of
// `homeRegion`, as homeRegionFor() gives it. Nothing for what cannot be dialled from abroad as it
// stands: short codes, numbers without their area code, words, numbers with an extension.
[[nodiscard]] std::optional<std::string> internationalNumber(const std::string& text,
                                                             const std::string& homeRegion);

}  // namespace zephyl::linux_host
