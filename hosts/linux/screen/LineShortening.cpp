#include "hosts/linux/screen/LineShortening.h"

#include <QTextBoundaryFinder>
#include <algorithm>

#include "hosts/linux/screen/EmojiRanges.h"

namespace zephyl::linux_host {

namespace {

TextBlock lineOf(AttributedText text, bool rightToLeft, CGFloat width) {
  TextBlock block{std::move(text), rightToLeft, QTextOption::NoWrap, width, {TextBlock::Line()}};
  const std::unique_ptr<QTextLayout> layout = makeLayout(block, std::nullopt);
  const QTextLine line = layout->lineAt(0);
  TextBlock::Line& only = block.lines.front();
  only.length = block.text.length();
  only.naturalWidth = line.naturalTextWidth();
  only.naturalLeft = line.naturalTextRect().x() - line.x();
  return block;
}

// Where characters begin as the user sees them, both ends included. Qt parts some emoji of several
// signs, such as families and flags of regions.
std::vector<int> boundaries(const QString& text) {
  const std::vector<TextRange> emoji = emojiPictures(text);
  auto picture = emoji.begin();
  std::vector<int> result = {0};
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  for (auto at = finder.toNextBoundary(); at > 0; at = finder.toNextBoundary()) {
    while (picture != emoji.end() && picture->start + picture->length <= at) {
      ++picture;
    }
    if (picture == emoji.end() || at <= picture->start) {
      result.push_back(static_cast<int>(at));
    }
  }
  return result;
}

class Shortener {
 public:
  Shortener(const TextWindow& head, AttributedText tail, const Shortening& shortening)
      : head_(head.text),
        tail_(std::move(tail)),
        how_(shortening),
        headEnds_(boundaries(head_.text)),
        tailStarts_(boundaries(tail_.text)) {}

  TextBlock line() {
    switch (how_.mode) {
      case NSLineBreakMode::kTruncatingHead:
        return with(0, longestTail(0));
      case NSLineBreakMode::kTruncatingMiddle: {
        const std::size_t first = longestHead(how_.width / 2);
        return with(first, longestTail(first));
      }
      default:
        return with(longestHead(how_.width), 0);
    }
  }

 private:
  // The line with so many characters before the sign and so many after it.
  [[nodiscard]] TextBlock with(std::size_t before, std::size_t after) const {
    int length = headEnds_.at(before);
    while (length > 0 && head_.text[length - 1].isSpace()) {
      --length;
    }
    int from = tailStarts_.at(tailStarts_.size() - 1 - after);
    while (from < tail_.length() && tail_.text[from].isSpace()) {
      ++from;
    }
    AttributedText text = head_.mid(0, length);
    text.append(length > 0 ? head_.ellipsisAt(length - 1) : tail_.ellipsisAt(from));
    text.append(tail_.mid(from, tail_.length() - from));
    return lineOf(std::move(text), how_.rightToLeft, how_.width);
  }

  [[nodiscard]] bool fits(std::size_t before, std::size_t after, CGFloat width) const {
    return with(before, after).lines.front().naturalWidth <= width;
  }

  [[nodiscard]] std::size_t longestHead(CGFloat width) const {
    return longest(headEnds_.size() - 1, [&](std::size_t count) { return fits(count, 0, width); });
  }
  [[nodiscard]] std::size_t longestTail(std::size_t before) const {
    return longest(tailStarts_.size() - 1,
                   [&](std::size_t count) { return fits(before, count, how_.width); });
  }

  // The largest number that still fits, by halving; narrow signs may make it one too few.
  template <typename Fits>
  [[nodiscard]] static std::size_t longest(std::size_t most, const Fits& fits) {
    std::size_t low = 0;
    std::size_t high = most;
    while (low < high) {
      const std::size_t middle = (low + high + 1) / 2;
      if (fits(middle)) {
        low = middle;
      } else {
        high = middle - 1;
      }
    }
    return low;
  }

  const AttributedText head_;
  const AttributedText tail_;
  const Shortening how_;
  const std::vector<int> headEnds_;
  const std::vector<int> tailStarts_;
};

// The last units of the paragraph.
AttributedText endOf(const NSAttributedString& text, std::size_t from, int units) {
  constexpr std::size_t kMostBytesAUnit = 3;
  const std::string& bytes = text.string();
  const std::size_t end = endOfParagraph(bytes, from);
  std::size_t start = end - std::min(end - from, static_cast<std::size_t>(units) * kMostBytesAUnit);
  while (start < end && (static_cast<unsigned char>(bytes[start]) & 0xC0U) == 0x80) {
    ++start;
  }
  const TextWindow window = readWindow(text, start, units * static_cast<int>(kMostBytesAUnit));
  const int length = window.text.length();
  return window.text.mid(std::max(0, length - units), units);
}

}  // namespace

TextBlock shortenedLine(const NSAttributedString& text, std::size_t from,
                        const Shortening& shortening) {
  const TextWindow head = readWindow(text, from, shortening.window);
  AttributedText tail;
  if (shortening.mode != NSLineBreakMode::kTruncatingTail) {
    tail = endOf(text, from, shortening.window);
  }
  return Shortener(head, std::move(tail), shortening).line();
}

}  // namespace zephyl::linux_host
