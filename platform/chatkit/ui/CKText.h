// Texts of the Messages framework. Any thread.

#pragma once

#include <optional>
#include <string>

#include "platform/foundation/NSBundle.h"

namespace zephyl {

// The key where the framework has no text for it.
[[nodiscard]] inline std::string chatKitText(const std::string& key) {
  return NSBundle::ckFrameworkBundle()->localizedStringForKey(key, std::nullopt, "ChatKit");
}

}  // namespace zephyl
