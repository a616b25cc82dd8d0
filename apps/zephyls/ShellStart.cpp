#include "apps/zephyls/ShellStart.h"

#include <array>
#include <csignal>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hosts/linux/bus/SessionBus.h"

namespace zephyl::app {

namespace {

// A process of its own session, with nothing of this one's open and every signal as it is at first.
class Spawning {
 public:
  Spawning() {
    posix_spawn_file_actions_init(&files_);
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      posix_spawn_file_actions_addopen(&files_, descriptor, "/dev/null", O_RDWR, 0);
    }
    posix_spawn_file_actions_addclosefrom_np(&files_, STDERR_FILENO + 1);
    posix_spawn_file_actions_addchdir_np(&files_, "/");
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setsigdefault(&attributes_, &all);
    posix_spawnattr_setflags(
        &attributes_,
        static_cast<short>(POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
  }
  ~Spawning() {
    posix_spawn_file_actions_destroy(&files_);
    posix_spawnattr_destroy(&attributes_);
  }
  Spawning(const Spawning&) = delete;
  Spawning& operator=(const Spawning&) = delete;

  // The number of the error, or 0.
  int start(pid_t& process, std::vector<std::string> words) const {
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) {
      pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    return posix_spawn(&process, pointers.front(), &files_, &attributes_, pointers.data(), environ);
  }

 private:
  posix_spawn_file_actions_t files_{};
  posix_spawnattr_t attributes_{};
};

}  // namespace

std::filesystem::path shellBesideThisProgram() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path() /
         "zephyls-springboard";
}

ShellStart::ShellStart(std::shared_ptr<linux_host::SessionBus> bus,
                       linux_host::BusMessagingCenter& center, ShellAddress address,
                       Options options)
    : bus_(std::move(bus)),
      center_(center),
      address_(std::move(address)),
      options_(std::move(options)) {}

ShellStart::Presence ShellStart::presence() {
  const auto device = center_.servedDevice(options_.limit);
  if (!device) {
    return Presence::kAbsent;
  }
  return device->empty() || *device == address_.device ? Presence::kServes
                                                       : Presence::kServesAnother;
}

std::optional<std::string> ShellStart::whyNotServed() {
  Presence found = presence();
  if (found == Presence::kAbsent) {
    if (auto reason = startByBus() ? std::nullopt : whyNotStarted()) {
      return reason;
    }
    found = presence();
  }
  switch (found) {
    case Presence::kServes:
      return std::nullopt;
    case Presence::kServesAnother:
      return "the one on the message bus serves another device";
    case Presence::kAbsent:
      break;
  }
  return "it ended as soon as it was started";
}

bool ShellStart::startByBus() {
  constexpr uint kNoFlags = 0;
  return bus_->callBus("StartServiceByName",
                       {QString::fromStdString(address_.center.service), kNoFlags}, options_.limit)
             .type() == QDBusMessage::ReplyMessage;
}

std::optional<std::string> ShellStart::whyNotStarted() {
  if (auto reason = whyNotSpawned()) {
    return reason;
  }
  const auto start = std::chrono::steady_clock::now();
  while (presence() == Presence::kAbsent) {
    if (hasFailed()) {
      return options_.program.string() + " failed; run it by itself to see why";
    }
    if (std::chrono::steady_clock::now() - start > options_.limit) {
      kill(process_, SIGTERM);
      return options_.program.string() + " does not come to serve";
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return std::nullopt;
}

std::optional<std::string> ShellStart::whyNotSpawned() {
  // Also takes note of one that was started here and has ended since.
  static_cast<void>(hasFailed());
  const int error = Spawning().start(
      process_, {options_.program.string(), "--device", address_.device, "--ios",
                 options_.iosVersion, "--idle-exit", std::to_string(options_.idleExit.count())});
  if (error != 0) {
    process_ = 0;
    return options_.program.string() + ": " + std::generic_category().message(error);
  }
  return std::nullopt;
}

// One that finds another at work ends as if it had done its own.
bool ShellStart::hasFailed() {
  int status = 0;
  if (process_ == 0 || waitpid(process_, &status, WNOHANG) != process_) {
    return false;
  }
  process_ = 0;
  return !WIFEXITED(status) || WEXITSTATUS(status) != 0;
}

}  // namespace zephyl::app
