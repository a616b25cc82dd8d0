#include "hosts/linux/DeviceFileAccess.h"

#include <filesystem>
#include <utility>

#include "platform/foundation/SystemLog.h"

#include "hosts/linux/FileContents.h"

namespace zephyl::linux_host {

DeviceFileAccess::DeviceFileAccess(const DeviceRoot& root, SystemLog& log, Clock& clock,
                                   OverwriteGuard::NeedsCopy needsCopy)
    : root_(root), log_(log), guard_(std::move(needsCopy), log, clock) {}

std::optional<std::string> DeviceFileAccess::read(const std::string& path) const {
  const DeviceLocation location = root_.forReading(path);
  if (!location.refusal.empty()) {
    log_.log(path + ": not read: " + location.refusal);
    return std::nullopt;
  }
  FileReading reading = readWholeFile(location.path);
  if (!reading.contents && !reading.isMissing()) {
    log_.log(path + ": not read: " + location.path + ": " + reading.reason);
  }
  return std::move(reading.contents);
}

bool DeviceFileAccess::write(const std::string& path, const std::string& contents, WriteMode mode) {
  const DeviceLocation location = root_.forWriting(path);
  if (!location.refusal.empty()) {
    log_.log(path + ": not written: " + location.refusal);
    return false;
  }
  const std::lock_guard lock(writing_);
  FileFailure failed = makeFolders(std::filesystem::path(location.path).parent_path().string());
  if (!failed) {
    if (!guard_.permits(path, location.path)) {
      return false;
    }
    failed = mode == WriteMode::kInPlace ? writeInPlace(location.path, contents)
                                         : replaceFile(location.path, contents);
  }
  if (failed) {
    log_.log(path + ": not written: " + location.path + ": " + *failed);
  }
  return !failed;
}

}  // namespace zephyl::linux_host
