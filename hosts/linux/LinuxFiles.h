// The device's files, below a device root on this machine.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/NSFileManager.h"

#include "hosts/linux/DeviceFileAccess.h"

namespace zephyl::linux_host {

class LinuxFiles : public NSFileManager {
 public:
  // `root`, `log` and `clock` must outlive this. `needsCopyBeforeOverwrite` may be empty.
  LinuxFiles(const DeviceRoot& root, SystemLog& log, Clock& clock,
             OverwriteGuard::NeedsCopy needsCopyBeforeOverwrite, SafetyOptions safety = {});

  std::optional<std::string> contentsAtPath(const std::string& path) override;
  bool writeToFile(const std::string& path, const std::string& contents) override;
  bool writeToFileAtomically(const std::string& path, const std::string& contents) override;
  bool fileExistsAtPath(const std::string& path) override;
  bool isSymbolicLinkAtPath(const std::string& path) override;
  bool createDirectoryAtPath(const std::string& path, NSError* error) override;
  std::vector<std::string> contentsOfDirectoryAtPath(const std::string& path) override;

 private:
  const DeviceRoot& root_;
  SystemLog& log_;
  DeviceFileAccess access_;
};

}  // namespace zephyl::linux_host
