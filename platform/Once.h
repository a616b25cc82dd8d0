// Something made once for a process, safely from any thread, and forgotten with its host.

#pragma once

#include <functional>
#include <memory>
#include <mutex>

#include "platform/Host.h"

namespace zephyl {

template <class T>
class Once {
 public:
  // Makes the object with `make` on the first call. `make` must not ask for the same object.
  [[nodiscard]] std::shared_ptr<T> get(const std::function<std::shared_ptr<T>()>& make) {
    const std::lock_guard lock(mutex_);
    if (object_ == nullptr) {
      object_ = make();
      detail::atUninstall([this] { forget(); });
    }
    return object_;
  }

 private:
  void forget() {
    std::shared_ptr<T> last;
    const std::lock_guard lock(mutex_);
    last.swap(object_);
  }

  std::mutex mutex_;
  std::shared_ptr<T> object_;
};

}  // namespace zephyl
