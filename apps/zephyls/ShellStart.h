// Sees to it that a system shell serves the device: the one that runs, else one that the message
// bus knows how to start, else the one beside this program. Any thread, one at a time.

#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include <sys/types.h>

#include "apps/common/ShellAddress.h"
#include "hosts/linux/bus/BusMessagingCenter.h"

namespace zephyl::linux_host {
class SessionBus;
}

namespace zephyl::app {

class ShellStart {
 public:
  struct Options {
    std::filesystem::path program;  // that is started
    std::string iosVersion;
    std::chrono::seconds idleExit{60};  // after which a shell started here ends
    std::chrono::milliseconds limit = std::chrono::seconds(5);  // for a start
  };

  // `center` must outlive this.
  ShellStart(std::shared_ptr<linux_host::SessionBus> bus, linux_host::BusMessagingCenter& center,
             ShellAddress address, Options options);

  // Returns when the device is served, or with the reason why it is not. A shell that is there and
  // does not answer counts as one that serves: it may have the groups in hand.
  [[nodiscard]] std::optional<std::string> whyNotServed();

 private:
  enum class Presence { kServes, kServesAnother, kAbsent };

  [[nodiscard]] Presence presence();
  [[nodiscard]] bool startByBus();
  [[nodiscard]] std::optional<std::string> whyNotStarted();
  [[nodiscard]] std::optional<std::string> whyNotSpawned();
  [[nodiscard]] bool hasFailed();

  const std::shared_ptr<linux_host::SessionBus> bus_;
  linux_host::BusMessagingCenter& center_;
  const ShellAddress address_;
  const Options options_;
  pid_t process_ = 0;  // started here and not yet seen to end
};

// The shell that is installed or built beside this program.
[[nodiscard]] std::filesystem::path shellBesideThisProgram();

}  // namespace zephyl::app
