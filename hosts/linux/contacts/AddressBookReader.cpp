#include "hosts/linux/contacts/AddressBookReader.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "hosts/linux/contacts/AddressBookImages.h"
#include "hosts/linux/contacts/AddressBookTables.h"
#include "hosts/linux/contacts/AsciiText.h"
#include "hosts/linux/contacts/CompositeName.h"
#include "hosts/linux/messages/ReadOnlyDatabase.h"
#include "hosts/linux/messages/Statement.h"

namespace zephyl::linux_host {

namespace {

constexpr const char* kPeople = "ABPerson";
constexpr const char* kValues = "ABMultiValue";
constexpr const char* kLabels = "ABMultiValueLabel";
constexpr const char* kParts = "ABMultiValueEntry";
constexpr const char* kPartNames = "ABMultiValueEntryKey";

// What ABMultiValue calls the kinds of values that matter here.
enum Property : std::int64_t { kPhone = 3, kEmail = 4, kAddress = 5, kSocialProfile = 46 };

constexpr double kReferenceDate = 978307200.0;

// Where the parts of an address or a profile go.
struct Composite {
  std::size_t entry = 0;
  Property property = kAddress;
  std::size_t index = 0;
};

std::string* partOf(ABAddress& address, std::string_view name) {
  const std::array<std::pair<std::string_view, std::string*>, 6> parts = {
      {{"Street", &address.street},
       {"City", &address.city},
       {"State", &address.state},
       {"ZIP", &address.zip},
       {"Country", &address.country},
       {"CountryCode", &address.countryCode}}};
  const auto* const found = std::find_if(
      parts.begin(), parts.end(), [&](const auto& part) { return ascii::equal(part.first, name); });
  return found == parts.end() ? nullptr : found->second;
}

std::string* partOf(ABSocialProfile& profile, std::string_view name) {
  const std::array<std::pair<std::string_view, std::string*>, 4> parts = {
      {{"service", &profile.service},
       {"username", &profile.username},
       {"identifier", &profile.userIdentifier},
       {"url", &profile.url}}};
  const auto* const found = std::find_if(
      parts.begin(), parts.end(), [&](const auto& part) { return ascii::equal(part.first, name); });
  return found == parts.end() ? nullptr : found->second;
}

class Reader {
 public:
  Reader(ReadOnlyDatabase& database, const std::filesystem::path& file)
      : database_(database),
        file_(file),
        name_(file.string()),
        tables_(database, {kPeople, kValues, kLabels, kParts, kPartNames, "ZABCDRECORD", "message",
                           "ABThumbnailImage"}) {}

  AddressBookReading read() {
    if (!tables_.has(kPeople, "ROWID")) {
      reading_.notes.error(name_, 0,
                           database_.error() ? database_.error()->reason : whatElseItIs());
      return std::move(reading_);
    }
    readPeople();
    readValues();
    readParts();
    finish();
    return std::move(reading_);
  }

 private:
  [[nodiscard]] std::string whatElseItIs() const {
    if (tables_.has("ZABCDRECORD")) {
      return "this is the address book of a Mac; export its people as vCards and name those";
    }
    if (tables_.has("ABThumbnailImage")) {
      return "these are only the pictures of an address book; name the AddressBook.sqlitedb beside "
             "them";
    }
    const std::string hint = tables_.has("message") ? " but a Messages database" : "";
    return "this is not a phone's address book" + hint + ": there is no table ABPerson";
  }

  // Empty for a null.
  std::string text(const Statement& row, int column, const char* table, std::int64_t rowID) {
    std::string result = row.text(column).value_or(std::string());
    if (!row.isNull(column) && !row.isWellFormed(column)) {
      reading_.notes.warning(name_, 0,
                             std::string(table) + " row " + std::to_string(rowID) +
                                 ": a text has broken characters; they are replaced");
    }
    return result;
  }

  void readPeople() {
    Statement rows = database_.prepare(
        "SELECT " +
        tables_.select(kPeople, {"ROWID", "First", "Middle", "Last", "Prefix", "Suffix", "Nickname",
                                 "Organization", "Kind", "CompositeNameFallback", "guid",
                                 "CreationDate", "ModificationDate"}) +
        " FROM ABPerson ORDER BY ROWID");
    while (rows.next()) {
      AddressBookEntry& entry = reading_.entries.emplace_back();
      entry.rowID = rows.integer(0).value_or(0);
      ABPerson& person = entry.person;
      int column = 1;
      for (std::string* field :
           {&person.firstName, &person.middleName, &person.lastName, &person.prefix, &person.suffix,
            &person.nickname, &person.organization}) {
        *field = text(rows, column++, kPeople, entry.rowID);
      }
      person.isCompany = rows.integer(8) == 1;
      person.compositeName = compositeName(person, {}, text(rows, 9, kPeople, entry.rowID));
      person.guid = text(rows, 10, kPeople, entry.rowID);
      person.creationDate = date(rows.integer(11));
      person.modificationDate = date(rows.integer(12));
      person.sourceFile = name_;
    }
  }

  static std::optional<double> date(std::optional<std::int64_t> sinceReferenceDate) {
    return sinceReferenceDate
               ? std::optional(static_cast<double>(*sinceReferenceDate) + kReferenceDate)
               : std::nullopt;
  }

  // The texts of a table by their rows.
  std::unordered_map<std::int64_t, std::string> textsOf(const char* table) {
    std::unordered_map<std::int64_t, std::string> texts;
    if (!tables_.has(table, "ROWID") || !tables_.has(table, "value")) {
      return texts;
    }
    Statement rows = database_.prepare(std::string("SELECT ROWID, value FROM ") + table);
    while (rows.next()) {
      const std::int64_t rowID = rows.integer(0).value_or(0);
      texts.emplace(rowID, text(rows, 1, table, rowID));
    }
    return texts;
  }

  // The place of a person among the entries.
  [[nodiscard]] std::optional<std::size_t> entryOf(std::optional<std::int64_t> rowID) const {
    const auto found = std::lower_bound(
        reading_.entries.begin(), reading_.entries.end(), rowID.value_or(0),
        [](const AddressBookEntry& entry, std::int64_t id) { return entry.rowID < id; });
    if (!rowID || found == reading_.entries.end() || found->rowID != *rowID) {
      return std::nullopt;
    }
    return static_cast<std::size_t>(found - reading_.entries.begin());
  }

  void readValues() {
    for (const char* column : {"record_id", "property", "value"}) {
      if (!tables_.has(kValues, column)) {
        reading_.notes.warning(name_, 0,
                               std::string("there is no column ") + column +
                                   " in a table ABMultiValue: people are without numbers");
        return;
      }
    }
    const auto labels = textsOf(kLabels);
    const std::string uid = tables_.has(kValues, "UID") ? "UID" : "ROWID";
    Statement rows = database_.prepare(
        "SELECT " + tables_.select(kValues, {uid, "record_id", "property", "label", "value"}) +
        " FROM ABMultiValue WHERE property IN (3, 4, 5, 46) ORDER BY " +
        tables_.select(kValues, {"record_id", "property", "identifier", uid}));
    std::size_t nobodys = 0;
    while (rows.next()) {
      const auto entry = entryOf(rows.integer(1));
      if (!entry) {
        ++nobodys;
        continue;
      }
      const auto label = labels.find(rows.integer(3).value_or(0));
      takeValue(rows, *entry, label == labels.end() ? std::string() : label->second);
    }
    noteNobodys(nobodys, kValues);
  }

  void takeValue(const Statement& row, std::size_t entry, const std::string& label) {
    const std::int64_t uid = row.integer(0).value_or(0);
    ABPerson& person = reading_.entries[entry].person;
    const std::int64_t property = row.integer(2).value_or(0);
    if (property == kAddress) {
      composites_[uid] = {entry, kAddress, person.addresses.size()};
      person.addresses.emplace_back();
      return;
    }
    if (property == kSocialProfile) {
      composites_[uid] = {entry, kSocialProfile, person.socialProfiles.size()};
      person.socialProfiles.emplace_back();
      return;
    }
    std::string value = text(row, 4, kValues, uid);
    if (!value.empty()) {
      (property == kPhone ? person.phones : person.emails).push_back({label, std::move(value)});
    }
  }

  void readParts() {
    if (!tables_.has(kParts, "parent_id") || !tables_.has(kParts, "key") ||
        !tables_.has(kParts, "value")) {
      return;
    }
    const auto names = textsOf(kPartNames);
    Statement rows = database_.prepare("SELECT parent_id, key, value FROM ABMultiValueEntry");
    while (rows.next()) {
      const std::int64_t parent = rows.integer(0).value_or(0);
      const auto composite = composites_.find(parent);
      const auto name = names.find(rows.integer(1).value_or(0));
      // Other kinds of values have parts as well.
      if (composite == composites_.end() || name == names.end()) {
        continue;
      }
      const Composite& place = composite->second;
      ABPerson& person = reading_.entries[place.entry].person;
      std::string* part = place.property == kAddress
                              ? partOf(person.addresses[place.index], name->second)
                              : partOf(person.socialProfiles[place.index], name->second);
      if (part != nullptr) {
        *part = text(rows, 2, kParts, parent);
      }
    }
  }

  void finish() {
    const auto images =
        AddressBookImages::open(AddressBookImages::fileBeside(file_), reading_.notes);
    for (AddressBookEntry& entry : reading_.entries) {
      std::erase(entry.person.addresses, ABAddress());
      std::erase(entry.person.socialProfiles, ABSocialProfile());
      if (images) {
        images->addTo(entry.person, entry.rowID);
      }
    }
    if (database_.error()) {
      reading_.notes.error(name_, 0, database_.error()->reason);
    } else if (database_.missesLog()) {
      reading_.notes.warning(name_, 0,
                             "the file was written with a log beside it, \"-wal\", which is not "
                             "there; the newest changes may be missing");
    }
  }

  void noteNobodys(std::size_t count, const char* table) {
    if (count != 0) {
      reading_.notes.warning(name_, 0,
                             std::string(table) + ": " + std::to_string(count) +
                                 " rows belong to nobody and are left out");
    }
  }

  ReadOnlyDatabase& database_;
  const std::filesystem::path& file_;
  std::string name_;
  AddressBookTables tables_;
  AddressBookReading reading_;
  std::unordered_map<std::int64_t, Composite> composites_;
};

}  // namespace

AddressBookReading readAddressBook(const std::filesystem::path& file) {
  using Access = ReadOnlyDatabase::Access;
  AddressBookReading reading;
  for (const Access access : {Access::kInPlaceWhenSafe, Access::kPrivateCopy}) {
    auto opened = ReadOnlyDatabase::open(file, access);
    if (!opened.ok()) {
      reading = AddressBookReading();
      reading.notes.error(file.string(), 0, opened.error().reason);
      return reading;
    }
    reading = Reader(opened.value(), file).read();
    if (!opened.value().sourceChanged()) {
      break;
    }
  }
  return reading;
}

}  // namespace zephyl::linux_host
