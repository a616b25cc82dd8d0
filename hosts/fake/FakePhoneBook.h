// People, favourites and phone formatting that a test puts there.

#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/addressbook/ABAddressBook.h"
#include "platform/addressbook/ABFavorites.h"
#include "platform/addressbook/ABPhoneFormatting.h"

namespace zephyl::fake {

class FakeAddressBook : public ABAddressBook {
 public:
  std::vector<ABPersonRef> copyArrayOfAllPeople() override {
    const std::lock_guard lock(mutex_);
    return people_;
  }
  ABPersonRef personWithRecordID(std::int32_t recordID) override {
    for (const ABPersonRef& person : copyArrayOfAllPeople()) {
      if (person->recordID == recordID) {
        return person;
      }
    }
    return nullptr;
  }

  void setPeople(std::vector<ABPersonRef> people) {
    const std::lock_guard lock(mutex_);
    people_ = std::move(people);
  }

 private:
  std::mutex mutex_;
  std::vector<ABPersonRef> people_;
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
