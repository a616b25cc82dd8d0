// The notification center of this process. Observers run on the thread that posts, in the order in
// which they were added, before the post returns.

#pragma once

#include <any>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/Export.h"

namespace zephyl {

// Objects by name; empty when a notification carries none.
using NotificationUserInfo = std::map<std::string, std::any>;

struct NSNotification {
  std::string name;
  NotificationUserInfo userInfo;
};

class ZP_EXPORT NSNotificationCenter {
 public:
  using Callback = std::function<void(const NSNotification&)>;

  [[nodiscard]] static std::shared_ptr<NSNotificationCenter> defaultCenter();

  // `observer` only names the registration and is never followed. Any thread, as every call here.
  void addObserver(const void* observer, const std::string& name, Callback callback);

  // Removes every registration of that observer. A callback that runs meanwhile on another thread
  // may still be running on return.
  void removeObserver(const void* observer);

  void postNotificationName(const std::string& name, NotificationUserInfo userInfo = {});

 private:
  struct Registration {
    const void* observer;
    std::string name;
    std::shared_ptr<const Callback> callback;
  };

  std::mutex mutex_;
  std::vector<Registration> registrations_;
};

}  // namespace zephyl
