// System-wide notifications that reach this process only. Any thread.

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <utility>

#include "platform/foundation/DarwinNotificationCenter.h"
#include "platform/foundation/Dispatch.h"

namespace zephyl {

class InProcessNotifications : public DarwinNotificationCenter {
 public:
  // Callbacks run on the main queue of `dispatch`, which must run none of its tasks once this is
  // gone.
  explicit InProcessNotifications(Dispatch& dispatch) : dispatch_(dispatch) {}

  // Observers run in the order in which they were added, each with its own turn on the main queue;
  // one that is removed before its turn is left out.
  void post(const std::string& name) override;
  std::uint64_t addObserver(const std::string& name, std::function<void()> callback) override;
  void removeObserver(std::uint64_t observer) override;

 private:
  struct Observer {
    std::string name;
    std::function<void()> callback;
  };

  void call(std::uint64_t number);

  Dispatch& dispatch_;
  std::mutex mutex_;
  std::map<std::uint64_t, Observer> observers_;
  std::uint64_t last_ = 0;
};

}  // namespace zephyl
