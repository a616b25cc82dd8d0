#include "hosts/linux/LinuxSystemLog.h"

#include <algorithm>

#include <syslog.h>
#include <unistd.h>

namespace zephyl::linux_host {

void LinuxSystemLog::log(const std::string& line) {
  std::string text = line;
  std::replace_if(
      text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7f; }, ' ');
  ::syslog(LOG_USER | LOG_NOTICE, "%s", text.c_str());
  if (verbose_) {
    text += '\n';
    // In one call, so that lines of several threads do not mix; nobody can be told of a failure.
    static_cast<void>(::write(STDERR_FILENO, text.data(), text.size()) >= 0);
  }
}

}  // namespace zephyl::linux_host
