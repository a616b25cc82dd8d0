// Saves a list that grows by one line a time, through safety copies, until it is killed; prints the
// number of lines after each save that succeeded. Arguments: the file and the folder of its copies.

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>

#include "platform/foundation/Clock.h"
#include "platform/foundation/SystemLog.h"

#include "hosts/linux/LinuxClock.h"
#include "hosts/linux/safety/SafetyCopies.h"

namespace zephyl::linux_host {

namespace {

class ErrorLog : public SystemLog {
 public:
  void log(const std::string& line) override { std::fprintf(stderr, "%s\n", line.c_str()); }
};

// Every line tells how many there are, so that no mixture of two lists is one.
std::string listOf(long lines) {
  std::string list = "good\n";
  for (long line = 0; line < lines; ++line) {
    list += "line of " + std::to_string(lines) + " " + std::string(300, 'x') + "\n";
  }
  return list;
}

int saveUntilKilled(const std::string& file, const std::string& folder) {
  ErrorLog log;
  LinuxClock clock;
  SafetyOptions options;
  options.path = "/list";
  options.folder = folder;
  options.whyUnreadable = [](const std::string& contents) {
    return contents.starts_with("good\n") ? std::nullopt : std::optional<std::string>("torn");
  };
  SafetyCopies copies(options, log, clock);
  const std::string stored = copies.read(file).contents.value_or("\n");
  for (long lines = std::count(stored.begin(), stored.end(), '\n');; ++lines) {
    if (copies.write(file, listOf(lines), [](const FileReading&) { return std::nullopt; })) {
      return 1;
    }
    std::printf("%ld\n", lines);
    static_cast<void>(std::fflush(stdout));
  }
}

}  // namespace

}  // namespace zephyl::linux_host

int main(int argc, char** argv) {
  return argc == 3 ? zephyl::linux_host::saveUntilKilled(argv[1], argv[2]) : 2;
}
