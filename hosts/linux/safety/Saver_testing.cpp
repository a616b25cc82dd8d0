// Saves a list that grows by one line a time, through safety copies, until it is killed; prints the
// number of lines after each save that succeeded. Arguments: the file, the folder of its copies and
// that of its notes. With a number of lines as well: stops itself, so that it can be watched, and
// saves that list.

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
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

SafetyOptions optionsFor(const std::string& folder, const std::string& notes) {
  SafetyOptions options;
  options.path = "/list";
  options.folder = folder;
  options.notes = notes;
  options.whyUnreadable = [](const std::string& contents) {
    return contents.starts_with("good\n") ? std::nullopt : std::optional<std::string>("torn");
  };
  return options;
}

FileFailure write(SafetyCopies& copies, const std::string& file, long lines) {
  return copies.write(file, listOf(lines), [](const FileReading&) { return std::nullopt; });
}

int saveOnce(SafetyCopies& copies, const std::string& file, long lines) {
  static_cast<void>(std::raise(SIGSTOP));
  return write(copies, file, lines) ? 1 : 0;
}

int saveUntilKilled(SafetyCopies& copies, const std::string& file) {
  const std::string stored = copies.read(file).contents.value_or("\n");
  for (long lines = std::count(stored.begin(), stored.end(), '\n');; ++lines) {
    if (write(copies, file, lines)) {
      return 1;
    }
    std::printf("%ld\n", lines);
    static_cast<void>(std::fflush(stdout));
  }
}

int run(int argc, char** argv) {
  if (argc < 4 || argc > 5) {
    return 2;
  }
  ErrorLog log;
  LinuxClock clock;
  SafetyCopies copies(optionsFor(argv[2], argv[3]), log, clock);
  return argc == 5 ? saveOnce(copies, argv[1], std::strtol(argv[4], nullptr, 10))
                   : saveUntilKilled(copies, argv[1]);
}

}  // namespace

}  // namespace zephyl::linux_host

int main(int argc, char** argv) {
  return zephyl::linux_host::run(argc, argv);
}
