// A text with fonts and colours in Qt's form, UTF-16, and pieces of a long one. Values; any thread.

#pragma once

#include <QList>
#include <QString>
#include <QTextLayout>
#include <cstddef>
#include <optional>
#include <vector>

#include "platform/uikit/NSAttributedString.h"
#include "platform/uikit/UIColor.h"

namespace zephyl::linux_host {

struct AttributedText {
  // They cover the text without gaps or overlaps, in order.
  struct Span {
    int start = 0;
    int length = 0;
    NSAttributedString::Attributes attributes;
  };
  QString text;
  std::vector<Span> spans;

  [[nodiscard]] int length() const { return static_cast<int>(text.size()); }
  [[nodiscard]] AttributedText mid(int start, int count) const;
  void append(const AttributedText& more);
  // The sign for what is left out, as the character at `at` looks, or the last one.
  [[nodiscard]] AttributedText ellipsisAt(int at) const;
  [[nodiscard]] bool hasOneColor() const;
  [[nodiscard]] NSAttributedString toAttributedString() const;

  // What a QTextLayout needs beside its own font, that of the first span. With a style, colours
  // too.
  [[nodiscard]] QList<QTextLayout::FormatRange> formats(
      const std::optional<UIUserInterfaceStyle>& style) const;
};

// A part of a paragraph. Controls, which would be drawn as boxes, are zero-width spaces here, and
// the sign for an object a space.
struct TextWindow {
  AttributedText text;
  // Where each code unit comes from in the whole text; one more for the end.
  std::vector<std::size_t> bytes;
  // Whether the paragraph ends here, and the text; and where the next paragraph begins.
  bool endsParagraph = false;
  bool endsText = false;
  std::size_t next = 0;
};

// From a byte where a character begins on: to the end of the paragraph, or at most so many units.
[[nodiscard]] TextWindow readWindow(const NSAttributedString& text, std::size_t from,
                                    int maximumUnits);

// Where the paragraph ends that the byte belongs to. Looks at no more than its bytes.
[[nodiscard]] std::size_t endOfParagraph(const std::string& text, std::size_t from);

// By the first letter that has a direction; nothing when none has.
[[nodiscard]] std::optional<bool> isRightToLeft(const QString& text);

}  // namespace zephyl::linux_host
