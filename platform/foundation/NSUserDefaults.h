// The user defaults of the running process and the named domains beside them.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/foundation/Dictionary.h"

namespace zephyl {

class NSUserDefaults {
 public:
  virtual ~NSUserDefaults() = default;

  // 0 when the key is missing. Any thread, as every call here.
  [[nodiscard]] virtual std::int64_t integerForKey(const std::string& key) = 0;
  virtual void setInteger(std::int64_t value, const std::string& key) = 0;

  // Writes what was set. False when it could not.
  virtual bool synchronize() = 0;

  // Nothing when no such domain exists.
  [[nodiscard]] virtual std::optional<Dictionary> persistentDomainForName(
      const std::string& name) = 0;
  virtual void setPersistentDomain(const Dictionary& domain, const std::string& name) = 0;
};

}  // namespace zephyl
