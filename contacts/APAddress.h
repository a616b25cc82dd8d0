// A postal address. A value; a part that is empty is not there.

#pragma once

#include <string>

namespace zephyl {

struct APAddress {
  std::string street;
  std::string city;
  std::string state;
  std::string zip;
  std::string country;
  std::string countryCode;
  friend bool operator==(const APAddress&, const APAddress&) = default;
};

}  // namespace zephyl
