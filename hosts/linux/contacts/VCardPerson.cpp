#include "hosts/linux/contacts/VCardPerson.h"

#include <algorithm>
#include <utility>

#include "hosts/linux/contacts/AsciiText.h"
#include "hosts/linux/contacts/CompositeName.h"
#include "hosts/linux/contacts/VCardDate.h"
#include "hosts/linux/contacts/VCardEncoding.h"

namespace zephyl::linux_host::vcard {

namespace {

// The parts of a list, "Philip,Paul", as one text.
std::string joinedList(std::string_view list, Version version) {
  std::string joined;
  for (const std::string_view item : split(list, ',')) {
    const std::string text = unescaped(item, version);
    const std::string_view trimmed = ascii::trimmed(text);
    if (!trimmed.empty()) {
      joined.append(joined.empty() ? "" : " ").append(trimmed);
    }
  }
  return joined;
}

}  // namespace

PersonBuilder::PersonBuilder(const Card& card, const std::string& file, const FileState& state,
                             ContactNotes& notes)
    : card_(card), file_(file), state_(state), notes_(notes) {}

bool PersonBuilder::readsText(std::string_view name) {
  return name != "PHOTO" && (readers().contains(name) || name == "VERSION" || name == "AGENT" ||
                             name == "X-ABLABEL" || name == "X-ABADR");
}

const std::unordered_map<std::string_view, PersonBuilder::Reader>& PersonBuilder::readers() {
  static const std::unordered_map<std::string_view, Reader> table = {
      {"N", &PersonBuilder::readName},
      {"FN", &PersonBuilder::readFormattedName},
      {"NICKNAME", &PersonBuilder::readNickname},
      {"ORG", &PersonBuilder::readOrganization},
      {"KIND", &PersonBuilder::readKind},
      {"X-ADDRESSBOOKSERVER-KIND", &PersonBuilder::readKind},
      {"X-ABSHOWAS", &PersonBuilder::readKind},
      {"UID", &PersonBuilder::readUid},
      {"REV", &PersonBuilder::readRevision},
      {"CREATED", &PersonBuilder::readCreation},
      {"TEL", &PersonBuilder::readPhone},
      {"EMAIL", &PersonBuilder::readEmail},
      {"ADR", &PersonBuilder::readAddress},
      {"X-SOCIALPROFILE", &PersonBuilder::readSocialProfile},
      {"SOCIALPROFILE", &PersonBuilder::readSocialProfile},
      {"PHOTO", &PersonBuilder::readPhoto},
  };
  return table;
}

std::optional<ABPerson> PersonBuilder::build() {
  readVersion();
  readGroups();
  for (const Property& property : card_.properties) {
    const auto reader = readers().find(property.name);
    if (reader != readers().end()) {
      (this->*reader->second)(property);
    }
  }
  if (isGroup_) {
    notes_.warning(file_, card_.line, "the card is a group of people and is left out");
    return std::nullopt;
  }
  const auto inOrder = [](std::vector<Ranked>& ranked) {
    std::stable_sort(ranked.begin(), ranked.end(), [](const Ranked& left, const Ranked& right) {
      return left.preference < right.preference;
    });
    std::vector<ABLabeledText> texts;
    texts.reserve(ranked.size());
    for (Ranked& entry : ranked) {
      texts.push_back(std::move(entry.text));
    }
    return texts;
  };
  person_.phones = inOrder(phones_);
  person_.emails = inOrder(emails_);
  person_.compositeName = compositeName(person_, formattedName_, {});
  person_.sourceFile = file_;
  return std::move(person_);
}

// The version governs the escapes of the whole card, wherever it stands.
void PersonBuilder::readVersion() {
  for (const Property& property : card_.properties) {
    if (property.name != "VERSION") {
      continue;
    }
    const std::string_view value = ascii::trimmed(property.value);
    if (value.starts_with("2")) {
      version_ = Version::k21;
    } else if (value.starts_with("4")) {
      version_ = Version::k40;
    } else if (!value.starts_with("3")) {
      warn(property, "is not known; the card is read as version 3.0");
    }
    return;
  }
}

void PersonBuilder::readGroups() {
  for (const Property& property : card_.properties) {
    if (property.group.empty()) {
      continue;
    }
    if (property.name == "X-ABLABEL") {
      groups_[property.group].label = text(property);
    } else if (property.name == "X-ABADR") {
      // Some writers put the whole address here.
      const std::string code = text(property);
      const bool isCode = code.size() == 2 && ascii::isLetter(code[0]) && ascii::isLetter(code[1]);
      groups_[property.group].countryCode = isCode ? code : std::string();
    }
  }
}

void PersonBuilder::readName(const Property& property) {
  if (std::exchange(hasName_, true)) {
    warnOfSecond(property);
    return;
  }
  std::vector<std::string> parts = components(property, /*joinLists=*/version_ != Version::k21);
  if (std::any_of(parts.begin() + std::min<std::ptrdiff_t>(5, std::ssize(parts)), parts.end(),
                  [](const std::string& part) { return !part.empty(); })) {
    warn(property, "has more than five parts; the others are left out");
  }
  parts.resize(5);
  person_.lastName = std::move(parts[0]);
  person_.firstName = std::move(parts[1]);
  person_.middleName = std::move(parts[2]);
  person_.prefix = std::move(parts[3]);
  person_.suffix = std::move(parts[4]);
}

void PersonBuilder::readFormattedName(const Property& property) {
  if (formattedName_.empty()) {
    formattedName_ = text(property);
  }
}

void PersonBuilder::readNickname(const Property& property) {
  const std::string name = text(property);
  if (!name.empty()) {
    person_.nickname += person_.nickname.empty() ? name : ", " + name;
  }
}

void PersonBuilder::readOrganization(const Property& property) {
  if (person_.organization.empty()) {
    person_.organization = components(property, /*joinLists=*/false).front();
  }
}

void PersonBuilder::readKind(const Property& property) {
  const std::string kind = text(property);
  if (ascii::equal(kind, "group")) {
    isGroup_ = true;
  } else if (ascii::equal(kind, "org") || ascii::equal(kind, "company")) {
    person_.isCompany = true;
  }
}

void PersonBuilder::readUid(const Property& property) {
  if (person_.guid.empty()) {
    person_.guid = text(property);
  }
}

void PersonBuilder::readRevision(const Property& property) {
  person_.modificationDate = date(property);
}

void PersonBuilder::readCreation(const Property& property) {
  person_.creationDate = date(property);
}

std::string PersonBuilder::decoded(const Property& property) {
  std::string bytes = property.value;
  if (property.transfer == Transfer::kQuotedPrintable) {
    Decoded plain = fromQuotedPrintable(bytes);
    if (property.softBreakLeft) {
      plain.doubt = "ends in the middle of its quoted-printable text";
    }
    if (!plain.doubt.empty()) {
      warn(property, plain.doubt);
    }
    bytes = std::move(plain.text);
  } else if (property.transfer == Transfer::kBase64) {
    if (const auto data = fromBase64(bytes)) {
      bytes.assign(data->begin(), data->end());
    } else {
      warn(property, "is not proper base64; taken as plain text");
    }
  }
  Decoded result = toUtf8(std::move(bytes), property.parameter("CHARSET"));
  if (!result.doubt.empty()) {
    warn(property, result.doubt);
  }
  return std::move(result.text);
}

std::string PersonBuilder::text(const Property& property) {
  return std::string(ascii::trimmed(unescaped(decoded(property), version_)));
}

std::vector<std::string> PersonBuilder::components(const Property& property, bool joinLists) {
  const std::string value = decoded(property);
  std::vector<std::string> parts;
  for (const std::string_view part : split(value, ';')) {
    parts.push_back(joinLists ? joinedList(part, version_)
                              : std::string(ascii::trimmed(unescaped(part, version_))));
  }
  return parts;
}

std::optional<double> PersonBuilder::date(const Property& property) {
  const std::string value = text(property);
  const std::optional<double> seconds = secondsSince1970(value);
  if (!seconds && !value.empty()) {
    warn(property, "is not a date and is left out");
  }
  return seconds;
}

const PersonBuilder::GroupText& PersonBuilder::groupText(const Property& property) const {
  static const GroupText none;
  const auto found = groups_.find(property.group);
  return found == groups_.end() ? none : found->second;
}

// Alternatives in another language or form are expected.
void PersonBuilder::warnOfSecond(const Property& property) {
  if (property.parameter("ALTID").empty()) {
    warn(property, "comes a second time and is left out");
  }
}

void PersonBuilder::warn(const Property& property, std::string_view reason) {
  notes_.warning(file_, property.line, property.name + ' ' + std::string(reason));
}

}  // namespace zephyl::linux_host::vcard
