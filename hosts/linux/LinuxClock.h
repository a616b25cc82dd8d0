// The wall clock of this machine.

#pragma once

#include <chrono>

#include "platform/foundation/Clock.h"

namespace zephyl::linux_host {

class LinuxClock : public Clock {
 public:
  double now() override {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch())
        .count();
  }
};

}  // namespace zephyl::linux_host
