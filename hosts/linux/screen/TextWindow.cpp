// Reading a part of a long text.

#include <QChar>
#include <algorithm>
#include <string>

#include "platform/foundation/Utf8.h"

#include "hosts/linux/screen/AttributedText.h"

namespace zephyl::linux_host {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kZeroWidthSpace = 0x200B;
constexpr char32_t kObject = 0xFFFC;
constexpr char32_t kNextLine = 0x85;
constexpr char32_t kLineSeparator = 0x2028;
constexpr char32_t kParagraphSeparator = 0x2029;

// Texts are valid UTF-8; where one is not after all, each wrong byte counts for itself.
Utf8Character characterAt(const std::string& text, std::size_t at) {
  const Utf8Character character = utf8CharacterAt(text, at);
  return character.length > 0 ? character : Utf8Character{kReplacement, 1};
}

bool endsLine(char32_t code) {
  return (code >= '\n' && code <= '\r') || code == kNextLine || code == kLineSeparator ||
         code == kParagraphSeparator;
}

char32_t drawn(char32_t code) {
  if (code == kObject) {
    return ' ';
  }
  const bool control = (code < ' ' && code != '\t') || (code >= 0x7F && code <= 0x9F);
  // Qt marks the frames of its documents with these.
  const bool nonCharacter = code >= 0xFDD0 && code <= 0xFDEF;
  return control ? kZeroWidthSpace : nonCharacter ? kReplacement : code;
}

void appendTo(QString& text, char32_t code) {
  if (QChar::requiresSurrogates(code)) {
    text += QChar(QChar::highSurrogate(code));
    text += QChar(QChar::lowSurrogate(code));
  } else {
    text += QChar(static_cast<char16_t>(code));
  }
}

// Where the character after a line's end begins: a carriage return and a line feed are one.
std::size_t afterLineEnd(const std::string& text, std::size_t at, const Utf8Character& end) {
  const std::size_t next = at + end.length;
  return end.codePoint == '\r' && next < text.size() && text[next] == '\n' ? next + 1 : next;
}

void addSpans(const NSAttributedString& text, TextWindow& window) {
  const std::size_t from = window.bytes.front();
  const std::size_t to = window.bytes.back();
  const auto& runs = text.runs();
  auto run = std::upper_bound(runs.begin(), runs.end(), from,
                              [](std::size_t byte, const NSAttributedString::Run& candidate) {
                                return byte < candidate.start + candidate.length;
                              });
  const auto unitAt = [&window](std::size_t byte) {
    return static_cast<int>(std::lower_bound(window.bytes.begin(), window.bytes.end(), byte) -
                            window.bytes.begin());
  };
  for (; run != runs.end() && run->start < to; ++run) {
    const int start = unitAt(std::max(run->start, from));
    const int end = unitAt(std::min(run->start + run->length, to));
    if (start < end) {
      window.text.spans.push_back({start, end - start, run->attributes});
    }
  }
  // An empty line is as high as the text around it.
  if (window.text.spans.empty() && !runs.empty()) {
    window.text.spans.push_back({0, 0, (run != runs.end() ? *run : runs.back()).attributes});
  }
}

}  // namespace

TextWindow readWindow(const NSAttributedString& text, std::size_t from, int maximumUnits) {
  const std::string& bytes = text.string();
  TextWindow window;
  std::size_t at = from;
  while (true) {
    window.endsText = at >= bytes.size();
    if (window.endsText) {
      window.endsParagraph = true;
      window.next = at;
      break;
    }
    const Utf8Character character = characterAt(bytes, at);
    if (endsLine(character.codePoint)) {
      window.endsParagraph = true;
      window.next = afterLineEnd(bytes, at, character);
      break;
    }
    if (window.text.length() >= maximumUnits) {
      break;
    }
    const auto before = window.text.text.size();
    appendTo(window.text.text, drawn(character.codePoint));
    window.bytes.insert(window.bytes.end(),
                        static_cast<std::size_t>(window.text.text.size() - before), at);
    at += character.length;
  }
  window.bytes.push_back(at);
  addSpans(text, window);
  return window;
}

std::size_t endOfParagraph(const std::string& text, std::size_t from) {
  std::size_t at = from;
  while (at < text.size()) {
    const Utf8Character character = characterAt(text, at);
    if (endsLine(character.codePoint)) {
      break;
    }
    at += character.length;
  }
  return at;
}

std::optional<bool> isRightToLeft(const QString& text) {
  for (qsizetype i = 0; i < text.size(); ++i) {
    char32_t code = text[i].unicode();
    if (text[i].isHighSurrogate() && i + 1 < text.size()) {
      code = QChar::surrogateToUcs4(text[i], text[i + 1]);
      ++i;
    }
    switch (QChar::direction(code)) {
      case QChar::DirL:
        return false;
      case QChar::DirR:
      case QChar::DirAL:
        return true;
      default:
        break;
    }
  }
  return std::nullopt;
}

}  // namespace zephyl::linux_host
