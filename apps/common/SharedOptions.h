// The options that the command lines of the programs share.

#pragma once

#include <optional>
#include <string>

#include "apps/common/SourceOptions.h"

namespace CLI {
class App;
}

namespace zephyl::app {

// For CLI::Validator: empty for every text but the empty one, which is a variable that was not set
// in the user's script.
[[nodiscard]] std::string whyEmpty(const std::string& text);

// What is given must outlive the parsing.
void addMessagesOption(CLI::App& app, SourceOptions& sources, const std::string& help);
void addContactsOption(CLI::App& app, SourceOptions& sources);
void addSortNamesOption(CLI::App& app, SourceOptions& sources);
void addDeviceOption(CLI::App& app, SourceOptions& sources);
void addReleaseOption(CLI::App& app, std::string& release);
void addLanguageOption(CLI::App& app, std::optional<std::string>& language);

}  // namespace zephyl::app
