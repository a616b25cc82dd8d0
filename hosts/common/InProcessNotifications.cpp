#include "hosts/common/InProcessNotifications.h"

namespace zephyl {

void InProcessNotifications::post(const std::string& name) {
  const std::lock_guard lock(mutex_);
  for (const auto& [number, observer] : observers_) {
    if (observer.name == name) {
      dispatch_.mainAsync([this, number = number] { call(number); });
    }
  }
}

std::uint64_t InProcessNotifications::addObserver(const std::string& name,
                                                  std::function<void()> callback) {
  const std::lock_guard lock(mutex_);
  observers_.emplace(++last_, Observer{name, std::move(callback)});
  return last_;
}

void InProcessNotifications::removeObserver(std::uint64_t observer) {
  const std::lock_guard lock(mutex_);
  observers_.erase(observer);
}

void InProcessNotifications::call(std::uint64_t number) {
  std::function<void()> callback;
  {
    const std::lock_guard lock(mutex_);
    const auto found = observers_.find(number);
    if (found == observers_.end()) {
      return;
    }
    callback = found->second.callback;
  }
  callback();
}

}  // namespace zephyl
