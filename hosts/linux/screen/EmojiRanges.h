// Which parts of a text are to be shown as emoji pictures. Any thread.

#pragma once

#include <QStringView>
#include <vector>

namespace zephyl::linux_host {

// In UTF-16 code units.
struct TextRange {
  int start = 0;
  int length = 0;
  friend bool operator==(const TextRange&, const TextRange&) = default;
};

// Whole sequences, in order: signs that are pictures by themselves or by the sign U+FE0F after
// them, with their skin tones, joiners, keycaps, tags and second halves of flags.
[[nodiscard]] std::vector<TextRange> emojiRanges(QStringView text);

}  // namespace zephyl::linux_host
