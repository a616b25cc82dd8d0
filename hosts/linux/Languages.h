// The languages that the user of this machine reads, as language tags. Pure functions.

#pragma once

#include <string>
#include <vector>

namespace zephyl::linux_host {

// What the user or the environment says; empty texts are as good as missing.
struct LanguageWishes {
  // Of the command line: tags or locale names, told apart by "," or ":".
  std::string requested = {};

  // LC_ALL, LC_MESSAGES, LANG and LANGUAGE.
  std::string lcAll = {};
  std::string lcMessages = {};
  std::string lang = {};
  std::string language = {};
};

// Those of the environment of this process, with what the command line requested. To be called
// before there are other threads.
[[nodiscard]] LanguageWishes languageWishesOfEnvironment(std::string requested);

// "de_DE.UTF-8@euro" is "de-DE", "zh_CN" is "zh-Hans-CN", "sr_RS@latin" is "sr-Latn-RS". Empty for
// "C", "POSIX" and what is no locale name.
[[nodiscard]] std::string languageTag(const std::string& localeName);

// Whether a language, or the script that its tag names, is written from right to left.
[[nodiscard]] bool isRightToLeft(const std::string& tag);

// The best first, each once, never empty: what was requested or else what the locale's variables
// say, in the order in which programs with translations ask them; English when there is nothing.
[[nodiscard]] std::vector<std::string> preferredLanguages(const LanguageWishes& wishes);

}  // namespace zephyl::linux_host
