// For tests: people of an address book, in few words.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/addressbook/ABPerson.h"

namespace zephyl::test {

// Named "FIRST LAST", or as one of them alone; without both nobody has a composite name.
class PersonBuilder {
 public:
  explicit PersonBuilder(std::int32_t recordID, const std::string& first = {},
                         const std::string& last = {}) {
    person_.recordID = recordID;
    person_.firstName = first;
    person_.lastName = last;
    const std::string name = first.empty() || last.empty() ? first + last : first + " " + last;
    if (!name.empty()) {
      person_.compositeName = name;
    }
  }

  PersonBuilder& named(std::string compositeName) {
    person_.compositeName = std::move(compositeName);
    return *this;
  }
  PersonBuilder& company(std::string name) {
    person_.organization = std::move(name);
    if (!person_.compositeName) {
      person_.compositeName = person_.organization;
    }
    return *this;
  }
  PersonBuilder& phone(std::string number, std::string label = {}) {
    person_.phones.push_back({std::move(label), std::move(number)});
    return *this;
  }
  PersonBuilder& email(std::string address) {
    person_.emails.push_back({{}, std::move(address)});
    return *this;
  }
  PersonBuilder& address(ABAddress address) {
    person_.addresses.push_back(std::move(address));
    return *this;
  }
  PersonBuilder& social(ABSocialProfile profile) {
    person_.socialProfiles.push_back(std::move(profile));
    return *this;
  }
  PersonBuilder& thumbnail(ABImageLoader loader) {
    person_.thumbnailImage = std::move(loader);
    return *this;
  }
  PersonBuilder& photo(ABImageLoader loader) {
    person_.fullSizeImage = std::move(loader);
    return *this;
  }
  PersonBuilder& with(void (*change)(ABPerson&)) {
    change(person_);
    return *this;
  }

  // Once more, or as the argument of what wants a person.
  [[nodiscard]] ABPersonRef build() const { return std::make_shared<const ABPerson>(person_); }
  operator ABPersonRef() const { return build(); }

 private:
  ABPerson person_;
};

inline ABImageLoader imageOf(std::vector<std::uint8_t> bytes) {
  return [bytes = std::make_shared<const std::vector<std::uint8_t>>(std::move(bytes))] {
    return bytes;
  };
}

}  // namespace zephyl::test
