#include "hosts/linux/contacts/TextFile.h"

#include <cerrno>
#include <cstring>
#include <string_view>
#include <system_error>
#include <utility>

#include "hosts/linux/contacts/VCardEncoding.h"

namespace zephyl::linux_host {

namespace {

constexpr std::size_t kPiece = std::size_t{256} * 1024;

std::string whyNotRegular(const std::filesystem::path& file) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(file, error);
  if (status.type() == std::filesystem::file_type::not_found) {
    return "there is no such file";
  }
  return error ? error.message() : "this is not a regular file";
}

}  // namespace

std::optional<FileState> FileState::of(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) {
    return std::nullopt;
  }
  FileState state;
  state.size = std::filesystem::file_size(file, error);
  if (!error) {
    state.time = std::filesystem::last_write_time(file, error);
  }
  return error ? std::nullopt : std::optional(state);
}

std::variant<TextFile, std::string> TextFile::open(const std::filesystem::path& file) {
  const std::optional<FileState> state = FileState::of(file);
  if (!state) {
    return whyNotRegular(file);
  }
  TextFile text;
  text.state_ = *state;
  errno = 0;
  text.stream_.open(file, std::ios::binary);
  if (!text.stream_) {
    return "the file cannot be opened: " + std::string(std::strerror(errno));
  }
  text.fill();
  text.findEncoding();
  return text;
}

void TextFile::fill() {
  const std::size_t kept = pending_.size();
  pending_.resize(kept + kPiece);
  stream_.read(pending_.data() + kept, static_cast<std::streamsize>(kPiece));
  pending_.resize(kept + static_cast<std::size_t>(stream_.gcount()));
  if (stream_.bad() && !error_) {
    error_ = "the file cannot be read to its end";
  }
}

void TextFile::findEncoding() {
  constexpr char kZero = '\0';
  const std::string_view start = pending_;
  std::size_t mark = 0;
  if (start.starts_with("\xEF\xBB\xBF")) {
    mark = 3;
  } else if (start.starts_with("\xFF\xFE")) {
    encoding_ = Encoding::kUtf16Little;
    mark = 2;
  } else if (start.starts_with("\xFE\xFF")) {
    encoding_ = Encoding::kUtf16Big;
    mark = 2;
  } else if (start.size() >= 4 && start[0] != kZero && start[1] == kZero && start[3] == kZero) {
    encoding_ = Encoding::kUtf16Little;
  } else if (start.size() >= 4 && start[0] == kZero && start[1] != kZero && start[2] == kZero) {
    encoding_ = Encoding::kUtf16Big;
  }
  pending_.erase(0, mark);
  textStart_ = mark;
}

bool TextFile::readMore(std::string& text) {
  if (!ahead_.empty()) {
    text += std::exchange(ahead_, std::string());
    return true;
  }
  if (pending_.size() < 4) {
    fill();
  }
  if (pending_.empty()) {
    return false;
  }
  if (isUtf16()) {
    takeUtf16(text);
  } else {
    text += pending_;
    pending_.clear();
  }
  return true;
}

// A pair of units that the end of the piece would tear apart waits for the next one.
void TextFile::takeUtf16(std::string& text) {
  const bool big = encoding_ == Encoding::kUtf16Big;
  const bool last = stream_.eof() || stream_.bad();
  std::size_t take = pending_.size();
  if (!last) {
    take -= take % 2;
    const auto high = static_cast<unsigned char>(pending_[take - (big ? 2 : 1)]);
    take -= high >= 0xD8 && high < 0xDC ? 2 : 0;
  }
  vcard::appendUtf16(text, std::string_view(pending_).substr(0, take), big);
  pending_.erase(0, take);
}

bool TextFile::skipTo(std::uint64_t place) {
  if (!isUtf16()) {
    pending_.clear();
    stream_.clear();
    stream_.seekg(static_cast<std::streamoff>(textStart_ + place));
    fill();
    return !pending_.empty();
  }
  // Where a place of the text is in such a file is only known by reading up to it.
  std::string text;
  std::uint64_t passed = 0;
  while (readMore(text)) {
    if (passed + text.size() > place) {
      ahead_ = text.substr(static_cast<std::size_t>(place - passed));
      return true;
    }
    passed += text.size();
    text.clear();
  }
  return false;
}

}  // namespace zephyl::linux_host
