#include "apps/common/SharedOptions.h"

#include <CLI/CLI.hpp>

#include "apps/common/ReleaseNumber.h"

namespace zephyl::app {

std::string whyEmpty(const std::string& text) {
  return text.empty() ? "must not be empty" : std::string();
}

void addMessagesOption(CLI::App& app, SourceOptions& sources, const std::string& help) {
  app.add_option("--messages", sources.messages, help)
      ->type_name("FILE")
      ->check(CLI::Validator(whyEmpty, ""));
}

void addContactsOption(CLI::App& app, SourceOptions& sources) {
  app.add_option("--contacts", sources.contacts,
                 "address book: AddressBook.sqlitedb, a vCard file or a folder of them; may be "
                 "given several times")
      ->type_name("FILE|DIR")
      ->allow_extra_args(false)
      ->check(CLI::Validator(whyEmpty, ""));
}

void addSortNamesOption(CLI::App& app, SourceOptions& sources) {
  app.add_option_function<std::string>(
         "--sort-names",
         [&sources](const std::string& value) {
           sources.sortNames = value == "first" ? ABPersonSortOrdering::kByFirstName
                                                : ABPersonSortOrdering::kByLastName;
         },
         "by which name people are in order (default: last)")
      ->type_name("first|last")
      ->check(CLI::IsMember({"first", "last"}).description(""));
}

void addDeviceOption(CLI::App& app, SourceOptions& sources) {
  app.add_option("--device", sources.device,
                 "folder that holds the groups and settings, laid out as on the phone")
      ->type_name("DIR")
      ->check(CLI::Validator(whyEmpty, ""));
}

void addReleaseOption(CLI::App& app, std::string& release) {
  app.add_option("--ios", release, "release of the phone's system to behave as")
      ->type_name("VERSION")
      ->capture_default_str()
      ->check(CLI::Validator(whyNoRelease, ""));
}

void addLanguageOption(CLI::App& app, std::optional<std::string>& language) {
  app.add_option("--language", language, "language of the texts, such as de or zh-Hans")
      ->type_name("LANG");
}

}  // namespace zephyl::app
