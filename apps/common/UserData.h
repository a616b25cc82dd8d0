// The user's people and conversations: read from where they lie, and served by a device.
//
// Made, used and released on the main thread; must outlive the device that it serves.

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/addressbook/ABPerson.h"
#include "platform/foundation/NSError.h"

#include "apps/common/Places.h"
#include "hosts/linux/contacts/ContactStamps.h"
#include "hosts/linux/contacts/ContactsWatcher.h"
#include "hosts/linux/contacts/HandleMatcher.h"
#include "hosts/linux/contacts/RecordIDs.h"
#include "hosts/linux/sources/LinuxFavorites.h"

namespace zephyl {
class FilteredConversationList;
}

namespace zephyl::linux_host {
struct ContactsReading;
struct DeviceOptions;
class LinuxAddressBook;
}  // namespace zephyl::linux_host

namespace zephyl::app {

class UserData {
 public:
  // What is told while reading. Neither function may be empty.
  struct Reports {
    std::function<void(const std::string& message)> badData;
    std::function<void(const std::string& source, const std::vector<std::string>& warnings)>
        warnings;
  };

  UserData(const Places& places, Reports reports);

  // What cannot be read is told and left out. People whose source has no record ids get theirs in
  // the device root; with kReadOnly, which needs no lock, those that have none there yet get some
  // that are good for this run.
  void readPeople(
      linux_host::RecordIDs::Access access = linux_host::RecordIDs::Access::kReadAndWrite);

  // Reads the people anew when a file of theirs has changed since; the device then serves the new
  // ones. Throws CommandError, with all as it was, when something cannot be read that was not among
  // what could not be read before: it cannot be told then who is who. Each call tries again.
  void refreshPeople();

  // From now on, while an event loop runs, people whose files change are read anew. What cannot be
  // read is told, and all stays as it was.
  void watchPeople();

  // Fills in what a device serves of them: the conversation list, empty for now, the address book
  // with its sort order, the favourites (those of `sources`, or of the device when it names none)
  // and the form of phone numbers. After `readPeople`. Throws CommandError for a favourite who is
  // nobody.
  void serveBy(linux_host::DeviceOptions& options, const SourceOptions& sources);

  // Reads the conversations and puts them into the list of the device, which is installed. May be
  // called again when the database has changed. Throws CommandError.
  void readConversations();

  [[nodiscard]] const std::vector<ABPersonRef>& people() const { return people_; }
  // After `readPeople`.
  [[nodiscard]] const linux_host::HandleMatcher& matcher() const { return *matcher_; }
  // As homeRegionFor() gives it.
  [[nodiscard]] const std::string& homeRegion() const { return homeRegion_; }

 private:
  // The user's, and the file of those who were added here.
  [[nodiscard]] std::vector<std::string> sources() const;
  [[nodiscard]] linux_host::ContactsReading readContacts() const;
  // The person is added and found, or nothing was written.
  [[nodiscard]] ABPersonRef addPerson(const ABPerson& person, NSError& error);
  // After a card was added: whatever became of the other sources, their people stay.
  void readAddedPeople();
  void take(linux_host::ContactsReading reading);
  void setPeople(std::vector<ABPersonRef> people);
  [[nodiscard]] ABPersonRef personWithGuid(const std::string& guid) const;
  [[nodiscard]] linux_host::LinuxFavorites::Read favoritesReader(
      const std::vector<std::string>& favorites) const;

  const Places& places_;
  const Reports reports_;
  const std::string homeRegion_;
  linux_host::RecordIDs::Access access_ = linux_host::RecordIDs::Access::kReadAndWrite;
  // Of the last reading: what was read, and what could not be.
  linux_host::ContactStamps stamps_;
  std::vector<std::string> errors_;
  std::vector<ABPersonRef> people_;
  std::shared_ptr<linux_host::LinuxAddressBook> addressBook_;  // shared with the device
  std::optional<linux_host::HandleMatcher> matcher_;
  FilteredConversationList* list_ = nullptr;  // the device's
  std::unique_ptr<linux_host::ContactsWatcher> watcher_;
};

}  // namespace zephyl::app
