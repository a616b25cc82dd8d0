#include "hosts/linux/contacts/ContactSources.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "hosts/linux/contacts/AddressBookReader.h"
#include "hosts/linux/contacts/ContactFiles.h"
#include "hosts/linux/contacts/ContactNotes.h"
#include "hosts/linux/contacts/VCardReader.h"

namespace zephyl::linux_host {

namespace {

std::string hexadecimal(std::uint64_t number) {
  std::array<char, 16> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
  return {digits.data(), end};
}

// Collects people and gives each of them a record id.
class People {
 public:
  explicit People(RecordIDs& ids) : ids_(ids) {}

  // They have their ids already, which are nobody else's.
  void leaveIDsTo(const std::vector<ABPersonRef>& others) {
    for (const ABPersonRef& other : others) {
      given_.insert(other->recordID);
    }
  }

  void addFirstAddressBook(const std::filesystem::path& file) {
    AddressBookReading reading = readAddressBook(file);
    std::unordered_set<std::int32_t> rows;
    for (const AddressBookEntry& entry : reading.entries) {
      if (isRecordID(entry.rowID)) {
        rows.insert(static_cast<std::int32_t>(entry.rowID));
      }
    }
    ids_.reserve(rows);
    for (AddressBookEntry& entry : reading.entries) {
      if (isRecordID(entry.rowID)) {
        keep(std::move(entry.person), static_cast<std::int32_t>(entry.rowID));
      } else {
        addWithKey(std::move(entry.person), "first-row:" + std::to_string(entry.rowID));
      }
    }
    notes_.append(reading.notes);
  }

  void add(const ContactFile& file) {
    if (file.kind == ContactFile::Kind::kVCards) {
      addVCards(file.path);
    } else {
      addAddressBook(file.path);
    }
  }

  [[nodiscard]] ContactNotes& notes() { return notes_; }
  [[nodiscard]] ContactsReading finish() {
    ids_.save();
    notes_.append(ids_.takeNotes());
    return {std::move(people_), notes_.warnings(), notes_.errors()};
  }

 private:
  void addAddressBook(const std::filesystem::path& file) {
    AddressBookReading reading = readAddressBook(file);
    for (AddressBookEntry& entry : reading.entries) {
      const std::string row = file.filename().string() + ':' + std::to_string(entry.rowID);
      addWithKey(std::move(entry.person), "row:" + row);
    }
    notes_.append(reading.notes);
  }

  void addVCards(const std::filesystem::path& file) {
    VCardReading reading = readVCards(file);
    for (VCardEntry& entry : reading.entries) {
      addWithKey(std::move(entry.person), "card:" + hexadecimal(entry.textHash));
    }
    notes_.append(reading.notes);
  }

  static bool isRecordID(std::int64_t rowID) {
    return rowID >= 1 && rowID <= std::numeric_limits<std::int32_t>::max();
  }

  void keep(ABPerson person, std::int32_t id) {
    person.recordID = id;
    people_.push_back(std::make_shared<const ABPerson>(std::move(person)));
  }

  // The source's own identifier goes before `otherKey`. The same person may come twice: each time
  // counts as another, and always as the same one.
  void addWithKey(ABPerson person, const std::string& otherKey) {
    const std::string key = person.guid.empty() ? otherKey : "uid:" + person.guid;
    std::size_t& count = counts_[key];
    std::optional<std::int32_t> id;
    do {
      ++count;
      id = ids_.idFor(count == 1 ? key : key + '\n' + std::to_string(count));
    } while (id && !given_.insert(*id).second);
    if (id) {
      keep(std::move(person), *id);
    } else {
      notes_.error(person.sourceFile, 0, "there is no record id left for a person");
    }
  }

  RecordIDs& ids_;
  std::vector<ABPersonRef> people_;
  ContactNotes notes_;
  std::unordered_map<std::string, std::size_t> counts_;
  std::unordered_set<std::int32_t> given_;
};

}  // namespace

ContactsReading readContacts(const std::vector<std::string>& sources, RecordIDs& ids) {
  People people(ids);
  const std::vector<ContactFile> files = contactFiles(sources, people.notes());
  const auto first = std::find_if(files.begin(), files.end(), [](const ContactFile& file) {
    return file.kind == ContactFile::Kind::kAddressBook;
  });
  if (first != files.end()) {
    people.addFirstAddressBook(first->path);
  }
  for (auto file = files.begin(); file != files.end(); ++file) {
    if (file != first) {
      people.add(*file);
    }
  }
  return people.finish();
}

ContactsReading readContactsBehind(const std::vector<ABPersonRef>& others,
                                   const std::string& source, RecordIDs& ids) {
  People people(ids);
  people.leaveIDsTo(others);
  for (const ContactFile& file : contactFiles({source}, people.notes())) {
    people.add(file);
  }
  return people.finish();
}

}  // namespace zephyl::linux_host
