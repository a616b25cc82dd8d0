#include "hosts/linux/screen/AttributedText.h"

#include <QTextCharFormat>
#include <algorithm>

#include "hosts/linux/screen/EmojiRanges.h"
#include "hosts/linux/screen/ScreenColors.h"
#include "hosts/linux/screen/ScreenFonts.h"

namespace zephyl::linux_host {

namespace {

constexpr QChar kEllipsis(0x2026);

}  // namespace

AttributedText AttributedText::mid(int start, int count) const {
  const int first = std::clamp(start, 0, length());
  const int end = std::clamp(start + count, first, length());
  AttributedText part;
  part.text = text.mid(first, end - first);
  for (const Span& span : spans) {
    const int from = std::max(span.start, first);
    const int to = std::min(span.start + span.length, end);
    if (from < to) {
      part.spans.push_back({from - first, to - from, span.attributes});
    }
  }
  return part;
}

void AttributedText::append(const AttributedText& more) {
  const int offset = length();
  text += more.text;
  for (const Span& span : more.spans) {
    if (!spans.empty() && spans.back().attributes == span.attributes) {
      spans.back().length += span.length;
    } else {
      spans.push_back({offset + span.start, span.length, span.attributes});
    }
  }
}

AttributedText AttributedText::ellipsisAt(int at) const {
  NSAttributedString::Attributes look;
  for (const Span& span : spans) {
    if (span.start <= std::max(at, 0)) {
      look = span.attributes;
    }
  }
  return {QString(kEllipsis), {{0, 1, look}}};
}

bool AttributedText::hasOneColor() const {
  return std::all_of(spans.begin(), spans.end(), [this](const Span& span) {
    return span.attributes.color == spans.front().attributes.color;
  });
}

NSAttributedString AttributedText::toAttributedString() const {
  NSAttributedString result;
  for (const Span& span : spans) {
    result.append(
        NSAttributedString(text.mid(span.start, span.length).toStdString(), span.attributes));
  }
  return result;
}

QList<QTextLayout::FormatRange> AttributedText::formats(
    const std::optional<UIUserInterfaceStyle>& style) const {
  QList<QTextLayout::FormatRange> result;
  if (spans.empty()) {
    return result;
  }
  const UIFont base = spans.front().attributes.font;
  const bool colored = style.has_value() && !hasOneColor();
  const auto add = [&](int start, int count, const Span& span, bool emoji) {
    QTextCharFormat format;
    if (emoji) {
      format.setFont(emojiFont(span.attributes.font));
    } else if (span.attributes.font != base) {
      format.setFont(screenFont(span.attributes.font));
    } else if (!colored) {
      return;
    }
    if (colored) {
      format.setForeground(screenColor(span.attributes.color, *style));
    }
    result.append({start, count, format});
  };
  for (const Span& span : spans) {
    int done = span.start;
    for (const TextRange& emoji : emojiRanges(QStringView(text).mid(span.start, span.length))) {
      const int from = span.start + emoji.start;
      if (done < from) {
        add(done, from - done, span, /*emoji=*/false);
      }
      add(from, emoji.length, span, /*emoji=*/true);
      done = from + emoji.length;
    }
    if (done < span.start + span.length) {
      add(done, span.start + span.length - done, span, /*emoji=*/false);
    }
  }
  return result;
}

}  // namespace zephyl::linux_host
