// Makes a person of the address book from the properties of one vCard.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/addressbook/ABPerson.h"

#include "hosts/linux/contacts/ContactNotes.h"
#include "hosts/linux/contacts/TextFile.h"
#include "hosts/linux/contacts/VCardProperty.h"

namespace zephyl::linux_host::vcard {

struct Card {
  std::size_t line = 0;  // that of BEGIN:VCARD
  std::vector<Property> properties;
};

class PersonBuilder {
 public:
  // Everything must outlive the builder; what is mended or left out is told to `notes`.
  PersonBuilder(const Card& card, const std::string& file, const FileState& state,
                ContactNotes& notes);

  // Whether a property of that upper-case name makes a difference to a person, by its text.
  [[nodiscard]] static bool readsText(std::string_view name);

  // nullopt for a card that describes a group of people. Preferred phones and e-mail addresses come
  // first, the others in the order of the card.
  [[nodiscard]] std::optional<ABPerson> build();

 private:
  using Reader = void (PersonBuilder::*)(const Property&);
  struct GroupText {
    std::string label;
    std::string countryCode;
  };
  struct Ranked {
    int preference = 0;
    ABLabeledText text;
  };

  static const std::unordered_map<std::string_view, Reader>& readers();

  void readVersion();
  void readGroups();
  void readName(const Property& property);
  void readFormattedName(const Property& property);
  void readNickname(const Property& property);
  void readOrganization(const Property& property);
  void readKind(const Property& property);
  void readUid(const Property& property);
  void readRevision(const Property& property);
  void readCreation(const Property& property);
  void readPhone(const Property& property);
  void readEmail(const Property& property);
  void readAddress(const Property& property);
  void readSocialProfile(const Property& property);
  void readPhoto(const Property& property);

  // The value in UTF-8, its escapes still in place; and with them undone.
  [[nodiscard]] std::string decoded(const Property& property);
  [[nodiscard]] std::string text(const Property& property);
  [[nodiscard]] std::vector<std::string> components(const Property& property, bool joinLists);
  [[nodiscard]] std::optional<double> date(const Property& property);
  [[nodiscard]] const GroupText& groupText(const Property& property) const;
  void warn(const Property& property, std::string_view reason);
  void warnOfSecond(const Property& property);

  const Card& card_;
  const std::string& file_;
  const FileState& state_;
  ContactNotes& notes_;

  Version version_ = Version::k30;
  ABPerson person_;
  std::string formattedName_;
  bool hasPhoto_ = false;
  bool isGroup_ = false;
  bool hasName_ = false;
  std::unordered_map<std::string, GroupText> groups_;
  std::vector<Ranked> phones_;
  std::vector<Ranked> emails_;
};

}  // namespace zephyl::linux_host::vcard
