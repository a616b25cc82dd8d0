// What the user asked for, as the command line gives it.

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zephyl::app {

struct Options {
  std::optional<std::string> messages;  // a Messages database
  std::vector<std::string> contacts;    // address books, vCards and folders of them
  std::vector<std::string> favorites;   // people who are favourites; none: those of the phone
  std::optional<std::string> device;    // the device root
  std::string iosVersion = "14.0";
  bool biometrics = false;
  std::optional<std::string> language;
  bool json = false;

  // The command's own arguments.
  std::optional<std::string> group;  // a title or an identifier
  std::string guid;                  // of a conversation
  std::vector<std::string> words;    // to search for
  std::string key;                   // of a setting
  std::string value;
};

}  // namespace zephyl::app
