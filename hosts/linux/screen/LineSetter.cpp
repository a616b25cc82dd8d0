#include "hosts/linux/screen/LineSetter.h"

#include <algorithm>
#include <cmath>

#include "hosts/linux/screen/LineShortening.h"
#include "hosts/linux/screen/ScreenFonts.h"

namespace zephyl::linux_host {

namespace {

// Qt counts in 64ths; what was measured must fit where it is set.
constexpr CGFloat kTolerance = 0.05;
// The width from which on there is nothing to align to.
constexpr CGFloat kUnlimited = 1e6;
constexpr int kSmallestWindow = 64;
constexpr int kUsualWindow = 4096;
constexpr int kLargestWindow = 1 << 20;

bool shortens(NSLineBreakMode mode) {
  return mode == NSLineBreakMode::kTruncatingHead || mode == NSLineBreakMode::kTruncatingTail ||
         mode == NSLineBreakMode::kTruncatingMiddle;
}

QTextOption::WrapMode wrapOf(NSLineBreakMode mode) {
  switch (mode) {
    case NSLineBreakMode::kCharWrapping:
      return QTextOption::WrapAnywhere;
    case NSLineBreakMode::kClipping:
      return QTextOption::NoWrap;
    default:
      return QTextOption::WrapAtWordBoundaryOrAnywhere;
  }
}

void prepare(QTextLayout& layout, const TextBlock& block,
             const std::optional<UIUserInterfaceStyle>& style) {
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setWrapMode(block.wrap);
  option.setTextDirection(block.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
  layout.setTextOption(option);
  layout.setCacheEnabled(true);
  if (!block.text.spans.empty()) {
    layout.setFont(screenFont(block.text.spans.front().attributes.font));
  }
  layout.setFormats(block.text.formats(style));
}

// How high the line is, by the fonts of its characters.
void measureHeight(const AttributedText& text, TextBlock::Line& line) {
  CGFloat descent = 0;
  for (const AttributedText::Span& span : text.spans) {
    const bool inside =
        span.start < line.start + line.length && span.start + span.length > line.start;
    const bool atEmptyLine = line.length == 0 && line.ascent == 0;
    if (inside || atEmptyLine) {
      const UIFont::Metrics metrics = screenMetrics(span.attributes.font);
      line.ascent = std::max(line.ascent, metrics.ascender);
      descent = std::max(descent, metrics.descender);
    }
  }
  line.height = line.ascent + descent;
}

class LineSetter {
 public:
  LineSetter(const NSAttributedString& text, const TextStyle& style, bool screenRightToLeft)
      : text_(text),
        style_(style),
        screenRightToLeft_(screenRightToLeft),
        width_(std::min(style.area.width, kUnlimited)),
        window_(firstWindow()) {}

  LinesSet set() {
    if (!text_.empty() && width_ > 0) {
      while (setWindow()) {
      }
      align();
    } else {
      result_.truncated = !text_.empty();
    }
    for (const TextBlock& block : result_.blocks) {
      for (const TextBlock::Line& line : block.lines) {
        show(block, line);
      }
    }
    result_.shown = shown_.toAttributedString();
    return std::move(result_);
  }

 private:
  [[nodiscard]] UIFont firstFont() const {
    return text_.empty() ? UIFont::systemFontOfSize(1) : text_.runs().front().attributes.font;
  }
  // More than a line shows of narrow letters.
  [[nodiscard]] int unitsALine() const {
    constexpr CGFloat kNarrow = 0.1;
    const CGFloat units = width_ / (firstFont().pointSize() * kNarrow);
    return static_cast<int>(std::clamp(units, CGFloat{kSmallestWindow}, CGFloat{kUsualWindow}));
  }
  // As many characters as the area probably shows.
  [[nodiscard]] int firstWindow() const {
    CGFloat lines = style_.area.height / screenMetrics(firstFont()).lineHeight;
    if (style_.maximumLines > 0) {
      lines = std::min(lines, static_cast<CGFloat>(style_.maximumLines));
    }
    const CGFloat units = std::max(lines, CGFloat{1}) * unitsALine() / 2;
    return static_cast<int>(std::clamp(units, CGFloat{kSmallestWindow}, CGFloat{kUsualWindow}));
  }
  // No line has more characters: signs without width would have a line without end.
  [[nodiscard]] int largestWindow() const {
    return static_cast<int>(std::clamp(2 * width_, CGFloat{kUsualWindow}, CGFloat{kLargestWindow}));
  }

  [[nodiscard]] bool mayBegin(const TextBlock::Line& line) const {
    return result_.lineCount == 0 ||
           ((style_.maximumLines <= 0 || result_.lineCount < style_.maximumLines) &&
            result_.size.height + line.height <= style_.area.height + kTolerance);
  }

  // Sets the lines of the window at `at_`. False when the text is set.
  bool setWindow() {
    TextWindow window = readWindow(text_, at_, window_);
    if (atParagraph_) {
      // A number reads from left to right on every screen.
      rightToLeft_ = isRightToLeft(window.text.text).value_or(false);
    }
    TextBlock block{window.text, rightToLeft_, wrapOf(style_.lineBreakMode), width_, {}};
    QTextLayout layout(block.text.text);
    prepare(layout, block, std::nullopt);
    layout.beginLayout();
    bool full = false;
    bool cut = false;
    int end = 0;
    while (!full && !cut) {
      const std::optional<TextBlock::Line> line = nextLine(layout, block);
      if (!line) {
        break;
      }
      // The last line of a window may go on in the next.
      cut = !window.endsParagraph && line->start + line->length >= block.text.length();
      if (cut && (!block.lines.empty() || window_ < largestWindow())) {
        break;
      }
      full = !mayBegin(*line);
      if (!full) {
        end = line->start + line->length;
        accept(block, *line, window);
      }
    }
    layout.endLayout();
    const bool some = !block.lines.empty();
    if (some) {
      result_.blocks.push_back(std::move(block));
    }
    if (full) {
      shorten();
      return false;
    }
    if (!some && cut) {
      window_ = std::min(window_ * 4, largestWindow());
      return true;
    }
    return goOn(window, end);
  }

  [[nodiscard]] std::optional<TextBlock::Line> nextLine(QTextLayout& layout,
                                                        const TextBlock& block) const {
    QTextLine line = layout.createLine();
    if (!line.isValid()) {
      return std::nullopt;
    }
    line.setLineWidth(width_ + kTolerance);
    TextBlock::Line result;
    result.start = line.textStart();
    result.length = line.textLength();
    result.naturalWidth = line.naturalTextWidth();
    result.naturalLeft = line.naturalTextRect().x() - line.x();
    measureHeight(block.text, result);
    return result;
  }

  void accept(TextBlock& block, TextBlock::Line line, const TextWindow& window) {
    line.origin.y = result_.size.height;
    lastLineAt_ = window.bytes.at(static_cast<std::size_t>(line.start));
    add(line);
    block.lines.push_back(line);
  }

  void add(const TextBlock::Line& line) {
    const bool tooWide = line.naturalWidth > width_ + kTolerance;
    result_.truncated = result_.truncated || tooWide;
    result_.size.width = std::max(result_.size.width, std::min(line.naturalWidth, width_));
    result_.size.height += line.height;
    ++result_.lineCount;
  }

  // To what comes after `end` of the window. False when that is the end of the text.
  bool goOn(const TextWindow& window, int end) {
    const bool whole = window.endsParagraph && end >= window.text.length();
    if (whole) {
      at_ = window.next;
      atParagraph_ = true;
      return !window.endsText;
    }
    if (style_.lineBreakMode == NSLineBreakMode::kClipping) {
      result_.truncated = true;
      const TextWindow rest =
          readWindow(text_, endOfParagraph(text_.string(), window.bytes.back()), 1);
      at_ = rest.next;
      atParagraph_ = true;
      return !rest.endsText;
    }
    at_ = window.bytes.at(static_cast<std::size_t>(end));
    atParagraph_ = false;
    return true;
  }

  // There is more text than lines: the last one tells so.
  void shorten() {
    result_.truncated = true;
    if (!shortens(style_.lineBreakMode)) {
      return;
    }
    TextBlock& last = result_.blocks.back();
    const TextBlock::Line old = last.lines.back();
    last.lines.pop_back();
    TextBlock block = shortenedLine(text_, lastLineAt_,
                                    {style_.lineBreakMode, width_, last.rightToLeft, unitsALine()});
    if (last.lines.empty()) {
      result_.blocks.pop_back();
    }
    --result_.lineCount;
    result_.size = {0, old.origin.y};
    for (const TextBlock& before : result_.blocks) {
      for (const TextBlock::Line& line : before.lines) {
        result_.size.width = std::max(result_.size.width, std::min(line.naturalWidth, width_));
      }
    }
    measureHeight(block.text, block.lines.front());
    block.lines.front().origin.y = old.origin.y;
    add(block.lines.front());
    result_.blocks.push_back(std::move(block));
  }

  void align() {
    NSTextAlignment alignment = style_.alignment;
    if (alignment == NSTextAlignment::kNatural) {
      alignment = screenRightToLeft_ ? NSTextAlignment::kRight : NSTextAlignment::kLeft;
    }
    const CGFloat room = width_ >= kUnlimited ? result_.size.width : width_;
    for (TextBlock& block : result_.blocks) {
      for (TextBlock::Line& line : block.lines) {
        const CGFloat free = room - line.naturalWidth;
        // What is wider than the area is clipped at its end.
        if (alignment == NSTextAlignment::kRight || (free < 0 && block.rightToLeft)) {
          line.origin.x = free;
        } else if (alignment == NSTextAlignment::kCenter && free > 0) {
          line.origin.x = free / 2;
        }
        if (free < 0 && !block.rightToLeft) {
          line.origin.x = 0;
        }
      }
    }
  }

  void show(const TextBlock& block, const TextBlock::Line& line) {
    AttributedText part = block.text.mid(line.start, line.length);
    int length = part.length();
    while (length > 0 && part.text[length - 1].isSpace()) {
      --length;
    }
    if (line.start + line.length < block.text.length()) {
      part = part.mid(0, length);
    }
    if (shownLines_++ > 0) {
      shown_.append({"\n", {{0, 1, block.text.spans.front().attributes}}});
    }
    shown_.append(part);
  }

  const NSAttributedString& text_;
  const TextStyle& style_;
  const bool screenRightToLeft_;
  const CGFloat width_;
  int window_;
  std::size_t at_ = 0;
  std::size_t lastLineAt_ = 0;
  bool atParagraph_ = true;
  bool rightToLeft_ = false;
  LinesSet result_;
  AttributedText shown_;
  int shownLines_ = 0;
};

}  // namespace

std::unique_ptr<QTextLayout> makeLayout(const TextBlock& block,
                                        const std::optional<UIUserInterfaceStyle>& style) {
  auto layout = std::make_unique<QTextLayout>(block.text.text);
  prepare(*layout, block, style);
  layout->beginLayout();
  for (const TextBlock::Line& wanted : block.lines) {
    QTextLine line = layout->createLine();
    if (!line.isValid()) {
      break;
    }
    line.setLineWidth(block.width + kTolerance);
    line.setPosition(
        {wanted.origin.x - wanted.naturalLeft, wanted.origin.y + wanted.ascent - line.ascent()});
  }
  layout->endLayout();
  return layout;
}

LinesSet setLines(const NSAttributedString& text, const TextStyle& style, bool screenRightToLeft) {
  return LineSetter(text, style, screenRightToLeft).set();
}

}  // namespace zephyl::linux_host
