#include "platform/foundation/NSError.h"

namespace zephyl {

std::string NSError::text(const char* key) const {
  const Value* value = userInfo_.find(key);
  const std::string* found = value == nullptr ? nullptr : value->ifString();
  return found == nullptr ? std::string() : *found;
}

std::string NSError::localizedDescription() const {
  std::string own = text(kNSLocalizedDescriptionKey);
  if (!own.empty()) {
    return own;
  }
  std::string description = "The operation couldn\u2019t be completed. ";
  const std::string reason = localizedFailureReason();
  return description +=
         reason.empty() ? "(" + domain_ + " error " + std::to_string(code_) + ".)" : reason;
}

std::string NSError::localizedFailureReason() const {
  return text(kNSLocalizedFailureReasonErrorKey);
}

std::string NSError::localizedRecoverySuggestion() const {
  return text(kNSLocalizedRecoverySuggestionErrorKey);
}

std::string NSError::description() const {
  return std::string("Error Domain=")
      .append(domain_)
      .append(" Code=")
      .append(std::to_string(code_))
      .append(" \"")
      .append(localizedDescription())
      .append("\"");
}

}  // namespace zephyl
