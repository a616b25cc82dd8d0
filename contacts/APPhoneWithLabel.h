// A phone number with what it is called, in the user's language. A value.

#pragma once

#include <string>

namespace zephyl {

struct APPhoneWithLabel {
  std::string phone;
  std::string label;
  friend bool operator==(const APPhoneWithLabel&, const APPhoneWithLabel&) = default;
};

}  // namespace zephyl
