#include "hosts/fake/uikit/FakeTextLayout.h"

#include <algorithm>

namespace zephyl::fake {

FakeTextLayout::FakeTextLayout(std::vector<Line> lines, bool truncated, NSTextAlignment alignment,
                               CGFloat width)
    : lines_(std::move(lines)), truncated_(truncated), alignment_(alignment), width_(width) {
  bool first = true;
  for (const Line& line : lines_) {
    size_.width = std::max(size_.width, line.width);
    size_.height += line.height;
    if (!first) {
      const auto& before = text_.runs();
      text_.append(NSAttributedString(
          "\n", before.empty() ? NSAttributedString::Attributes() : before.back().attributes));
    }
    text_.append(line.text);
    first = false;
  }
}

CGRect FakeTextLayout::extent() const {
  CGFloat free = width_ - size_.width;
  if (alignment_ == NSTextAlignment::kCenter) {
    free /= 2;
  }
  // What is set without a width has no right side to be aligned to.
  const bool toTheLeft = alignment_ == NSTextAlignment::kLeft || width_ >= TextStyle().area.width;
  return CGRectMake(toTheLeft ? 0 : free, 0, size_.width, size_.height);
}

}  // namespace zephyl::fake
