#include "hosts/linux/OverwriteGuard.h"

#include <utility>

#include "platform/foundation/Clock.h"
#include "platform/foundation/SystemLog.h"

#include "hosts/linux/PutAside.h"

namespace zephyl::linux_host {

OverwriteGuard::OverwriteGuard(NeedsCopy needsCopy, SystemLog& log, Clock& clock)
    : needsCopy_(std::move(needsCopy)), log_(log), clock_(clock) {}

FileFailure OverwriteGuard::whyNot(const std::string& path, const std::string& realPath,
                                   const FileReading& old) const {
  if (!needsCopy_ || old.isMissing()) {
    return std::nullopt;
  }
  const std::optional<std::string> reason = needsCopy_(path, old.contents.value_or(""));
  if (!reason) {
    return std::nullopt;
  }
  if (!old.contents) {
    return "it cannot be read and therefore not be kept: " + old.reason;
  }
  const KeptAside kept = putAside(realPath, *old.contents, clock_.now());
  if (kept.failure) {
    return *reason + ", and no copy of it could be kept: " + *kept.failure;
  }
  log_.log(path + ": " + *reason + "; the old file is kept as " + kept.path);
  return std::nullopt;
}

}  // namespace zephyl::linux_host
