// People, favourites and phone formatting that a test puts there.

#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/addressbook/ABAddressBook.h"
#include "platform/addressbook/ABFavorites.h"
#include "platform/addressbook/ABPhoneFormatting.h"

#include "hosts/common/AddressBookObservers.h"

namespace zephyl::fake {

class FakeAddressBook : public ABAddressBook, public std::enable_shared_from_this<FakeAddressBook> {
 public:
  ABAuthorizationStatus authorizationStatus() override {
    const std::lock_guard lock(mutex_);
    return status_;
  }
  // Answered from a global queue of the installed host.
  void requestAccessWithCompletion(AccessCompletion completion) override;
  std::vector<ABPersonRef> copyArrayOfAllPeople() override {
    const std::lock_guard lock(mutex_);
    ++copies_;
    return people_;
  }
  ABPersonRef personWithRecordID(std::int32_t recordID) override;
  ABPersonSortOrdering personGetSortOrdering() override {
    const std::lock_guard lock(mutex_);
    return ordering_;
  }
  // Under the record id that follows the highest.
  ABPersonRef addPerson(const ABPerson& person, NSError& error) override;
  void registerExternalChangeCallback(ABExternalChangeCallback callback, void* context) override;
  void unregisterExternalChangeCallback(ABExternalChangeCallback callback, void* context) override;

  // Announces the change.
  void setPeople(std::vector<ABPersonRef> people);
  void announceExternalChange() { observers_.announce(shared_from_this()); }
  // Asking for access makes an unknown state a known one: authorized.
  void setAuthorizationStatus(ABAuthorizationStatus status) {
    const std::lock_guard lock(mutex_);
    status_ = status;
  }
  // What refused requests are told; nothing: no reason at all.
  void setAccessError(std::optional<NSError> error) {
    const std::lock_guard lock(mutex_);
    accessError_ = std::move(error);
  }
  void setSortOrdering(ABPersonSortOrdering ordering) {
    const std::lock_guard lock(mutex_);
    ordering_ = ordering;
  }
  void failAdding(std::optional<NSError> error) {
    const std::lock_guard lock(mutex_);
    addingError_ = std::move(error);
  }

  // Calls so far.
  [[nodiscard]] int registrations() const { return registrationCalls_; }
  [[nodiscard]] int unregistrations() const { return unregistrationCalls_; }
  [[nodiscard]] int copies() const { return copies_; }

 private:
  std::mutex mutex_;
  std::vector<ABPersonRef> people_;
  ABAuthorizationStatus status_ = ABAuthorizationStatus::kAuthorized;
  ABPersonSortOrdering ordering_ = ABPersonSortOrdering::kByLastName;
  std::optional<NSError> accessError_ =
      NSError(ABAddressBookErrorDomain, kABOperationNotPermittedByUserError);
  std::optional<NSError> addingError_;
  AddressBookObservers observers_;
  std::atomic<int> registrationCalls_ = 0;
  std::atomic<int> unregistrationCalls_ = 0;
  std::atomic<int> copies_ = 0;
};

class FakeFavorites : public ABFavorites {
 public:
  std::optional<std::vector<ABFavoritesEntry>> entries(const std::string& className) override {
    const std::lock_guard lock(mutex_);
    ++asked_;
    const auto found = classes_.find(className);
    return found == classes_.end() ? std::nullopt : std::optional(found->second);
  }

  // A class that is never set does not exist on the device.
  void setEntries(const std::string& className, std::vector<ABFavoritesEntry> entries) {
    const std::lock_guard lock(mutex_);
    classes_[className] = std::move(entries);
  }
  [[nodiscard]] int asked() {
    const std::lock_guard lock(mutex_);
    return asked_;
  }

 private:
  std::mutex mutex_;
  std::map<std::string, std::vector<ABFavoritesEntry>> classes_;
  int asked_ = 0;
};

class FakePhoneFormatting : public ABPhoneFormatting {
 public:
  std::optional<std::string> abCopyPhoneNumberFromString(const std::string& text) override {
    const std::lock_guard lock(mutex_);
    const auto found = formats_.find(text);
    return found == formats_.end() ? std::nullopt : std::optional(found->second);
  }

  void setFormat(const std::string& text, std::string formatted) {
    const std::lock_guard lock(mutex_);
    formats_[text] = std::move(formatted);
  }

 private:
  std::mutex mutex_;
  std::map<std::string, std::string> formats_;
};

}  // namespace zephyl::fake
