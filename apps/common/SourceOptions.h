// Which data of the user's a program works on, as its command line gives it.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/addressbook/ABAddressBook.h"

namespace zephyl::app {

struct SourceOptions {
  std::optional<std::string> messages;  // a Messages database
  std::vector<std::string> contacts;    // address books, vCards and folders of them
  std::vector<std::string> favorites;   // people who are favourites; none: those of the phone
  std::optional<std::string> device;    // the device root
  ABPersonSortOrdering sortNames = ABPersonSortOrdering::kByLastName;
};

}  // namespace zephyl::app
