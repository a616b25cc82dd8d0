// The people of the user's address books, as they were read last. Any thread.

#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/Published.h"
#include "platform/addressbook/ABAddressBook.h"

#include "hosts/common/AddressBookObservers.h"

namespace zephyl::linux_host {

class LinuxAddressBook : public ABAddressBook,
                         public std::enable_shared_from_this<LinuxAddressBook> {
 public:
  // Writes a person down and sees to it that the people are read again, with `setPeople`; gives the
  // person as read, or null and the reason. Main thread.
  using Adder = std::function<ABPersonRef(const ABPerson& person, NSError& error)>;

  explicit LinuxAddressBook(std::vector<ABPersonRef> people) { store(std::move(people), {}); }

  // Takes the place of everybody there was, whole: whoever asks meets all of them or none.
  // `errors`, "FILE: REASON", are what could not be read. Those who observe are told, on the main
  // queue.
  void setPeople(std::vector<ABPersonRef> people, std::vector<std::string> errors = {});

  // Restricted and denied refuse whoever asks. Otherwise only those are refused who would meet
  // nobody, because of an error: they are told that.
  void setAuthorizationStatus(ABAuthorizationStatus status) { status_ = status; }
  void setSortOrdering(ABPersonSortOrdering ordering) { ordering_ = ordering; }
  // Main thread. Without one nobody can be added.
  void setAdder(Adder adder) { adder_ = std::move(adder); }

  ABAuthorizationStatus authorizationStatus() override;
  void requestAccessWithCompletion(AccessCompletion completion) override;
  std::vector<ABPersonRef> copyArrayOfAllPeople() override { return book_.load()->people; }
  ABPersonRef personWithRecordID(std::int32_t recordID) override;
  ABPersonSortOrdering personGetSortOrdering() override { return ordering_; }
  ABPersonRef addPerson(const ABPerson& person, NSError& error) override;
  void registerExternalChangeCallback(ABExternalChangeCallback callback, void* context) override {
    observers_.add(callback, context);
  }
  void unregisterExternalChangeCallback(ABExternalChangeCallback callback, void* context) override {
    observers_.remove(callback, context);
  }

 private:
  struct Book {
    std::vector<ABPersonRef> people;
    std::vector<std::string> errors;
    std::unordered_map<std::int32_t, ABPersonRef> byRecordID;
  };

  void store(std::vector<ABPersonRef> people, std::vector<std::string> errors);
  // Nothing when access is granted.
  [[nodiscard]] std::unique_ptr<NSError> refusal();

  Published<const Book> book_;
  std::atomic<ABAuthorizationStatus> status_ = ABAuthorizationStatus::kAuthorized;
  std::atomic<ABPersonSortOrdering> ordering_ = ABPersonSortOrdering::kByLastName;
  Adder adder_;
  AddressBookObservers observers_;
};

}  // namespace zephyl::linux_host
