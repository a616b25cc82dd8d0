#include "hosts/linux/notices/NoticeText.h"

#include <QList>
#include <optional>

namespace zephyl::linux_host {
namespace {

constexpr char32_t kLineBreak = U'\n';

// Embeddings, overrides and isolates. The marks that only stand for a letter of one direction are
// left: ordinary Arabic and Hebrew has them.
bool turnsTheOrder(char32_t character) {
  return (character >= U'\u202A' && character <= U'\u202E') ||
         (character >= U'\u2066' && character <= U'\u2069');
}

bool breaksTheLine(char32_t character) {
  return (character >= 0x0A && character <= 0x0D) || character == 0x85 || character == U'\u2028' ||
         character == U'\u2029';
}

bool isControl(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

// Nothing for what is left out.
std::optional<char32_t> harmless(char32_t character) {
  if (breaksTheLine(character)) {
    return kLineBreak;
  }
  if (character == U'\t') {
    return U' ';
  }
  return turnsTheOrder(character) || isControl(character) ? std::nullopt : std::optional(character);
}

QString shortened(std::string_view text, std::size_t limit, char32_t lineBreak) {
  QString cut = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  cut.replace("\r\n", "\n");
  QString result;
  std::size_t count = 0;
  for (const char32_t character : cut.trimmed().toUcs4()) {
    const auto kept = harmless(character);
    if (!kept) {
      continue;
    }
    if (count++ == limit) {
      return result + QChar(u'\u2026');
    }
    const char32_t shown = *kept == kLineBreak ? lineBreak : *kept;
    result += QString::fromUcs4(&shown, 1);
  }
  return result;
}

}  // namespace

QString noticeTitle(std::string_view text) {
  return shortened(text, kMostCharactersOfTitle, U' ');
}

QString noticeBody(std::string_view text, bool isMarkup) {
  const QString body = shortened(text, kMostCharactersOfBody, kLineBreak);
  return isMarkup ? body.toHtmlEscaped() : body;
}

}  // namespace zephyl::linux_host
