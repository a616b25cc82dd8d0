// Keeps what a write would destroy: a file whose content nobody could read is first put aside.
// Which files these are is decided by the function given, not here. Any thread.

#pragma once

#include <functional>
#include <optional>
#include <string>

#include "hosts/linux/FileContents.h"

namespace zephyl {
class Clock;
class SystemLog;
}  // namespace zephyl

namespace zephyl::linux_host {

class OverwriteGuard {
 public:
  // Why the old content of the file of that phone path has to be kept; nothing when it may go. What
  // cannot be read at all is asked for as an empty text.
  using NeedsCopy = std::function<std::optional<std::string>(const std::string& path,
                                                             const std::string& oldContents)>;

  // Without a function nothing is kept. `log` and `clock` must outlive this.
  OverwriteGuard(NeedsCopy needsCopy, SystemLog& log, Clock& clock);

  // Called before the file, with what it holds now, is overwritten; logs what was put aside. The
  // reason when that was needed and could not be done: then the file must stay as it is.
  [[nodiscard]] FileFailure whyNot(const std::string& path, const std::string& realPath,
                                   const FileReading& old) const;

 private:
  NeedsCopy needsCopy_;
  SystemLog& log_;
  Clock& clock_;
};

}  // namespace zephyl::linux_host
