// What a message says, out of the two places where the database may keep it. Pure, any thread.

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zephyl::linux_host {

// The text without the marks that stand for attachments (U+FFFC). `text` is the plain column, empty
// when it is null; `attributedBody` the archive beside it, which recent releases write alone.
// Empty when the message consists of attachments or of nothing; null when only the archive could
// tell and it cannot be read.
[[nodiscard]] std::optional<std::string> messageText(std::string_view text,
                                                     std::span<const std::byte> attributedBody);

}  // namespace zephyl::linux_host
