// System-wide notifications: a name and nothing else, to every process that listens.

#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace zephyl {

class DarwinNotificationCenter {
 public:
  virtual ~DarwinNotificationCenter() = default;

  // Any thread. Also reaches the observers of the posting process.
  virtual void post(const std::string& name) = 0;

  // `callback` runs on the main queue until the number given back is removed.
  virtual std::uint64_t addObserver(const std::string& name, std::function<void()> callback) = 0;
  virtual void removeObserver(std::uint64_t observer) = 0;
};

}  // namespace zephyl
