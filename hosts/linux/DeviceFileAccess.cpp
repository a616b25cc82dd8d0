#include "hosts/linux/DeviceFileAccess.h"

#include <filesystem>
#include <utility>

#include "platform/foundation/SystemLog.h"

#include "hosts/linux/FileContents.h"

namespace zephyl::linux_host {

DeviceFileAccess::DeviceFileAccess(const DeviceRoot& root, SystemLog& log, Clock& clock,
                                   OverwriteGuard::NeedsCopy needsCopy, SafetyOptions safety)
    : root_(root),
      log_(log),
      guard_(std::move(needsCopy), log, clock),
      safety_(std::move(safety), log, clock) {}

std::optional<std::string> DeviceFileAccess::read(const std::string& path) {
  const DeviceLocation location = root_.forReading(path);
  if (!location.refusal.empty()) {
    log_.log(path + ": not read: " + location.refusal);
    return std::nullopt;
  }
  FileReading reading =
      safety_.keeps(path) ? safety_.read(location.path) : readWholeFile(location.path);
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
    failed = overwrite(path, location.path, contents, mode);
  }
  if (failed) {
    log_.log(path + ": not written: " + location.path + ": " + *failed);
  }
  return !failed;
}

FileFailure DeviceFileAccess::overwrite(const std::string& path, const std::string& realPath,
                                        const std::string& contents, WriteMode mode) {
  const auto whyNot = [&](const FileReading& old) { return guard_.whyNot(path, realPath, old); };
  if (safety_.keeps(path)) {
    return safety_.write(realPath, contents, whyNot);
  }
  if (FileFailure refused = whyNot(readWholeFile(realPath))) {
    return refused;
  }
  return mode == WriteMode::kInPlace ? writeInPlace(realPath, contents)
                                     : replaceFile(realPath, contents);
}

}  // namespace zephyl::linux_host
