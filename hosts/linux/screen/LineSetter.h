// Sets a text into lines: wrapping, shortening, aligning. Measures with Qt, on the thread that
// calls; what it gives is plain and goes to any thread.
//
// Reads only as much of a text as the area shows, a window after the other.

#pragma once

#include <QTextLayout>
#include <QTextOption>
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "platform/uikit/TextLayout.h"

#include "hosts/linux/screen/AttributedText.h"

namespace zephyl::linux_host {

// Lines that one QTextLayout sets.
struct TextBlock {
  struct Line {
    int start = 0;
    int length = 0;
    CGFloat naturalWidth = 0;
    // From the left end of the line to what is seen of it: spaces may hang over that end.
    CGFloat naturalLeft = 0;
    CGFloat ascent = 0;
    CGFloat height = 0;
    // In the whole layout.
    CGPoint origin;
  };
  AttributedText text;
  bool rightToLeft = false;
  QTextOption::WrapMode wrap = QTextOption::NoWrap;
  CGFloat width = 0;
  std::vector<Line> lines;
};

// Laid out with all its lines where they belong. With a style, several colours are told apart.
[[nodiscard]] std::unique_ptr<QTextLayout> makeLayout(
    const TextBlock& block, const std::optional<UIUserInterfaceStyle>& style);

struct LinesSet {
  std::vector<TextBlock> blocks;
  CGSize size;
  int lineCount = 0;
  bool truncated = false;
  // The lines, with "\n" between them.
  NSAttributedString shown;
};

// `screenRightToLeft` decides which side is the natural one.
[[nodiscard]] LinesSet setLines(const NSAttributedString& text, const TextStyle& style,
                                bool screenRightToLeft);

}  // namespace zephyl::linux_host
