// The user defaults on Linux: one binary property list a domain, DOMAIN.plist in the preferences
// folder of the device root, which other programs may change at any time.
//
// A process sees what others wrote as soon as they did; what it set itself stands before that until
// it is synchronized. Any thread.

#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

#include "platform/foundation/NSUserDefaults.h"

#include "hosts/linux/DeviceFileAccess.h"

namespace zephyl::linux_host {

class LinuxUserDefaults : public NSUserDefaults {
 public:
  // `bundleIdentifier` is the process's own domain; the others must outlive this.
  LinuxUserDefaults(const DeviceRoot& root, SystemLog& log, Clock& clock,
                    std::string bundleIdentifier);

  std::int64_t integerForKey(const std::string& key) override;
  void setInteger(std::int64_t value, const std::string& key) override;

  // Joins what was set here with what the file has by then, so that the keys of others stay.
  bool synchronize() override;

  std::optional<Dictionary> persistentDomainForName(const std::string& name) override;

  // Written at once, since who is told of the change reads the file. A failure is logged.
  void setPersistentDomain(const Dictionary& domain, const std::string& name) override;

 private:
  // A file's identity at the time it was read.
  struct Stamp {
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;
    friend bool operator==(const Stamp&, const Stamp&) = default;
  };

  // For holders of the lock.
  [[nodiscard]] std::optional<Dictionary> read(const std::string& path);
  [[nodiscard]] bool write(const Dictionary& domain, const std::string& path);
  void refresh();
  [[nodiscard]] Stamp stampOfOwnFile() const;
  [[nodiscard]] Dictionary withUnsaved(Dictionary saved) const;

  const DeviceRoot& root_;
  SystemLog& log_;
  DeviceFileAccess access_;
  const std::string bundleIdentifier_;
  const std::string ownPath_;

  std::mutex mutex_;
  std::optional<Stamp> seen_;  // nothing before the first look
  Dictionary saved_;
  Dictionary unsaved_;
};

}  // namespace zephyl::linux_host
