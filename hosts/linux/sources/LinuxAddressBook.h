// The people of the user's address books, as they were read at the start. Any thread.

#pragma once

#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/addressbook/ABAddressBook.h"

namespace zephyl::linux_host {

class LinuxAddressBook : public ABAddressBook {
 public:
  explicit LinuxAddressBook(std::vector<ABPersonRef> people) : people_(std::move(people)) {
    for (const ABPersonRef& person : people_) {
      byRecordID_.emplace(person->recordID, person);
    }
  }

  std::vector<ABPersonRef> copyArrayOfAllPeople() override { return people_; }

  ABPersonRef personWithRecordID(std::int32_t recordID) override {
    const auto found = byRecordID_.find(recordID);
    return found == byRecordID_.end() ? nullptr : found->second;
  }

 private:
  const std::vector<ABPersonRef> people_;
  std::unordered_map<std::int32_t, ABPersonRef> byRecordID_;
};

}  // namespace zephyl::linux_host
