#include "hosts/linux/contacts/VCardProperty.h"

#include <algorithm>
#include <charconv>

#include "hosts/linux/contacts/AsciiText.h"

namespace zephyl::linux_host::vcard {

namespace {

constexpr int kNoPreference = 101;

// Split at semicolons outside quotation marks.
std::vector<std::string_view> headParts(std::string_view head) {
  std::vector<std::string_view> parts;
  bool inQuotes = false;
  std::size_t start = 0;
  for (std::size_t at = 0; at < head.size(); ++at) {
    if (head[at] == '"') {
      inQuotes = !inQuotes;
    } else if (head[at] == ';' && !inQuotes) {
      parts.push_back(head.substr(start, at - start));
      start = at + 1;
    }
  }
  parts.push_back(head.substr(start));
  return parts;
}

bool isEncodingName(std::string_view name) {
  return ascii::equal(name, "QUOTED-PRINTABLE") || ascii::equal(name, "BASE64") ||
         ascii::equal(name, "7BIT") || ascii::equal(name, "8BIT");
}

std::pair<std::string, std::string> parameterOf(std::string_view part) {
  const std::size_t equals = part.find('=');
  if (equals == std::string_view::npos) {
    return {isEncodingName(part) ? "ENCODING" : "TYPE", std::string(ascii::trimmed(part))};
  }
  std::string value(ascii::trimmed(part.substr(equals + 1)));
  std::erase(value, '"');
  return {ascii::upper(ascii::trimmed(part.substr(0, equals))), std::move(value)};
}

}  // namespace

std::optional<Property> Property::parse(Line line) {
  if (line.colon == std::string::npos) {
    return std::nullopt;
  }
  const std::vector<std::string_view> parts =
      headParts(std::string_view(line.text).substr(0, line.colon));
  std::string_view name = ascii::trimmed(parts.front());
  Property property;
  if (const std::size_t dot = name.rfind('.'); dot != std::string_view::npos) {
    property.group = ascii::lower(name.substr(0, dot));
    name.remove_prefix(dot + 1);
  }
  if (name.empty()) {
    return std::nullopt;
  }
  property.name = ascii::upper(name);
  for (std::size_t i = 1; i < parts.size(); ++i) {
    if (!parts[i].empty()) {
      property.parameters.push_back(parameterOf(parts[i]));
    }
  }
  property.line = line.number;
  property.place = line.place;
  property.isCut = line.isCut;
  property.transfer = line.transfer;
  property.softBreakLeft = line.softBreakLeft;
  property.emptyLineAfter = line.emptyLineAfter;
  line.text.erase(0, line.colon + 1);
  property.value = std::move(line.text);
  return property;
}

std::string_view Property::parameter(std::string_view upperCaseName) const {
  for (const auto& [key, text] : parameters) {
    if (key == upperCaseName) {
      return text;
    }
  }
  return {};
}

std::vector<std::string_view> Property::types() const {
  std::vector<std::string_view> all;
  for (const auto& [key, text] : parameters) {
    if (key != "TYPE") {
      continue;
    }
    for (const std::string_view type : split(text, ',')) {
      if (!ascii::trimmed(type).empty()) {
        all.push_back(ascii::trimmed(type));
      }
    }
  }
  return all;
}

bool Property::hasType(std::string_view type) const {
  const std::vector<std::string_view> all = types();
  return std::any_of(all.begin(), all.end(),
                     [&](std::string_view other) { return ascii::equal(other, type); });
}

int Property::preference() const {
  const std::string_view text = parameter("PREF");
  int number = kNoPreference;
  std::from_chars(text.data(), text.data() + text.size(), number);
  if (number >= 1 && number < kNoPreference) {
    return number;
  }
  return hasType("PREF") ? 1 : kNoPreference;
}

std::string parameterText(std::string_view value, Version version) {
  if (version != Version::k40) {
    return std::string(value);
  }
  std::string text;
  for (std::size_t at = 0; at < value.size(); ++at) {
    const char next = value[at] == '^' && at + 1 < value.size() ? value[at + 1] : '\0';
    if (next == 'n' || next == '\'' || next == '^') {
      text += next == 'n' ? '\n' : next == '\'' ? '"' : '^';
      ++at;
    } else {
      text += value[at];
    }
  }
  return text;
}

std::string unescaped(std::string_view value, Version version) {
  const std::string_view known = version == Version::k21 ? ";,:" : ";,:\\nN\"";
  std::string text;
  text.reserve(value.size());
  for (std::size_t at = 0; at < value.size(); ++at) {
    const bool escape = value[at] == '\\' && at + 1 < value.size() &&
                        known.find(value[at + 1]) != std::string_view::npos;
    if (!escape) {
      text += value[at];
      continue;
    }
    ++at;
    text += value[at] == 'n' || value[at] == 'N' ? '\n' : value[at];
  }
  return text;
}

std::vector<std::string_view> split(std::string_view value, char separator) {
  std::vector<std::string_view> parts;
  std::size_t start = 0;
  for (std::size_t at = 0; at < value.size(); ++at) {
    if (value[at] == '\\') {
      ++at;
    } else if (value[at] == separator) {
      parts.push_back(value.substr(start, at - start));
      start = at + 1;
    }
  }
  parts.push_back(value.substr(start));
  return parts;
}

}  // namespace zephyl::linux_host::vcard
