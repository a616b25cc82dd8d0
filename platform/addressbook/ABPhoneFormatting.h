// The address book's own formatting of phone numbers for display.

#pragma once

#include <optional>
#include <string>

namespace zephyl {

class ABPhoneFormatting {
 public:
  virtual ~ABPhoneFormatting() = default;

  // Nothing when the formatter has no answer. Text that is no phone number comes back as it is.
  // Any thread.
  [[nodiscard]] virtual std::optional<std::string> abCopyPhoneNumberFromString(
      const std::string& text) = 0;
};

}  // namespace zephyl
