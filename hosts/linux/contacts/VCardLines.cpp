#include "hosts/linux/contacts/VCardLines.h"

#include <algorithm>
#include <utility>

#include "hosts/linux/contacts/AsciiText.h"
#include "hosts/linux/contacts/VCardEncoding.h"

namespace zephyl::linux_host::vcard {

namespace {

bool isFold(std::string_view text) {
  return !text.empty() && (text.front() == ' ' || text.front() == '\t');
}

bool isCardBorder(std::string_view text) {
  text = ascii::trimmed(text);
  return ascii::equal(text, "END:VCARD") || ascii::equal(text, "BEGIN:VCARD");
}

// Each parameter once, split at semicolons. "ENCODING=" may be left out in old cards.
Transfer transferOf(std::string_view head) {
  std::size_t start = head.find(';');
  while (start != std::string_view::npos) {
    const std::size_t end = head.find(';', start + 1);
    std::string_view parameter = head.substr(start + 1, end - start - 1);
    if (ascii::startsWith(parameter, "ENCODING=")) {
      parameter.remove_prefix(9);
    }
    if (ascii::equal(parameter, "QUOTED-PRINTABLE")) {
      return Transfer::kQuotedPrintable;
    }
    if (ascii::equal(parameter, "BASE64") || ascii::equal(parameter, "B")) {
      return Transfer::kBase64;
    }
    start = end;
  }
  return Transfer::kPlain;
}

}  // namespace

// Forgets what was taken and reads on.
bool Lines::readMore() {
  buffer_.erase(0, at_);
  bufferPlace_ += at_;
  for (Search* search : {&lineFeed_, &carriageReturn_}) {
    search->at -= std::min(search->at, at_);
  }
  at_ = 0;
  return file_.readMore(buffer_);
}

std::size_t Lines::find(Search& search) const {
  search.at = std::max(search.at, at_);
  search.at = std::min(buffer_.find(search.character, search.at), buffer_.size());
  return search.at;
}

bool Lines::atEnd() {
  return at_ >= buffer_.size() && !readMore();
}

// Where the current line ends in the buffer: at its line break, at the end of the file, or where no
// more of it is kept.
std::size_t Lines::lineEnd() {
  for (;;) {
    const std::size_t end = std::min(find(lineFeed_), find(carriageReturn_));
    // Up to three characters can be one line break.
    const bool isWhole = end + 2 < buffer_.size() || buffer_.size() - at_ > mostBytes_ + 2;
    if (isWhole || !readMore()) {
      return std::min({find(lineFeed_), find(carriageReturn_), at_ + mostBytes_});
    }
  }
}

Lines::Physical Lines::peek() {
  const std::size_t end = lineEnd();
  const std::string_view text = buffer_;
  const std::string_view rest = text.substr(end);
  std::size_t breakLength = std::min<std::size_t>(rest.size(), 1);
  const bool isCut = !rest.empty() && rest.front() != '\r' && rest.front() != '\n';
  if (isCut) {
    breakLength = 0;
  } else if (rest.starts_with("\r\r\n")) {
    // A carriage return too many is no line of its own.
    breakLength = 3;
  } else if (rest.starts_with("\r\n")) {
    breakLength = 2;
  }
  return {text.substr(at_, end - at_), end + breakLength, isCut};
}

void Lines::take(const Physical& physical) {
  at_ = physical.next;
  bool more = physical.isCut;
  while (more && !atEnd()) {
    const Physical rest = peek();
    at_ = rest.next;
    more = rest.isCut;
  }
  ++number_;
}

void Lines::append(std::string_view text) {
  const std::size_t room = mostBytes_ - std::min(mostBytes_, line_.text.size());
  line_.isCut = line_.isCut || text.size() > room;
  line_.text += text.substr(0, room);
}

// Looks on for the colon where the last look ended.
void Lines::scanHead() {
  if (line_.colon != std::string::npos) {
    return;
  }
  for (; scanned_ < line_.text.size(); ++scanned_) {
    const char c = line_.text[scanned_];
    if (c == '"') {
      inQuotes_ = !inQuotes_;
    } else if (c == ':' && !inQuotes_) {
      line_.colon = scanned_;
      line_.transfer = transferOf(std::string_view(line_.text).substr(0, scanned_));
      return;
    }
  }
}

bool Lines::takeContinuation(const Physical& physical) {
  const bool mayBreakSoftly = !line_.text.empty() && line_.text.back() == '=';
  if (mayBreakSoftly || !isFold(physical.text)) {
    scanHead();
  }
  if (line_.transfer == Transfer::kQuotedPrintable) {
    if (mayBreakSoftly) {
      if (isCardBorder(physical.text)) {
        return false;
      }
      line_.text.pop_back();
      append(physical.text);
      return true;
    }
  }
  if (isFold(physical.text)) {
    append(physical.text.substr(1));
    return true;
  }
  if (line_.transfer == Transfer::kBase64 && looksLikeBase64(physical.text)) {
    append(physical.text);
    return true;
  }
  return false;
}

void Lines::finishLine() {
  scanHead();
  if (line_.colon == std::string::npos) {
    // A quotation mark that is never closed.
    line_.colon = line_.text.find(':');
  }
  if (line_.transfer == Transfer::kQuotedPrintable && line_.text.back() == '=') {
    line_.text.pop_back();
    line_.softBreakLeft = true;
  }
}

std::optional<Line> Lines::next() {
  line_ = Line();
  scanned_ = 0;
  inQuotes_ = false;
  while (line_.number == 0) {
    if (atEnd()) {
      return std::nullopt;
    }
    const Physical first = peek();
    if (!ascii::trimmed(first.text).empty()) {
      line_.number = number_ + 1;
      line_.place = bufferPlace_ + at_;
      line_.isCut = first.isCut;
      line_.text = first.text;
    }
    take(first);
  }
  while (!atEnd()) {
    const Physical physical = peek();
    if (!takeContinuation(physical)) {
      line_.emptyLineAfter = physical.text.empty();
      break;
    }
    line_.isCut = line_.isCut || physical.isCut;
    take(physical);
  }
  finishLine();
  return std::move(line_);
}

}  // namespace zephyl::linux_host::vcard
