// Characters as a reader sees them: a sign with all that joins it. Pure, any thread.

#pragma once

#include <cstddef>
#include <string_view>

#include "platform/Export.h"

namespace zephyl {

// How many bytes the character takes that starts at `text[at]`, which is inside the text: a letter
// with its marks, an emoji with its skin tone, joiners, tags and the second half of a flag. 0 where
// no valid character starts. What joins is told for the scripts that names are written in, not for
// all of Unicode.
[[nodiscard]] ZP_EXPORT std::size_t utf8ClusterLength(std::string_view text, std::size_t at);

}  // namespace zephyl
