// Lines that the fake text system made. Immutable; any thread.

#pragma once

#include <utility>
#include <vector>

#include "platform/uikit/TextLayout.h"

namespace zephyl::fake {

class FakeTextLayout : public TextLayout {
 public:
  struct Line {
    NSAttributedString text;
    CGFloat width = 0;
    CGFloat height = 0;
    CGFloat ascent = 0;
  };

  // `alignment` is left, centre or right; `width` is what lines are aligned in.
  FakeTextLayout(std::vector<Line> lines, bool truncated, NSTextAlignment alignment, CGFloat width);

  CGSize size() const override { return size_; }
  int lineCount() const override { return static_cast<int>(lines_.size()); }
  bool isTruncated() const override { return truncated_; }
  CGFloat firstBaseline() const override { return lines_.empty() ? 0 : lines_.front().ascent; }
  // The lines with "\n" between them.
  const NSAttributedString& text() const override { return text_; }

  [[nodiscard]] const std::vector<Line>& lines() const { return lines_; }
  // Where the lines are, the layout's upper left corner at (0, 0).
  [[nodiscard]] CGRect extent() const;

 private:
  std::vector<Line> lines_;
  bool truncated_;
  NSTextAlignment alignment_;
  CGFloat width_;
  CGSize size_;
  NSAttributedString text_;
};

}  // namespace zephyl::fake
