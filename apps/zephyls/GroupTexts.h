// The texts of a group as the user types them: what is refused, and what is made of the rest. Each
// throws CommandError for wrong usage.

#pragma once

#include <optional>
#include <string>

namespace zephyl::app {

// Must be UTF-8, as every text that is stored. `what` names it.
void checkText(const std::optional<std::string>& text, const char* what);

// As the editor of groups: not empty, whatever else it is.
void checkTitle(const std::optional<std::string>& title);
void checkMaskedText(const std::optional<std::string>& text);

// Eight lower-case digits from RRGGBB or RRGGBBAA, with or without "#" before them; empty for
// "none". A colour without its alpha is opaque.
[[nodiscard]] std::string markerCodeFrom(const std::string& colour);

}  // namespace zephyl::app
