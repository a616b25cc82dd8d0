#include "hosts/linux/messages/ScratchCopy.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace zephyl::linux_host {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 20;
constexpr std::string_view kJournalMagic("\xD9\xD5\x05\xF9\x20\xA1\x63\xD7", 8);
constexpr std::string_view kHeaderMagic("SQLite format 3\0", 16);

class Descriptor {
 public:
  Descriptor(const std::filesystem::path& file, int flags)
      : value_(::open(file.c_str(), flags | O_CLOEXEC, 0600)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (value_ >= 0) {
      ::close(value_);
    }
  }

  [[nodiscard]] int get() const { return value_; }
  [[nodiscard]] bool isOpen() const { return value_ >= 0; }

 private:
  int value_;
};

std::string systemMessage() {
  return std::strerror(errno);
}

bool writeAll(int descriptor, const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t written = ::write(descriptor, bytes, count);
    if (written < 0 && errno == EINTR) {
      continue;
    }
    if (written < 0) {
      return false;
    }
    bytes += written;
    count -= static_cast<std::size_t>(written);
  }
  return true;
}

// What went wrong, or null.
std::optional<std::string> copyBytes(const std::filesystem::path& from,
                                     const std::filesystem::path& to) {
  const Descriptor source(from, O_RDONLY | O_NONBLOCK);
  if (!source.isOpen()) {
    return from.filename().string() + " cannot be read: " + systemMessage();
  }
  const Descriptor target(to, O_WRONLY | O_CREAT | O_TRUNC);
  if (!target.isOpen()) {
    return "no private copy can be made in " + to.parent_path().string() + ": " + systemMessage();
  }
  std::vector<char> buffer(kBufferSize);
  for (;;) {
    const ssize_t count = ::read(source.get(), buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count < 0) {
      return from.filename().string() + " cannot be read: " + systemMessage();
    }
    if (count == 0) {
      return std::nullopt;
    }
    if (!writeAll(target.get(), buffer.data(), static_cast<std::size_t>(count))) {
      return "no private copy can be made in " + to.parent_path().string() + ": " + systemMessage();
    }
  }
}

// A journal may end with the name of a file that several databases share, and SQLite deletes that
// file once the journal is played back. The copy must not reach out of its folder, so the name is
// made unreadable; the transaction is then rolled back in this database alone.
std::optional<std::string> forgetSharedJournal(const std::filesystem::path& journal) {
  const Descriptor file(journal, O_RDWR);
  const off_t size = file.isOpen() ? ::lseek(file.get(), 0, SEEK_END) : -1;
  if (size < static_cast<off_t>(kJournalMagic.size())) {
    return std::nullopt;
  }
  const off_t at = size - static_cast<off_t>(kJournalMagic.size());
  std::array<char, 8> end = {};
  if (::pread(file.get(), end.data(), end.size(), at) != static_cast<ssize_t>(end.size())) {
    return "the private copy cannot be read: " + systemMessage();
  }
  if (std::string_view(end.data(), end.size()) == kJournalMagic &&
      ::ftruncate(file.get(), at) != 0) {
    return "the private copy cannot be changed: " + systemMessage();
  }
  return std::nullopt;
}

// SQLite throws the log of an empty database away. A first page that only says "there is a log,
// with pages of this size" makes it look into the log, where the true first page is.
std::optional<std::string> writeFirstPage(const std::filesystem::path& database,
                                          const std::filesystem::path& log) {
  constexpr off_t kPageSizeAt = 8;
  std::array<unsigned char, 4> field = {};
  const Descriptor source(log, O_RDONLY);
  if (!source.isOpen() || ::pread(source.get(), field.data(), field.size(), kPageSizeAt) !=
                              static_cast<ssize_t>(field.size())) {
    return std::nullopt;
  }
  const std::uint32_t pageSize = std::uint32_t{field[0]} << 24 | std::uint32_t{field[1]} << 16 |
                                 std::uint32_t{field[2]} << 8 | field[3];
  const bool isPowerOfTwo = (pageSize & (pageSize - 1)) == 0;
  if (pageSize < 512 || pageSize > 65536 || !isPowerOfTwo) {
    return std::nullopt;
  }
  std::string page(pageSize, '\0');
  kHeaderMagic.copy(page.data(), kHeaderMagic.size());
  page[16] = static_cast<char>(pageSize >> 8);
  page[17] = static_cast<char>(pageSize >> 16);
  page[18] = page[19] = 2;
  page[21] = 64;
  page[22] = page[23] = 32;
  const Descriptor target(database, O_WRONLY);
  if (!target.isOpen() || !writeAll(target.get(), page.data(), page.size())) {
    return "no private copy can be made: " + systemMessage();
  }
  return std::nullopt;
}

std::optional<std::string> copyAll(const SourceFiles& source, const std::filesystem::path& to) {
  const std::filesystem::path log = to.string() + "-wal";
  const std::filesystem::path journal = to.string() + "-journal";
  std::error_code ignored;
  std::filesystem::remove(log, ignored);
  std::filesystem::remove(journal, ignored);
  auto problem = copyBytes(source.database(), to);
  if (!problem && source.hasHotJournal()) {
    problem = copyBytes(source.rollbackJournal(), journal);
    problem = problem ? problem : forgetSharedJournal(journal);
  }
  if (!problem && source.hasLog()) {
    problem = copyBytes(source.writeAheadLog(), log);
    if (!problem && source.size() == 0) {
      problem = writeFirstPage(to, log);
    }
  }
  return problem;
}

}  // namespace

DatabaseResult<ScratchCopy> ScratchCopy::of(const std::filesystem::path& database,
                                            const Observer& observer) {
  std::error_code error;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
  std::string name = (parent / "zephyls-XXXXXX").string();
  if (error || ::mkdtemp(name.data()) == nullptr) {
    return DatabaseError{database.string(),
                         "no private copy can be made: the folder for temporary files (" +
                             parent.string() + ") cannot be written to; set TMPDIR"};
  }
  ScratchCopy copy{std::filesystem::path(name)};
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (attempt > 0) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10 << attempt));
    }
    const SourceFiles source(database);
    const auto problem = copyAll(source, copy.database());
    if (observer) {
      observer(attempt);
    }
    if (!source.unchanged()) {
      continue;
    }
    if (problem) {
      return DatabaseError{database.string(), *problem};
    }
    return copy;
  }
  return DatabaseError{database.string(),
                       "another program keeps changing the file; close that program and try again"};
}

ScratchCopy::ScratchCopy(ScratchCopy&& other) noexcept
    : folder_(std::exchange(other.folder_, std::filesystem::path())) {}

ScratchCopy& ScratchCopy::operator=(ScratchCopy&& other) noexcept {
  if (this != &other) {
    remove();
    folder_ = std::exchange(other.folder_, std::filesystem::path());
  }
  return *this;
}

ScratchCopy::~ScratchCopy() {
  remove();
}

void ScratchCopy::remove() noexcept {
  if (!folder_.empty()) {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
}

}  // namespace zephyl::linux_host
