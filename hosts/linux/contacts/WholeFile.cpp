#include "hosts/linux/contacts/WholeFile.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace zephyl::linux_host {

namespace {

constexpr std::uintmax_t kMostBytes = std::uintmax_t{256} * 1024 * 1024;

bool writeAndSync(int descriptor, const std::string& bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t count = ::write(descriptor, bytes.data() + written, bytes.size() - written);
    if (count < 0 && errno != EINTR) {
      return false;
    }
    written += count < 0 ? 0 : static_cast<std::size_t>(count);
  }
  return ::fsync(descriptor) == 0;
}

// The file behind links, whether or not it exists.
std::filesystem::path targetOf(std::filesystem::path file) {
  constexpr int kMostLinks = 40;
  std::error_code error;
  for (int links = 0; links < kMostLinks && std::filesystem::is_symlink(file, error); ++links) {
    file = file.parent_path() / std::filesystem::read_symlink(file, error);
  }
  return file;
}

}  // namespace

WholeFile readWhole(const std::filesystem::path& file) {
  WholeFile result;
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(file, error);
  if (status.type() == std::filesystem::file_type::not_found) {
    return result;
  }
  result.exists = true;
  if (status.type() != std::filesystem::file_type::regular) {
    result.failure = error ? error.message() : "this is not a regular file";
    return result;
  }
  const std::uintmax_t size = std::filesystem::file_size(file, error);
  if (error || size > kMostBytes) {
    result.failure = error ? error.message() : "the file is too large";
    return result;
  }
  std::ifstream stream(file, std::ios::binary);
  result.bytes.resize(static_cast<std::size_t>(size));
  stream.read(result.bytes.data(), static_cast<std::streamsize>(size));
  if (!stream) {
    result.failure = "the file cannot be read";
  }
  return result;
}

std::optional<std::string> replaceWhole(const std::filesystem::path& file,
                                        const std::string& bytes) {
  const std::filesystem::path target = targetOf(file);
  std::string name = target.string() + ".XXXXXX";
  const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
  if (descriptor < 0) {
    return "the file cannot be written: " + std::string(std::strerror(errno));
  }
  bool done = writeAndSync(descriptor, bytes);
  int reason = errno;
  ::close(descriptor);
  if (done && ::rename(name.c_str(), target.c_str()) != 0) {
    done = false;
    reason = errno;
  }
  if (!done) {
    ::unlink(name.c_str());
    return "the file cannot be written: " + std::string(std::strerror(reason));
  }
  return std::nullopt;
}

}  // namespace zephyl::linux_host
