#include "apps/zephyls/SessionLog.h"

#include <string_view>

namespace zephyl::app {

void SessionLog::log(const std::string& line) {
  systemLog_.log(line);
  std::string message = line;
  if (message.starts_with(kErrorPrefix)) {
    // Where in the source an error was found is nothing for the user.
    const std::size_t end = message.find(kErrorPlaceEnd);
    message.erase(0, end == std::string::npos ? 0 : end + std::string_view(kErrorPlaceEnd).size());
  }
  // A line about a file begins with its path: the phone's, where the library wrote it.
  if (message.starts_with("/var/mobile/") && !message.starts_with(deviceRoot_)) {
    message.insert(0, deviceRoot_);
  }
  const std::lock_guard lock(mutex_);
  if (told_.insert(message).second) {
    tell_(message);
  }
}

}  // namespace zephyl::app
