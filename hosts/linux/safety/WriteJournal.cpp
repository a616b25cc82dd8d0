#include "hosts/linux/safety/WriteJournal.h"

#include <QCryptographicHash>
#include <charconv>
#include <utility>

namespace zephyl::linux_host {

namespace {

constexpr std::string_view kFirstLine = "zephyls save 1";
constexpr std::string_view kBefore = "before ";
constexpr std::string_view kCopy = "copy ";
constexpr std::string_view kAfter = "after ";
constexpr std::string_view kMissing = "missing";

std::string textOf(const ContentMark& mark) {
  return std::to_string(mark.size) + " " + mark.sha256;
}

// On one line, whatever bytes are in it.
std::string lineOf(const std::string& path) {
  return QByteArray::fromStdString(path).toPercentEncoding("/").toStdString();
}

std::string pathOf(std::string_view line) {
  const QByteArray bytes(line.data(), static_cast<qsizetype>(line.size()));
  return QByteArray::fromPercentEncoding(bytes).toStdString();
}

std::optional<ContentMark> readMark(std::string_view text) {
  ContentMark mark;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), mark.size);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  if (error != std::errc() || !text.starts_with(' ')) {
    return std::nullopt;
  }
  mark.sha256 = text.substr(1);
  return mark;
}

// Takes the next line off `text`, without what it must begin with.
std::optional<std::string_view> takeLine(std::string_view& text, std::string_view beginning) {
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  if (end == std::string_view::npos || !line.starts_with(beginning)) {
    return std::nullopt;
  }
  text.remove_prefix(end + 1);
  return line.substr(beginning.size());
}

}  // namespace

ContentMark ContentMark::of(std::string_view contents) {
  QCryptographicHash hash(QCryptographicHash::Sha256);
  hash.addData(QByteArrayView(contents.data(), static_cast<qsizetype>(contents.size())));
  return {contents.size(), hash.result().toHex().toStdString()};
}

std::string textOf(const WriteJournal& journal) {
  std::string text(kFirstLine);
  text.append("\n").append(kBefore);
  text.append(journal.before ? textOf(*journal.before) : kMissing);
  text.append("\n").append(kCopy).append(lineOf(journal.copy));
  text.append("\n").append(kAfter).append(textOf(ContentMark::of(journal.after)));
  return text.append("\n\n").append(journal.after);
}

std::optional<WriteJournal> readJournal(std::string_view text) {
  const auto first = takeLine(text, kFirstLine);
  const auto before = takeLine(text, kBefore);
  const auto copy = takeLine(text, kCopy);
  const auto after = takeLine(text, kAfter);
  const auto empty = takeLine(text, "");
  if (!first || !before || !copy || !after || !empty || !first->empty() || !empty->empty() ||
      readMark(*after) != ContentMark::of(text)) {
    return std::nullopt;
  }
  WriteJournal journal{std::nullopt, pathOf(*copy), std::string(text)};
  if (*before != kMissing) {
    journal.before = readMark(*before);
    if (!journal.before) {
      return std::nullopt;
    }
  }
  return journal;
}

}  // namespace zephyl::linux_host
