// What a message says, out of the two places where the database may keep it. Pure, any thread.

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zephyl::linux_host {

struct MessageText {
  // Well-formed UTF-8 without the marks that stand for attachments (U+FFFC). Empty when the message
  // consists of attachments or of nothing; null when only the archive could tell and it cannot be
  // read.
  std::optional<std::string> text;
  // Whether the text is not UTF-8 in the database, and had to be repaired.
  bool isRepaired = false;
};

// `text` is the plain column, `attributedBody` the archive beside it, which recent releases write
// alone; both are empty when they are null.
[[nodiscard]] MessageText messageText(std::string_view text,
                                      std::span<const std::byte> attributedBody);

}  // namespace zephyl::linux_host
