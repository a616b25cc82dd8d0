// Files by the phone's paths, with every failure told in the system log by path, place and reason.
// What the parts of the device that keep files have in common. Any thread.

#pragma once

#include <mutex>
#include <optional>
#include <string>

#include "hosts/linux/DeviceRoot.h"
#include "hosts/linux/OverwriteGuard.h"
#include "hosts/linux/safety/SafetyCopies.h"

namespace zephyl::linux_host {

enum class WriteMode {
  kInPlace,  // over the old content; after a failure the file may be short
  kReplace,  // the old content or the new, never anything between
};

class DeviceFileAccess {
 public:
  // `root`, `log` and `clock` must outlive this. `needsCopy` may be empty. The file that `safety`
  // names is read and written, in place whatever the mode, through its copies.
  DeviceFileAccess(const DeviceRoot& root, SystemLog& log, Clock& clock,
                   OverwriteGuard::NeedsCopy needsCopy, SafetyOptions safety = {});

  // Nothing when the file is missing, which is not logged, or cannot be read.
  [[nodiscard]] std::optional<std::string> read(const std::string& path);

  // Makes missing folders. False when anything failed or the old file must stay. One write at a
  // time.
  [[nodiscard]] bool write(const std::string& path, const std::string& contents, WriteMode mode);

 private:
  [[nodiscard]] FileFailure overwrite(const std::string& path, const std::string& realPath,
                                      const std::string& contents, WriteMode mode);

  const DeviceRoot& root_;
  SystemLog& log_;
  const OverwriteGuard guard_;
  SafetyCopies safety_;
  std::mutex writing_;
};

}  // namespace zephyl::linux_host
