// The people of the user's address books, as they were read last. Any thread.

#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/Published.h"
#include "platform/addressbook/ABAddressBook.h"

namespace zephyl::linux_host {

class LinuxAddressBook : public ABAddressBook {
 public:
  explicit LinuxAddressBook(std::vector<ABPersonRef> people) { setPeople(std::move(people)); }

  // Takes the place of everybody there was, whole: whoever asks meets all of them or none.
  void setPeople(std::vector<ABPersonRef> people) {
    auto book = std::make_shared<Book>();
    book->people = std::move(people);
    for (const ABPersonRef& person : book->people) {
      book->byRecordID.emplace(person->recordID, person);
    }
    book_.store(std::move(book));
  }

  std::vector<ABPersonRef> copyArrayOfAllPeople() override { return book_.load()->people; }

  ABPersonRef personWithRecordID(std::int32_t recordID) override {
    const auto book = book_.load();
    const auto found = book->byRecordID.find(recordID);
    return found == book->byRecordID.end() ? nullptr : found->second;
  }

 private:
  struct Book {
    std::vector<ABPersonRef> people;
    std::unordered_map<std::int32_t, ABPersonRef> byRecordID;
  };

  Published<const Book> book_;
};

}  // namespace zephyl::linux_host
