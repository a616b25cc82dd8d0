#include "apps/common/UserData.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "platform/Host.h"
#include "platform/chatkit/CKConversationList.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/foundation/SystemLog.h"

#include "apps/common/CommandError.h"
#include "apps/common/DeviceLock.h"
#include "apps/common/Favorites.h"
#include "hosts/common/FilteredConversationList.h"
#include "hosts/linux/FileContents.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/contacts/ContactSources.h"
#include "hosts/linux/contacts/ContactStamps.h"
#include "hosts/linux/contacts/FavoritesFile.h"
#include "hosts/linux/contacts/HomeRegion.h"
#include "hosts/linux/contacts/PhoneFormatter.h"
#include "hosts/linux/contacts/VCardWriter.h"
#include "hosts/linux/messages/MessagesDatabase.h"
#include "hosts/linux/sources/ConversationFacts.h"
#include "hosts/linux/sources/LinuxAddressBook.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app {

namespace {

// The locale whose rules telephone numbers follow.
std::string telephoneLocale() {
  for (const char* name : {"LC_ALL", "LC_TELEPHONE", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') {
      return value;
    }
  }
  return {};
}

std::vector<ABFavoritesEntry> readFavoritesOfDevice() {
  const auto bytes = host().files().contentsAtPath(kFavoritesFilePath);
  if (!bytes) {
    return {};
  }
  linux_host::FavoritesReading reading = linux_host::readFavoritesFile(*bytes, kFavoritesFilePath);
  for (const auto* lines : {&reading.errors, &reading.warnings}) {
    for (const std::string& line : *lines) {
      host().systemLog().log(line);
    }
  }
  return std::move(reading.entries);
}

// The reason when that fails.
linux_host::FileFailure putBack(const std::string& file, const linux_host::FileReading& before) {
  return before.contents ? linux_host::replaceFile(linux_host::behindLinks(file), *before.contents)
                         : linux_host::removeFile(file);
}

bool ruleShows(const ZephylRef& group, const CKConversationRef& conversation) {
  return ZephylsDataController::sharedInstance()->isConversationMemberOfGroup(group, conversation,
                                                                              host().addressBook());
}

}  // namespace

UserData::UserData(const Places& places, Reports reports)
    : places_(places),
      reports_(std::move(reports)),
      homeRegion_(linux_host::homeRegionFor(telephoneLocale())) {}

linux_host::ContactsReading UserData::readContacts() const {
  const std::vector<std::string> files = sources();
  if (files.empty()) {
    return {};
  }
  linux_host::RecordIDs ids(places_.recordIDs(), access_);
  return linux_host::readContacts(files, ids);
}

std::vector<std::string> UserData::sources() const {
  std::vector<std::string> files = places_.contacts;
  std::error_code error;
  if (std::filesystem::exists(places_.addedPeople(), error)) {
    files.push_back(places_.addedPeople().string());
  }
  return files;
}

ABPersonRef UserData::addPerson(const ABPerson& person, NSError& error) {
  ABPerson added = person;
  added.guid = linux_host::newGuid();
  const auto fail = [&](const std::string& reason) {
    error = NSError(ABAddressBookErrorDomain, 0, {{kNSLocalizedDescriptionKey, reason}});
    return ABPersonRef();
  };
  try {
    const DeviceLock lock(places_.device);
    const std::string file = places_.addedPeople().string();
    const linux_host::FileReading before = linux_host::readWholeFile(file);
    if (const auto failure = linux_host::appendVCard(places_.addedPeople(), added)) {
      return fail(*failure);
    }
    readAddedPeople();
    if (ABPersonRef found = personWithGuid(added.guid)) {
      return found;
    }
    // Else each further try would add the card once more.
    const auto left = putBack(file, before);
    return fail(
        file +
        (left ? ": the person was written and cannot be read; taking that back failed: " + *left
              : ": the person cannot be read from this file"));
  } catch (const CommandError& reason) {
    return fail(reason.what());
  }
}

void UserData::readAddedPeople() {
  try {
    refreshPeople();
    return;
  } catch (const CommandError& reason) {
    reports_.badData(reason.what());
  }
  const std::string file = places_.addedPeople().string();
  std::vector<ABPersonRef> people = people_;
  std::erase_if(people, [&](const ABPersonRef& each) { return each->sourceFile == file; });
  linux_host::RecordIDs ids(places_.recordIDs(), access_);
  linux_host::ContactsReading reading = linux_host::readContactsBehind(people, file, ids);
  reports_.warnings("contacts", reading.warnings);
  people.insert(people.end(), reading.people.begin(), reading.people.end());
  setPeople(std::move(people));
}

ABPersonRef UserData::personWithGuid(const std::string& guid) const {
  const auto found = std::find_if(people_.begin(), people_.end(),
                                  [&](const ABPersonRef& each) { return each->guid == guid; });
  return found == people_.end() ? nullptr : *found;
}

void UserData::watchPeople() {
  std::vector<std::string> files = places_.contacts;
  files.push_back(places_.addedPeople().string());
  watcher_ = std::make_unique<linux_host::ContactsWatcher>(std::move(files), [this] {
    try {
      refreshPeople();
    } catch (const CommandError& reason) {
      reports_.badData(reason.what());
    }
  });
}

void UserData::take(linux_host::ContactsReading reading) {
  for (const std::string& error : reading.errors) {
    reports_.badData(error);
  }
  reports_.warnings("contacts", reading.warnings);
  errors_ = std::move(reading.errors);
  setPeople(std::move(reading.people));
}

void UserData::setPeople(std::vector<ABPersonRef> people) {
  people_ = std::move(people);
  matcher_.emplace(people_, homeRegion_);
  if (addressBook_ != nullptr) {
    addressBook_->setPeople(people_, errors_);
  }
}

void UserData::readPeople(linux_host::RecordIDs::Access access) {
  access_ = access;
  stamps_ = linux_host::contactStamps(sources(), places_.recordIDs());
  take(readContacts());
}

void UserData::refreshPeople() {
  linux_host::ContactStamps stamps = linux_host::contactStamps(sources(), places_.recordIDs());
  if (stamps == stamps_) {
    return;
  }
  linux_host::ContactsReading reading = readContacts();
  for (const std::string& error : reading.errors) {
    if (std::find(errors_.begin(), errors_.end(), error) == errors_.end()) {
      throw CommandError(error);
    }
  }
  stamps_ = std::move(stamps);
  take(std::move(reading));
}

linux_host::LinuxFavorites::Read UserData::favoritesReader(
    const std::vector<std::string>& favorites) const {
  if (favorites.empty()) {
    return readFavoritesOfDevice;
  }
  return [entries = favoritesNamed(favorites, people_, *matcher_)] { return entries; };
}

void UserData::serveBy(linux_host::DeviceOptions& options, const SourceOptions& sources) {
  auto list = std::make_unique<FilteredConversationList>();
  list_ = list.get();
  options.conversationList = std::move(list);
  addressBook_ = std::make_shared<linux_host::LinuxAddressBook>(people_);
  addressBook_->setPeople(people_, errors_);
  addressBook_->setSortOrdering(sources.sortNames);
  addressBook_->setAdder(
      [this](const ABPerson& person, NSError& error) { return addPerson(person, error); });
  options.addressBook = addressBook_;
  options.favorites =
      std::make_unique<linux_host::LinuxFavorites>(favoritesReader(sources.favorites));
  options.phoneFormatting = std::make_unique<linux_host::PhoneFormatter>(homeRegion_);
}

void UserData::readConversations() {
  const auto reading = linux_host::MessagesDatabase::read(places_.messages.string());
  if (!reading.ok()) {
    throw CommandError(reading.error().file + ": " + reading.error().reason);
  }
  reports_.warnings("messages", reading.value().warnings);
  list_->setShows(ruleShows);
  list_->setActiveGroup(
      [] { return ZephylsDataController::sharedInstance()->currentActiveZephyl(); });
  list_->setConversations(linux_host::conversationsOf(reading.value().conversations, *matcher_,
                                                      host().phoneFormatting()));
  NSNotificationCenter::defaultCenter()->postNotificationName(
      kCKConversationListChangedNotification);
}

}  // namespace zephyl::app
