#include "hosts/linux/messages/SourceFiles.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zephyl::linux_host {
namespace {

constexpr std::int64_t kNanosecondsInASecond = 1'000'000'000;
constexpr std::int64_t kHeaderSize = 100;
constexpr std::int64_t kSmallestPage = 512;
constexpr std::int64_t kLargestPage = 65536;
constexpr std::string_view kMagic("SQLite format 3\0", 16);

// Only of regular files: a pipe or a device beside a database is none of SQLite's.
std::optional<FileStamp> stampOf(const std::filesystem::path& file) {
  struct stat status = {};
  if (::stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  return FileStamp{.device = status.st_dev,
                   .inode = status.st_ino,
                   .size = status.st_size,
                   .modifiedNanoseconds =
                       status.st_mtim.tv_sec * kNanosecondsInASecond + status.st_mtim.tv_nsec};
}

std::string beginning(const std::filesystem::path& file, std::size_t length) {
  std::string bytes(length, '\0');
  std::ifstream stream(file, std::ios::binary);
  stream.read(bytes.data(), static_cast<std::streamsize>(length));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

std::filesystem::path withSuffix(const std::filesystem::path& file, std::string_view suffix) {
  std::filesystem::path result = file;
  result += suffix;
  return result;
}

// A journal whose first byte is zero has been finished with and only kept.
bool isHot(const std::filesystem::path& journal) {
  const std::string first = beginning(journal, 1);
  return !first.empty() && first.front() != '\0';
}

std::int64_t numberAt(std::string_view header, std::size_t at, std::size_t width) {
  std::int64_t value = 0;
  for (std::size_t index = 0; index < width; ++index) {
    value = value << 8 | static_cast<unsigned char>(header[at + index]);
  }
  return value;
}

// Of the whole file, as the header tells it; the least possible size when it does not. The number
// of pages counts only if it is as new as the last change.
std::int64_t promisedSize(std::string_view header) {
  constexpr std::size_t kPageSizeAt = 16;
  constexpr std::size_t kChangeCounterAt = 24;
  constexpr std::size_t kPageCountAt = 28;
  constexpr std::size_t kPageCountVersionAt = 92;
  if (header.size() < static_cast<std::size_t>(kHeaderSize) ||
      numberAt(header, kChangeCounterAt, 4) != numberAt(header, kPageCountVersionAt, 4)) {
    return kSmallestPage;
  }
  const std::int64_t written = numberAt(header, kPageSizeAt, 2);
  return (written == 1 ? kLargestPage : written) *
         std::max<std::int64_t>(numberAt(header, kPageCountAt, 4), 1);
}

// Why the file cannot be opened for reading, from the system.
std::optional<std::string> accessProblem(const std::filesystem::path& file) {
  struct stat status = {};
  if (::stat(file.c_str(), &status) != 0) {
    return errno == ENOENT || errno == ENOTDIR
               ? std::string("there is no such file; check the path")
               : std::string("the file cannot be reached: ") + std::strerror(errno);
  }
  if (S_ISDIR(status.st_mode)) {
    return "this is a folder; name the database file in it";
  }
  if (!S_ISREG(status.st_mode)) {
    return "this is not a regular file; name a database file";
  }
  const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) {
    return std::string("the file cannot be read: ") + std::strerror(errno) +
           "; make it readable for this user";
  }
  ::close(descriptor);
  return std::nullopt;
}

}  // namespace

SourceFiles::SourceFiles(const std::filesystem::path& database) {
  std::error_code error;
  database_ = std::filesystem::canonical(database, error);
  if (error) {
    database_ = database;
  }
  databaseStamp_ = stampOf(database_);
  logStamp_ = stampOf(writeAheadLog());
  journalStamp_ = stampOf(rollbackJournal());
  header_ = databaseStamp_ ? beginning(database_, kHeaderSize) : std::string();
  hotJournal_ = journalStamp_ && size() > 0 && isHot(rollbackJournal());
}

std::filesystem::path SourceFiles::writeAheadLog() const {
  return withSuffix(database_, "-wal");
}

std::filesystem::path SourceFiles::rollbackJournal() const {
  return withSuffix(database_, "-journal");
}

std::optional<std::string> SourceFiles::problem() const {
  if (auto problem = accessProblem(database_)) {
    return problem;
  }
  if (size() == 0) {
    return hasLog()
               ? std::nullopt
               : std::optional<std::string>("the file is empty; copy it again from its source");
  }
  if (!header_.starts_with(kMagic.substr(0, header_.size()))) {
    return std::string(kNotADatabase);
  }
  // With a log or a journal the file may be shorter than it says; they bring the rest.
  const std::int64_t promised = hasLog() || hasHotJournal() ? kHeaderSize : promisedSize(header_);
  if (size() < promised) {
    return "the file is cut off: " + std::to_string(size()) + " of " + std::to_string(promised) +
           " bytes are there; copy it again from its source";
  }
  return std::nullopt;
}

bool SourceFiles::isInLogMode() const {
  constexpr std::size_t kReadVersionAt = 19;
  return header_.size() > kReadVersionAt && header_[kReadVersionAt] == 2;
}

bool SourceFiles::unchanged() const {
  return stampOf(database_) == databaseStamp_ && stampOf(writeAheadLog()) == logStamp_ &&
         stampOf(rollbackJournal()) == journalStamp_;
}

}  // namespace zephyl::linux_host
