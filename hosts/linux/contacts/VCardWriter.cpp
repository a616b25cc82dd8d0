#include "hosts/linux/contacts/VCardWriter.h"

#include <array>
#include <cstddef>
#include <random>
#include <string_view>
#include <utility>

#include "platform/foundation/Utf8.h"

#include "hosts/linux/FileContents.h"

namespace zephyl::linux_host {

namespace {

std::string escaped(const std::string& text) {
  std::string value;
  for (const char each : repairedUtf8(text)) {
    if (each == '\n') {
      value += "\\n";
    } else if (each == '\\' || each == ';' || each == ',') {
      value.append(1, '\\').append(1, each);
    } else if (static_cast<unsigned char>(each) >= 0x20 || each == '\t') {
      value += each;
    }
  }
  return value;
}

// A line of the file, parted where it is long: never inside a character.
void appendLine(std::string& card, std::string_view line) {
  constexpr std::size_t kMostBytes = 75;
  std::size_t room = kMostBytes;
  while (line.size() > room) {
    std::size_t part = room;
    while ((static_cast<unsigned char>(line[part]) & 0xC0U) == 0x80U) {
      --part;
    }
    card.append(line.substr(0, part)).append("\r\n ");
    line.remove_prefix(part);
    room = kMostBytes - 1;
  }
  card.append(line).append("\r\n");
}

std::string_view typeOf(const std::string& label) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kTypes = {
      {{"_$!<Mobile>!$_", ";TYPE=CELL"},
       {"_$!<Home>!$_", ";TYPE=HOME"},
       {"_$!<Work>!$_", ";TYPE=WORK"},
       {"_$!<Main>!$_", ";TYPE=MAIN"},
       {"_$!<Other>!$_", ";TYPE=OTHER"},
       {"iPhone", ";TYPE=IPHONE"}}};
  for (const auto& [known, type] : kTypes) {
    if (known == label) {
      return type;
    }
  }
  return {};
}

std::string formattedName(const ABPerson& person) {
  std::string name;
  for (const std::string* part :
       {&person.prefix, &person.firstName, &person.middleName, &person.lastName, &person.suffix}) {
    name.append(name.empty() || part->empty() ? "" : " ").append(*part);
  }
  return name.empty() ? person.organization : name;
}

}  // namespace

std::string vCardText(const ABPerson& person) {
  std::string card = "BEGIN:VCARD\r\nVERSION:3.0\r\n";
  const auto add = [&card](std::string_view name, const std::string& value) {
    std::string line(name);
    line.append(":").append(value);
    appendLine(card, line);
  };
  if (!person.guid.empty()) {
    add("UID", escaped(person.guid));
  }
  std::string names;
  for (const std::string* part :
       {&person.lastName, &person.firstName, &person.middleName, &person.prefix, &person.suffix}) {
    names.append(part == &person.lastName ? "" : ";").append(escaped(*part));
  }
  add("N", names);
  add("FN", escaped(formattedName(person)));
  if (!person.organization.empty()) {
    add("ORG", escaped(person.organization));
  }
  if (person.isCompany) {
    add("X-ABShowAs", "COMPANY");
  }
  for (const ABLabeledText& phone : person.phones) {
    add(std::string("TEL").append(typeOf(phone.label)), escaped(phone.value));
  }
  for (const ABLabeledText& email : person.emails) {
    add(std::string("EMAIL").append(typeOf(email.label)), escaped(email.value));
  }
  return card.append("END:VCARD\r\n");
}

std::optional<std::string> appendVCard(const std::filesystem::path& file, const ABPerson& person) {
  const FileReading before = readWholeFile(file.string());
  if (!before.contents && !before.isMissing()) {
    return file.string().append(": ").append(before.reason);
  }
  std::string cards = before.contents.value_or("");
  if (!cards.empty() && cards.back() != '\n') {
    cards += "\r\n";
  }
  FileFailure failure = replaceFile(behindLinks(file.string()), cards + vCardText(person));
  if (failure) {
    failure->insert(0, file.string() + ": ");
  }
  return failure;
}

std::string newGuid() {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  constexpr std::string_view kForm = "xxxxxxxx-xxxx-4xxx-xxxx-xxxxxxxxxxxx";
  std::random_device random;
  std::string guid(kForm);
  for (char& each : guid) {
    each = each == 'x' ? kDigits[random() % kDigits.size()] : each;
  }
  return guid;
}

}  // namespace zephyl::linux_host
