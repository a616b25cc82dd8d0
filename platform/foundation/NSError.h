// Why an operation failed: a domain, a code and a dictionary of texts for the user. A value.

#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/Export.h"
#include "platform/foundation/Dictionary.h"

namespace zephyl {

// Keys of the user info; each value is a text.
inline constexpr const char* kNSLocalizedDescriptionKey = "NSLocalizedDescription";
inline constexpr const char* kNSLocalizedFailureReasonErrorKey = "NSLocalizedFailureReason";
inline constexpr const char* kNSLocalizedRecoverySuggestionErrorKey =
    "NSLocalizedRecoverySuggestion";

// Of what the system itself could not do, and the code of what could not be written.
inline constexpr const char* kNSCocoaErrorDomain = "NSCocoaErrorDomain";
inline constexpr std::int64_t kNSFileWriteUnknownError = 512;

class ZP_EXPORT NSError {
 public:
  NSError() = default;
  NSError(std::string domain, std::int64_t code, Dictionary userInfo = {})
      : domain_(std::move(domain)), code_(code), userInfo_(std::move(userInfo)) {}

  [[nodiscard]] const std::string& domain() const { return domain_; }
  [[nodiscard]] std::int64_t code() const { return code_; }
  [[nodiscard]] const Dictionary& userInfo() const { return userInfo_; }

  // Never empty: without a description of its own, the failure reason or else domain and code tell
  // what happened.
  [[nodiscard]] std::string localizedDescription() const;

  // Empty when the user info has none.
  [[nodiscard]] std::string localizedFailureReason() const;
  [[nodiscard]] std::string localizedRecoverySuggestion() const;

  // For logs: domain, code and description.
  [[nodiscard]] std::string description() const;

  friend bool operator==(const NSError&, const NSError&) = default;

 private:
  [[nodiscard]] std::string text(const char* key) const;

  std::string domain_;
  std::int64_t code_ = 0;
  Dictionary userInfo_;
};

}  // namespace zephyl
