// What the user asked for, as the command line gives it.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/common/SourceOptions.h"

namespace zephyl::app {

struct Options {
  SourceOptions sources;
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
