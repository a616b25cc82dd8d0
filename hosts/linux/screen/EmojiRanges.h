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

// Each picture, in order: a sign that is one by itself or by the sign U+FE0F after it, with its
// skin tones, joiners, keycaps and tags. The two halves of a flag are two.
[[nodiscard]] std::vector<TextRange> emojiPictures(QStringView text);

// The same, those that touch as one.
[[nodiscard]] std::vector<TextRange> emojiRanges(QStringView text);

}  // namespace zephyl::linux_host
