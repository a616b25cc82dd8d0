// What a device without conversations, contacts, favourites and phone formatting answers.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/addressbook/ABAddressBook.h"
#include "platform/addressbook/ABFavorites.h"
#include "platform/addressbook/ABPhoneFormatting.h"
#include "platform/chatkit/CKConversationList.h"

namespace zephyl::linux_host {

class EmptyConversationList : public CKConversationList {
 public:
  CKConversationArray conversations() override { return {}; }
  CKConversationArray filteredConversationsByZephyl(
      const std::shared_ptr<Zephyl>& /*zephyl*/) override {
    return {};
  }
};

class EmptyAddressBook : public ABAddressBook {
 public:
  std::vector<ABPersonRef> copyArrayOfAllPeople() override { return {}; }
  ABPersonRef personWithRecordID(std::int32_t /*recordID*/) override { return nullptr; }
};

class NoFavorites : public ABFavorites {
 public:
  std::optional<std::vector<ABFavoritesEntry>> entries(const std::string& /*className*/) override {
    return std::nullopt;
  }
};

class NoPhoneFormatting : public ABPhoneFormatting {
 public:
  std::optional<std::string> abCopyPhoneNumberFromString(const std::string& /*text*/) override {
    return std::nullopt;
  }
};

}  // namespace zephyl::linux_host
