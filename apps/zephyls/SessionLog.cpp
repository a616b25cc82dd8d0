#include "apps/zephyls/SessionLog.h"

namespace zephyl::app {

void SessionLog::log(const std::string& line) {
  systemLog_.log(line);
  // A line about a file begins with its path: the phone's, where the library wrote it.
  const bool isPhonePath = line.rfind("/var/mobile/", 0) == 0 && line.rfind(deviceRoot_, 0) != 0;
  const std::string message = isPhonePath ? deviceRoot_ + line : line;
  const std::lock_guard lock(mutex_);
  if (told_.insert(message).second) {
    tell_(message);
  }
}

}  // namespace zephyl::app
