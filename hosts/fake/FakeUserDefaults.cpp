#include "hosts/fake/FakeUserDefaults.h"

namespace zephyl::fake {

std::int64_t FakeUserDefaults::integerForKey(const std::string& key) {
  const std::lock_guard lock(mutex_);
  const auto found = integers_.find(key);
  return found == integers_.end() ? 0 : found->second;
}

void FakeUserDefaults::setInteger(std::int64_t value, const std::string& key) {
  const std::lock_guard lock(mutex_);
  integers_[key] = value;
}

bool FakeUserDefaults::synchronize() {
  const std::lock_guard lock(mutex_);
  ++synchronizations_;
  return !failing_;
}

std::optional<Dictionary> FakeUserDefaults::persistentDomainForName(const std::string& name) {
  const std::lock_guard lock(mutex_);
  const auto found = domains_.find(name);
  return found == domains_.end() ? std::nullopt : std::optional(found->second);
}

void FakeUserDefaults::setPersistentDomain(const Dictionary& domain, const std::string& name) {
  const std::lock_guard lock(mutex_);
  domains_[name] = domain;
}

int FakeUserDefaults::synchronizations() {
  const std::lock_guard lock(mutex_);
  return synchronizations_;
}

void FakeUserDefaults::failSynchronizing(bool fails) {
  const std::lock_guard lock(mutex_);
  failing_ = fails;
}

}  // namespace zephyl::fake
