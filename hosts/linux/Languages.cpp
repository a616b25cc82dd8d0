#include "hosts/linux/Languages.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace zephyl::linux_host {

namespace {

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool isLetters(std::string_view text, std::size_t atLeast, std::size_t atMost) {
  return text.size() >= atLeast && text.size() <= atMost &&
         std::all_of(text.begin(), text.end(), isLetter);
}

bool isRegion(std::string_view text) {
  return isLetters(text, 2, 2) ||
         (text.size() == 3 && std::all_of(text.begin(), text.end(), isDigit));
}

std::string lowered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lower);
  return result;
}

std::string uppered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), upper);
  return result;
}

std::string titled(std::string_view text) {
  std::string result = lowered(text);
  result.front() = upper(result.front());
  return result;
}

std::vector<std::string> split(std::string_view text, std::string_view separators) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(separators), text.size());
    parts.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

// The script that a locale name leaves unsaid: Chinese texts come in two, and a few languages name
// theirs in the modifier.
std::string impliedScript(const std::string& language, const std::string& region,
                          std::string_view modifier) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kModifiers = {
      {{"latin", "Latn"}, {"cyrillic", "Cyrl"}, {"devanagari", "Deva"}, {"iqtelif", "Latn"}}};
  for (const auto& [name, script] : kModifiers) {
    if (modifier == name) {
      return std::string(script);
    }
  }
  if (language != "zh") {
    return {};
  }
  return region == "TW" || region == "HK" || region == "MO" ? "Hant" : "Hans";
}

void addTags(std::vector<std::string>& tags, const std::vector<std::string>& localeNames) {
  for (const std::string& name : localeNames) {
    std::string tag = languageTag(name);
    if (!tag.empty() && std::find(tags.begin(), tags.end(), tag) == tags.end()) {
      tags.push_back(std::move(tag));
    }
  }
}

std::string firstNonEmpty(const std::vector<std::string>& texts) {
  const auto found = std::find_if(texts.begin(), texts.end(),
                                  [](const std::string& text) { return !text.empty(); });
  return found == texts.end() ? std::string() : *found;
}

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

}  // namespace

LanguageWishes languageWishesOfEnvironment(std::string requested) {
  return {std::move(requested), variable("LC_ALL"), variable("LC_MESSAGES"), variable("LANG"),
          variable("LANGUAGE")};
}

std::string languageTag(const std::string& localeName) {
  const std::size_t at = localeName.find('@');
  const std::string modifier = at == std::string::npos ? "" : lowered(localeName.substr(at + 1));
  const std::vector<std::string> parts =
      split(std::string_view(localeName).substr(0, localeName.find_first_of(".@")), "_-");
  // "POSIX" is too long for a language and "C" too short.
  if (parts.empty() || !isLetters(parts[0], 2, 3)) {
    return {};
  }
  const std::string language = lowered(parts[0]);
  std::string script;
  std::string region;
  for (std::size_t i = 1; i < parts.size(); ++i) {
    if (script.empty() && region.empty() && isLetters(parts[i], 4, 4)) {
      script = titled(parts[i]);
    } else if (region.empty() && isRegion(parts[i])) {
      region = uppered(parts[i]);
    } else {
      return {};
    }
  }
  if (script.empty()) {
    script = impliedScript(language, region, modifier);
  }
  return language + (script.empty() ? "" : "-" + script) + (region.empty() ? "" : "-" + region);
}

bool isRightToLeft(const std::string& tag) {
  constexpr auto kScripts = std::to_array<std::string_view>(
      {"arab", "aran", "hebr", "thaa", "syrc", "nkoo", "adlm", "rohg", "samr", "mand"});
  constexpr auto kLanguages =
      std::to_array<std::string_view>({"ar", "arc", "ckb", "dv", "fa", "he", "iw", "ji", "ks",
                                       "lrc", "mzn", "nqo", "ps", "sd", "syr", "ug", "ur", "yi"});
  const auto isAmong = [](const auto& list, const std::string& text) {
    return std::find(list.begin(), list.end(), text) != list.end();
  };
  const std::vector<std::string> parts = split(tag, "-");
  constexpr std::size_t kScriptLetters = 4;
  if (parts.size() > 1 && isLetters(parts[1], kScriptLetters, kScriptLetters)) {
    return isAmong(kScripts, lowered(parts[1]));
  }
  return !parts.empty() && isAmong(kLanguages, lowered(parts.front()));
}

std::vector<std::string> preferredLanguages(const LanguageWishes& wishes) {
  std::vector<std::string> tags;
  addTags(tags, split(wishes.requested, ",:"));
  if (tags.empty()) {
    const std::string locale = firstNonEmpty({wishes.lcAll, wishes.lcMessages, wishes.lang});
    // Who asks for no locale at all wants no translations either.
    if (!locale.empty() && locale != "C" && locale != "POSIX") {
      addTags(tags, split(wishes.language, ":"));
    }
    addTags(tags, {locale});
  }
  if (tags.empty()) {
    tags.emplace_back("en");
  }
  return tags;
}

}  // namespace zephyl::linux_host
