#include "hosts/linux/FileContents.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zephyl::linux_host {

namespace {

constexpr mode_t kForUserAlone = 0600;
constexpr int kNeverWait = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

std::string errorText(int code) {
  return std::generic_category().message(code);
}

FileFailure failure(std::string_view what) {
  return std::string(what) + ": " + errorText(errno);
}

// Closed when it goes out of scope.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) {
      ::close(number_);
    }
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  [[nodiscard]] bool isOpen() const { return number_ >= 0; }
  [[nodiscard]] int number() const { return number_; }
  // Some file systems report a failed write only here.
  [[nodiscard]] bool close() { return ::close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

std::string folderOf(const std::string& path) {
  return std::filesystem::path(path).parent_path().string();
}

// A file's name survives a power cut only once its folder is on the disk; a file system that cannot
// do so is no failure of the write.
void syncFolder(const std::string& folder) {
  const Descriptor directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (directory.isOpen()) {
    ::fsync(directory.number());
  }
}

FileReading unread(std::string reason) {
  return {std::nullopt, std::move(reason)};
}

// Missing, or why not.
FileReading unopened() {
  return errno == ENOENT || errno == ENOTDIR ? FileReading() : unread(errorText(errno));
}

// Null when the file may be read.
const char* whyNotReadable(const struct stat& status) {
  if (S_ISDIR(status.st_mode)) {
    return "it is a folder";
  }
  if (!S_ISREG(status.st_mode)) {
    return "it is no regular file";
  }
  return static_cast<std::uint64_t>(status.st_size) > kMaximumFileBytes
             ? "it is larger than 512 MiB"
             : nullptr;
}

// Also what a file grows by while it is read.
FileReading readAll(int file, std::size_t expected) {
  std::string contents(expected + 1, '\0');
  std::size_t size = 0;
  for (;;) {
    const ssize_t count = ::read(file, contents.data() + size, contents.size() - size);
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count < 0) {
      return unread(errorText(errno));
    }
    if (count == 0) {
      contents.resize(size);
      return {std::move(contents), {}};
    }
    size += static_cast<std::size_t>(count);
    if (size > kMaximumFileBytes) {
      return unread("it is larger than 512 MiB");
    }
    if (size == contents.size()) {
      contents.resize(size * 2);
    }
  }
}

FileFailure writeAll(int file, std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t count = ::write(file, contents.data(), contents.size());
    if (count < 0 && errno != EINTR) {
      return failure("cannot write");
    }
    contents.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
  }
  return std::nullopt;
}

// All of `contents` and nothing behind it, on the disk.
FileFailure fill(Descriptor& file, std::string_view contents) {
  if (FileFailure failed = writeAll(file.number(), contents)) {
    return failed;
  }
  if (::ftruncate(file.number(), static_cast<off_t>(contents.size())) != 0) {
    return failure("cannot set the size");
  }
  if (::fsync(file.number()) != 0) {
    return failure("cannot bring it to the disk");
  }
  return file.close() ? std::nullopt : failure("cannot close");
}

// Nothing is lost when there is no room. Not every file system can tell beforehand.
FileFailure reserve(int file, std::size_t size, off_t oldSize) {
  if (size == 0 || ::fallocate(file, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)) == 0 ||
      (errno != ENOSPC && errno != EDQUOT && errno != EFBIG)) {
    return std::nullopt;
  }
  FileFailure failed = failure("cannot write");
  // Gives back what was reserved in part; the content is as it was either way.
  static_cast<void>(::ftruncate(file, oldSize) == 0);
  return failed;
}

}  // namespace

FileReading readWholeFile(const std::string& path) {
  struct stat status {};
  // Asked before opening, since opening some devices already does something.
  if (::stat(path.c_str(), &status) != 0) {
    return unopened();
  }
  if (const char* reason = whyNotReadable(status)) {
    return unread(reason);
  }
  const Descriptor file(::open(path.c_str(), O_RDONLY | kNeverWait));
  if (!file.isOpen()) {
    return unopened();
  }
  if (::fstat(file.number(), &status) != 0) {
    return unread(errorText(errno));
  }
  if (const char* reason = whyNotReadable(status)) {
    return unread(reason);
  }
  return readAll(file.number(), static_cast<std::size_t>(status.st_size));
}

FileFailure makeFolders(const std::string& folder) {
  for (std::size_t slash = folder.find('/', 1);; slash = folder.find('/', slash + 1)) {
    const std::string part = folder.substr(0, slash);
    if (::mkdir(part.c_str(), 0700) != 0 && errno != EEXIST) {
      return failure("cannot make the folder " + part);
    }
    if (slash == std::string::npos) {
      return std::nullopt;
    }
  }
}

FileFailure writeInPlace(const std::string& path, const std::string& contents) {
  struct stat status {};
  const bool isNew = ::lstat(path.c_str(), &status) != 0;
  if (!isNew && !S_ISREG(status.st_mode)) {
    return S_ISDIR(status.st_mode) ? "it is a folder" : "it is no regular file";
  }
  Descriptor file(
      ::open(path.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | kNeverWait, kForUserAlone));
  if (!file.isOpen()) {
    return failure("cannot open");
  }
  FileFailure failed = reserve(file.number(), contents.size(), isNew ? 0 : status.st_size);
  if (failed) {
    if (isNew) {
      ::unlink(path.c_str());
    }
    return failed;
  }
  failed = fill(file, contents);
  if (!failed && isNew) {
    syncFolder(folderOf(path));
  }
  return failed;
}

NewFileOutcome writeNewFile(const std::string& path, const std::string& contents) {
  Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | kNeverWait, kForUserAlone));
  if (!file.isOpen()) {
    const bool existed = errno == EEXIST;
    return {failure("cannot make " + path), existed};
  }
  if (FileFailure failed = fill(file, contents)) {
    ::unlink(path.c_str());
    return {std::move(failed)};
  }
  syncFolder(folderOf(path));
  return {};
}

std::string behindLinks(const std::string& path) {
  constexpr int kMostLinks = 40;
  std::filesystem::path file(path);
  std::error_code error;
  for (int links = 0; links < kMostLinks && std::filesystem::is_symlink(file, error); ++links) {
    file = file.parent_path() / std::filesystem::read_symlink(file, error);
  }
  return file.string();
}

FileFailure replaceFile(const std::string& path, const std::string& contents) {
  struct stat status {};
  const bool isThere = ::lstat(path.c_str(), &status) == 0;
  if (isThere && !S_ISREG(status.st_mode)) {
    return S_ISDIR(status.st_mode) ? "it is a folder" : "it is no regular file";
  }
  std::string temporary = path + ".XXXXXX";
  Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
  if (!file.isOpen()) {
    return failure("cannot make a new file beside it");
  }
  constexpr mode_t kPermissions = 0777;
  FileFailure failed;
  if (isThere && ::fchmod(file.number(), status.st_mode & kPermissions) != 0) {
    failed = failure("cannot keep the permissions of " + path);
  }
  if (!failed) {
    failed = fill(file, contents);
  }
  if (!failed) {
    failed = renameFile(temporary, path);
  }
  if (failed) {
    ::unlink(temporary.c_str());
  }
  return failed;
}

FileFailure removeFile(const std::string& path) {
  if (::unlink(path.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR) {
    return failure("cannot remove " + path);
  }
  syncFolder(folderOf(path));
  return std::nullopt;
}

FileFailure renameFile(const std::string& from, const std::string& to) {
  if (::rename(from.c_str(), to.c_str()) != 0) {
    return failure("cannot rename " + from);
  }
  syncFolder(folderOf(to));
  return std::nullopt;
}

}  // namespace zephyl::linux_host
