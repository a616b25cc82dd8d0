#include "hosts/linux/OverwriteGuard.h"

#include <array>
#include <ctime>
#include <utility>

#include "platform/foundation/Clock.h"
#include "platform/foundation/SystemLog.h"

#include "hosts/linux/FileContents.h"

namespace zephyl::linux_host {

namespace {

constexpr int kMaximumCopiesASecond = 1000;

// In the user's time zone.
std::string timestamp(double now) {
  const auto seconds = static_cast<std::time_t>(now);
  std::tm parts{};
  std::array<char, 32> text{};
  if (::localtime_r(&seconds, &parts) == nullptr) {
    return "undated";
  }
  return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &parts)};
}

struct Copy {
  std::string path;
  FileFailure failure;
};

Copy copyBeside(const std::string& realPath, const std::string& contents, double now) {
  const std::string base = realPath + ".unreadable-" + timestamp(now);
  for (int number = 1;; ++number) {
    const std::string path = number == 1 ? base : base + "-" + std::to_string(number);
    NewFileOutcome outcome = writeNewFile(path, contents);
    if (!outcome.existed || number == kMaximumCopiesASecond) {
      return {path, std::move(outcome.failure)};
    }
  }
}

}  // namespace

OverwriteGuard::OverwriteGuard(NeedsCopy needsCopy, SystemLog& log, Clock& clock)
    : needsCopy_(std::move(needsCopy)), log_(log), clock_(clock) {}

bool OverwriteGuard::permits(const std::string& path, const std::string& realPath) const {
  if (!needsCopy_) {
    return true;
  }
  const FileReading old = readWholeFile(realPath);
  if (old.isMissing()) {
    return true;
  }
  const std::optional<std::string> reason = needsCopy_(path, old.contents.value_or(""));
  if (!reason) {
    return true;
  }
  if (!old.contents) {
    log_.log(path + ": not written: " + realPath +
             " cannot be read and therefore not be kept: " + old.reason);
    return false;
  }
  const Copy copy = copyBeside(realPath, *old.contents, clock_.now());
  if (copy.failure) {
    log_.log(path + ": not written: " + *reason + ", and no copy of " + realPath +
             " could be kept: " + *copy.failure);
    return false;
  }
  log_.log(path + ": " + *reason + "; the old file is kept as " + copy.path);
  return true;
}

}  // namespace zephyl::linux_host
