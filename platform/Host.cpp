#include "platform/Host.h"

#include <cassert>
#include <mutex>
#include <utility>
#include <vector>

namespace zephyl {

namespace {

Host* installed = nullptr;

std::mutex& forgetMutex() {
  static std::mutex mutex;
  return mutex;
}

std::vector<std::function<void()>>& forgetters() {
  static std::vector<std::function<void()>> list;
  return list;
}

std::function<void()> takeLastForgetter() {
  const std::lock_guard lock(forgetMutex());
  if (forgetters().empty()) {
    return {};
  }
  std::function<void()> last = std::move(forgetters().back());
  forgetters().pop_back();
  return last;
}

}  // namespace

void install(Host& host) {
  assert(installed == nullptr);
  installed = &host;
}

void uninstall() {
  assert(installed != nullptr);
  // The last made is forgotten first, since it may lean on what was made before it.
  while (const auto forget = takeLastForgetter()) {
    forget();
  }
  installed = nullptr;
}

Host& host() {
  assert(installed != nullptr);
  return *installed;
}

void detail::atUninstall(std::function<void()> forget) {
  const std::lock_guard lock(forgetMutex());
  forgetters().push_back(std::move(forget));
}

}  // namespace zephyl
