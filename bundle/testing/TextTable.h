// The tables of texts as they stand in the source tree, and the languages each of them has. Pure
// but for reading files, any thread.

#pragma once

#include <array>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>

#include "platform/foundation/Dictionary.h"

namespace zephyl::test {

struct TextTable {
  std::string_view folder;  // of the bundle
  std::string_view name;    // of the table: NAME.strings

  friend void PrintTo(const TextTable& table, std::ostream* stream) { *stream << table.folder; }
};

inline constexpr TextTable kSettingsTexts{"ZephylsSettings.bundle", "Localizable"};
inline constexpr TextTable kSystemTexts{"UIKit.framework", "UIKit"};
inline constexpr TextTable kMessagesTexts{"MobileSMS.app", "Localizable"};
inline constexpr TextTable kChatKitTexts{"ChatKit.framework", "ChatKit"};
inline constexpr std::array kTextTables = {kSettingsTexts, kSystemTexts, kMessagesTexts,
                                           kChatKitTexts};

inline constexpr std::array<std::string_view, 7> kLanguages = {"en", "de",      "fr", "es",
                                                               "ja", "zh-Hans", "ar"};

// Empty when there is no such file.
[[nodiscard]] std::string contentOf(const std::filesystem::path& file);

// Where the table of that language is.
[[nodiscard]] std::filesystem::path fileOf(const TextTable& table, std::string_view language);

// Fails the running test, and is empty, when the table is not there or does not read.
[[nodiscard]] Dictionary textsOf(const TextTable& table, std::string_view language);

}  // namespace zephyl::test
