// One line that stands for a text that is too long for it. Any thread.

#pragma once

#include <cstddef>

#include "hosts/linux/screen/LineSetter.h"

namespace zephyl::linux_host {

struct Shortening {
  NSLineBreakMode mode = NSLineBreakMode::kTruncatingTail;
  CGFloat width = 0;
  bool rightToLeft = false;
  // How many code units are looked at, at either end.
  int window = 0;
};

// Of the paragraph from the byte on, which is followed by more text or is too long. As much as fits
// with the sign for what is left out; at least that sign.
[[nodiscard]] TextBlock shortenedLine(const NSAttributedString& text, std::size_t from,
                                      const Shortening& shortening);

}  // namespace zephyl::linux_host
