// System-wide notifications that reach this process only, with a log of what was posted.

#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "hosts/common/InProcessNotifications.h"

namespace zephyl::fake {

class FakeNotifications : public InProcessNotifications {
 public:
  using InProcessNotifications::InProcessNotifications;

  void post(const std::string& name) override {
    {
      const std::lock_guard lock(mutex_);
      posted_.push_back(name);
    }
    InProcessNotifications::post(name);
  }

  // Everything posted so far, in order.
  [[nodiscard]] std::vector<std::string> posted() {
    const std::lock_guard lock(mutex_);
    return posted_;
  }

 private:
  std::mutex mutex_;
  std::vector<std::string> posted_;
};

}  // namespace zephyl::fake
