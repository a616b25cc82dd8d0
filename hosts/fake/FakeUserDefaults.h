// User defaults in memory.

#pragma once

#include <map>
#include <mutex>
#include <string>

#include "platform/foundation/NSUserDefaults.h"

namespace zephyl::fake {

class FakeUserDefaults : public NSUserDefaults {
 public:
  std::int64_t integerForKey(const std::string& key) override;
  void setInteger(std::int64_t value, const std::string& key) override;
  bool synchronize() override;
  std::optional<Dictionary> persistentDomainForName(const std::string& name) override;
  void setPersistentDomain(const Dictionary& domain, const std::string& name) override;

  // Failed ones included.
  [[nodiscard]] int synchronizations();
  void failSynchronizing(bool fails = true);

 private:
  std::mutex mutex_;
  std::map<std::string, std::int64_t> integers_;
  std::map<std::string, Dictionary> domains_;
  int synchronizations_ = 0;
  bool failing_ = false;
};

}  // namespace zephyl::fake
