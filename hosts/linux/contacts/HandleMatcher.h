// Finds the person whom a handle of a conversation belongs to: a phone number in any formatting,
// with or without its country code, or an e-mail address.
//
// Never changes once made, so any thread may ask. Building takes no look at the numbers beyond
// their digits; the exact decision is made only for those that end like the one asked for.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/addressbook/ABPerson.h"

namespace zephyl::linux_host {

class HandleMatcher {
 public:
  // `people` in the system's order; `homeRegion` as homeRegionFor() gives it.
  HandleMatcher(std::vector<ABPersonRef> people, std::string homeRegion);

  // The first person in the system's order with that handle; null when there is none. E-mail
  // addresses are compared without regard to case. Numbers of fewer than seven digits, and names
  // that take the place of numbers, match only themselves.
  [[nodiscard]] ABPersonRef personForHandle(const std::string& handle) const;

 private:
  // A phone number by its last seven digits.
  struct Phone {
    std::uint32_t ending = 0;
    std::uint32_t person = 0;
    std::uint32_t phone = 0;
  };

  void addPhone(const std::string& text, std::uint32_t person, std::uint32_t phone);
  [[nodiscard]] ABPersonRef personWithNumber(const std::string& text, std::uint32_t ending) const;

  std::vector<ABPersonRef> people_;
  std::string homeRegion_;
  // Sorted by ending, person and phone.
  std::vector<Phone> phones_;
  // E-mail addresses, short numbers and names, in the form in which they are compared.
  std::unordered_map<std::string, std::uint32_t> exact_;
};

}  // namespace zephyl::linux_host
