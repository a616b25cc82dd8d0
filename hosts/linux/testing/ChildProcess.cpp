#include "hosts/linux/testing/ChildProcess.h"

#include <csignal>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zephyl::test {

namespace {

std::vector<std::string> environmentOf(const ChildOptions& options) {
  std::vector<std::string> environment;
  for (char** entry = environ; options.inheritsEnvironment && *entry != nullptr; ++entry) {
    const std::string text = *entry;
    if (!options.environment.contains(text.substr(0, text.find('=')))) {
      environment.push_back(text);
    }
  }
  for (const auto& [name, value] : options.environment) {
    environment.push_back(std::string(name).append("=").append(value));
  }
  return environment;
}

std::vector<char*> pointersTo(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (const std::string& text : texts) {
    pointers.push_back(const_cast<char*>(text.c_str()));
  }
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& words, const ChildOptions& options) {
  const std::vector<std::string> environment = environmentOf(options);
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC;
  const bool isOneFile = options.outputFile == options.errorFile;
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, options.inputFile.c_str(),
                                   O_RDONLY | O_NOCTTY, 0);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, options.outputFile.c_str(), kFlags, 0600);
  if (isOneFile) {
    posix_spawn_file_actions_adddup2(&files, STDOUT_FILENO, STDERR_FILENO);
  } else {
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, options.errorFile.c_str(), kFlags,
                                     0600);
  }
  const int failed = posix_spawnp(&process_, words.front().c_str(), &files, nullptr,
                                  pointersTo(words).data(), pointersTo(environment).data());
  posix_spawn_file_actions_destroy(&files);
  if (failed != 0) {
    throw std::runtime_error("cannot start " + words.front() + ": " +
                             std::generic_category().message(failed));
  }
}

ChildProcess::~ChildProcess() {
  signal(SIGKILL);
  constexpr auto kLongest = std::chrono::seconds(10);
  static_cast<void>(wait(kLongest));
}

void ChildProcess::signal(int number) {
  if (!status_) {
    kill(process_, number);
  }
}

std::optional<int> ChildProcess::wait(std::chrono::milliseconds limit) {
  const auto start = std::chrono::steady_clock::now();
  while (!status_) {
    int status = 0;
    if (waitpid(process_, &status, WNOHANG) == process_) {
      constexpr int kSignalled = 1000;
      status_ = WIFEXITED(status) ? WEXITSTATUS(status) : kSignalled + WTERMSIG(status);
    } else if (std::chrono::steady_clock::now() - start >= limit) {
      break;
    } else {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }
  return status_;
}

std::string contentOf(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace zephyl::test
