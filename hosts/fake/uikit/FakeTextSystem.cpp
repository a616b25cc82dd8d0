#include "hosts/fake/uikit/FakeTextSystem.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/Utf8.h"

#include "hosts/fake/uikit/FakeTextLayout.h"

namespace zephyl::fake {
namespace {

using Line = FakeTextLayout::Line;
using Run = NSAttributedString::Run;

constexpr const char* kEllipsis = "\xE2\x80\xA6";
// What sums of widths are off by.
constexpr CGFloat kTolerance = 1e-6;

enum class Kind { kPlain, kWide, kNothing, kSpace, kNewline };

struct Range {
  char32_t first;
  char32_t last;
};

template <std::size_t N>
bool isIn(char32_t codePoint, const std::array<Range, N>& ranges) {
  return std::any_of(ranges.begin(), ranges.end(), [&](const Range& range) {
    return codePoint >= range.first && codePoint <= range.last;
  });
}

Kind kindOf(char32_t codePoint) {
  constexpr std::array<Range, 6> kWide = {{{0x1100, 0x115F},
                                           {0x2E80, 0xA4CF},
                                           {0xAC00, 0xD7A3},
                                           {0xF900, 0xFAFF},
                                           {0xFF00, 0xFF60},
                                           {0x1F000, 0x3FFFD}}};
  constexpr std::array<Range, 8> kNothing = {{{0, 0x1F},
                                              {0x7F, 0x9F},
                                              {0x300, 0x36F},
                                              {0x200B, 0x200F},
                                              {0x202A, 0x202E},
                                              {0x2060, 0x206F},
                                              {0xFE00, 0xFE0F},
                                              {0x1F3FB, 0x1F3FF}}};
  if (codePoint == U'\n' || codePoint == U'\r' || codePoint == 0x2028 || codePoint == 0x2029) {
    return Kind::kNewline;
  }
  if (codePoint == U' ' || codePoint == U'\t') {
    return Kind::kSpace;
  }
  if (isIn(codePoint, kNothing)) {
    return Kind::kNothing;
  }
  return isIn(codePoint, kWide) ? Kind::kWide : Kind::kPlain;
}

CGFloat emsOf(Kind kind) {
  if (kind == Kind::kNothing || kind == Kind::kNewline) {
    return 0;
  }
  return kind == Kind::kWide ? 1 : 0.5;
}

bool isTruncating(NSLineBreakMode mode) {
  return mode == NSLineBreakMode::kTruncatingHead || mode == NSLineBreakMode::kTruncatingTail ||
         mode == NSLineBreakMode::kTruncatingMiddle;
}

class Typesetter {
 public:
  Typesetter(const NSAttributedString& text, const TextStyle& style)
      : text_(text), style_(style), bytes_(text.string()) {
    width_ = std::isfinite(style.area.width) ? style.area.width : 0;
    height_ = std::isfinite(style.area.height) ? style.area.height : TextStyle().area.height;
  }

  void set() {
    std::size_t at = 0;
    CGFloat y = 0;
    bool more = !bytes_.empty();
    while (more) {
      const CGFloat height = heightOf(at, at);
      const bool last = static_cast<int>(lines_.size()) + 1 == style_.maximumLines ||
                        y + 2 * height > height_ + kTolerance;
      if (last) {
        addLastLine(at);
        return;
      }
      const Span span = breakLine(at, style_.lineBreakMode != NSLineBreakMode::kCharWrapping);
      addLine(slice(at, span.end), span.width, at, span.end);
      y += lines_.back().height;
      more = span.next < bytes_.size() || span.hard;
      at = span.next;
    }
  }

  std::vector<Line> takeLines() { return std::move(lines_); }
  [[nodiscard]] bool isTruncated() const { return truncated_; }

 private:
  struct Glyph {
    std::size_t length = 0;
    Kind kind = Kind::kPlain;
    CGFloat width = 0;
  };
  struct Span {
    // Where the drawn part ends, where the next line begins, whether a newline ended it.
    std::size_t end = 0;
    std::size_t next = 0;
    CGFloat width = 0;
    bool hard = false;
  };

  // The run that has the byte; the last one at the end of the text.
  [[nodiscard]] const Run& runAt(std::size_t at) const {
    const auto& runs = text_.runs();
    auto after = std::upper_bound(runs.begin(), runs.end(), at,
                                  [](std::size_t byte, const Run& r) { return byte < r.start; });
    return *std::prev(after);
  }

  [[nodiscard]] Glyph glyphAt(std::size_t at) const {
    const Utf8Character character = utf8CharacterAt(bytes_, at);
    Glyph glyph{character.length, kindOf(character.codePoint), 0};
    glyph.width = emsOf(glyph.kind) * runAt(at).attributes.font.pointSize();
    if (character.codePoint == U'\r' && bytes_.compare(at, 2, "\r\n") == 0) {
      glyph.length = 2;
    }
    return glyph;
  }

  [[nodiscard]] bool fits(CGFloat width) const { return width <= width_ + kTolerance; }

  [[nodiscard]] Span breakLine(std::size_t at, bool atWords) const {
    Span drawn{at, at};
    Span possible{at, at};
    std::size_t here = at;
    CGFloat width = 0;
    while (here < bytes_.size()) {
      const Glyph glyph = glyphAt(here);
      if (glyph.kind == Kind::kNewline) {
        return {here, here + glyph.length, std::min(width, std::max(width_, drawn.width)), true};
      }
      if (glyph.kind == Kind::kWide) {
        possible = {drawn.end, here, drawn.width};
      }
      if (glyph.kind != Kind::kSpace && here > at && !fits(width + glyph.width)) {
        return atWords && possible.next > at ? possible : Span{drawn.end, here, drawn.width};
      }
      here += glyph.length;
      width += glyph.width;
      if (glyph.kind == Kind::kSpace) {
        possible = {drawn.end, here, drawn.width};
      } else {
        drawn = {here, here, width};
      }
    }
    return {here, here, std::min(width, std::max(width_, drawn.width))};
  }

  [[nodiscard]] bool restFits(std::size_t at) const {
    CGFloat width = 0;
    while (at < bytes_.size() && fits(width)) {
      const Glyph glyph = glyphAt(at);
      if (glyph.kind == Kind::kNewline) {
        return false;
      }
      width += glyph.width;
      at += glyph.length;
    }
    return at >= bytes_.size() && fits(width);
  }

  // Where a beginning of at most `room` ends.
  [[nodiscard]] std::size_t headEnd(std::size_t at, CGFloat room) const {
    CGFloat width = 0;
    while (at < bytes_.size()) {
      const Glyph glyph = glyphAt(at);
      width += glyph.width;
      if (glyph.kind == Kind::kNewline || width > room + kTolerance) {
        break;
      }
      at += glyph.length;
    }
    return at;
  }

  // Where an end of at most `room` that does not reach back before `from` begins.
  [[nodiscard]] std::size_t tailStart(std::size_t from, CGFloat room) const {
    std::size_t at = bytes_.size();
    CGFloat width = 0;
    while (at > from) {
      std::size_t before = at - 1;
      while (before > from && (static_cast<unsigned char>(bytes_[before]) & 0xC0U) == 0x80U) {
        --before;
      }
      const Glyph glyph = glyphAt(before);
      width += glyph.width;
      if (glyph.kind == Kind::kNewline || width > room + kTolerance) {
        break;
      }
      at = before;
    }
    return at;
  }

  [[nodiscard]] CGFloat widthOf(std::size_t from, std::size_t to) const {
    CGFloat width = 0;
    for (std::size_t at = from; at < to;) {
      const Glyph glyph = glyphAt(at);
      width += glyph.width;
      at += glyph.length;
    }
    return width;
  }

  void addLastLine(std::size_t at) {
    if (isTruncating(style_.lineBreakMode)) {
      addTruncated(at);
      return;
    }
    Span span = breakLine(at, style_.lineBreakMode == NSLineBreakMode::kWordWrapping);
    if (style_.lineBreakMode == NSLineBreakMode::kClipping && !span.hard) {
      span.end = headEnd(at, width_);
      span.next = span.end;
      span.width = widthOf(at, span.end);
    }
    truncated_ = span.next < bytes_.size() || span.hard;
    addLine(slice(at, span.end), span.width, at, span.end);
  }

  void addTruncated(std::size_t at) {
    if (restFits(at)) {
      addLine(slice(at, bytes_.size()), widthOf(at, bytes_.size()), at, bytes_.size());
      return;
    }
    truncated_ = true;
    const auto attributes = runAt(at).attributes;
    const CGFloat dots = attributes.font.pointSize() / 2;
    const CGFloat room = std::max(width_ - dots, 0.0);
    std::size_t head = at;
    std::size_t tail = bytes_.size();
    if (style_.lineBreakMode == NSLineBreakMode::kTruncatingTail) {
      head = headEnd(at, room);
    } else if (style_.lineBreakMode == NSLineBreakMode::kTruncatingHead) {
      tail = tailStart(at, room);
    } else {
      head = headEnd(at, room / 2);
      tail = tailStart(head, room - widthOf(at, head));
    }
    NSAttributedString line = slice(at, head);
    line.append(NSAttributedString(kEllipsis, attributes));
    line.append(slice(tail, bytes_.size()));
    addLine(std::move(line), widthOf(at, head) + dots + widthOf(tail, bytes_.size()), at, head);
  }

  void addLine(NSAttributedString text, CGFloat width, std::size_t from, std::size_t to) {
    Line line{std::move(text), width, heightOf(from, to), 0};
    line.ascent = line.height / 1.2 * 0.95;
    lines_.push_back(std::move(line));
  }

  // Of the largest font in it.
  [[nodiscard]] CGFloat heightOf(std::size_t from, std::size_t to) const {
    CGFloat largest = 0;
    for (std::size_t at = from;;) {
      const Run& run = runAt(at);
      largest = std::max(largest, run.attributes.font.pointSize());
      at = run.start + run.length;
      if (at >= to) {
        return largest * 1.2;
      }
    }
  }

  [[nodiscard]] NSAttributedString slice(std::size_t from, std::size_t to) const {
    NSAttributedString part;
    for (std::size_t at = from; at < to;) {
      const Run& run = runAt(at);
      const std::size_t end = std::min(to, run.start + run.length);
      part.append(NSAttributedString(bytes_.substr(at, end - at), run.attributes));
      at = end;
    }
    return part;
  }

  const NSAttributedString& text_;
  const TextStyle& style_;
  const std::string& bytes_;
  CGFloat width_ = 0;
  CGFloat height_ = 0;
  std::vector<Line> lines_;
  bool truncated_ = false;
};

}  // namespace

UIFont::Metrics FakeTextSystem::metrics(const UIFont& font) {
  const CGFloat size = font.pointSize();
  return {0.95 * size, 0.25 * size, 1.2 * size, 0.7 * size};
}

TextLayoutRef FakeTextSystem::layout(const NSAttributedString& text, const TextStyle& style) {
  Typesetter typesetter(text, style);
  typesetter.set();
  NSTextAlignment alignment = style.alignment;
  if (alignment == NSTextAlignment::kNatural) {
    alignment =
        screen_.userInterfaceLayoutDirection() == UIUserInterfaceLayoutDirection::kRightToLeft
            ? NSTextAlignment::kRight
            : NSTextAlignment::kLeft;
  }
  return std::make_shared<FakeTextLayout>(typesetter.takeLines(), typesetter.isTruncated(),
                                          alignment, style.area.width);
}

}  // namespace zephyl::fake
