// Text from untrusted files: what is not UTF-8 is replaced, never passed on.

#pragma once

#include <string>
#include <string_view>

namespace zephyl::linux_host {

// The text with every byte sequence that is not well-formed UTF-8 (overlong forms and surrogates
// included) replaced by U+FFFD, one for each maximal broken part. Well-formed text, NUL included,
// comes back as it is.
[[nodiscard]] std::string wellFormedUtf8(std::string_view bytes);

[[nodiscard]] bool isWellFormedUtf8(std::string_view bytes);

}  // namespace zephyl::linux_host
