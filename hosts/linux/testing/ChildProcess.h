// A program that a test starts, watches and kills. Used on the thread that made it.

#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace zephyl::test {

struct ChildOptions {
  // Added to the environment of the test, or the whole of it when nothing is inherited.
  std::map<std::string, std::string> environment;
  bool inheritsEnvironment = true;
  std::string inputFile = "/dev/null";
  // Made anew; both may be the same file.
  std::string outputFile = "/dev/null";
  std::string errorFile = "/dev/null";
};

class ChildProcess {
 public:
  // `words` begin with the program, which is looked for along PATH. Throws std::runtime_error when
  // it cannot be started.
  explicit ChildProcess(const std::vector<std::string>& words, const ChildOptions& options = {});

  // Kills it if it still runs.
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  [[nodiscard]] pid_t pid() const { return process_; }

  // Does nothing once it has ended.
  void signal(int number);

  // The exit status, or 1000 and the number of the signal that ended it; nothing while it still
  // runs after `limit`.
  [[nodiscard]] std::optional<int> wait(std::chrono::milliseconds limit);

 private:
  pid_t process_ = 0;
  std::optional<int> status_;
};

// The whole of a file; empty when there is none.
[[nodiscard]] std::string contentOf(const std::string& file);

}  // namespace zephyl::test
