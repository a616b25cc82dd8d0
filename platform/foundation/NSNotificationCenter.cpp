#include "platform/foundation/NSNotificationCenter.h"

#include <utility>

#include "platform/Once.h"

namespace zephyl {

std::shared_ptr<NSNotificationCenter> NSNotificationCenter::defaultCenter() {
  static Once<NSNotificationCenter> center;
  return center.get([] { return std::make_shared<NSNotificationCenter>(); });
}

void NSNotificationCenter::addObserver(const void* observer, const std::string& name,
                                       Callback callback) {
  const std::lock_guard lock(mutex_);
  registrations_.push_back({observer, name, std::make_shared<const Callback>(std::move(callback))});
}

void NSNotificationCenter::removeObserver(const void* observer) {
  const std::lock_guard lock(mutex_);
  std::erase_if(registrations_, [&](const Registration& r) { return r.observer == observer; });
}

void NSNotificationCenter::postNotificationName(const std::string& name,
                                                NotificationUserInfo userInfo) {
  std::vector<std::shared_ptr<const Callback>> callbacks;
  {
    const std::lock_guard lock(mutex_);
    for (const Registration& registration : registrations_) {
      if (registration.name == name) {
        callbacks.push_back(registration.callback);
      }
    }
  }
  const NSNotification notification{name, std::move(userInfo)};
  for (const auto& callback : callbacks) {
    (*callback)(notification);
  }
}

}  // namespace zephyl
