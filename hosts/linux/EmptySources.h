// What a device without conversations, contacts, favourites and phone formatting answers.

#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Host.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/addressbook/ABFavorites.h"
#include "platform/addressbook/ABPhoneFormatting.h"
#include "platform/chatkit/CKConversationList.h"
#include "platform/foundation/Dispatch.h"

namespace zephyl::linux_host {

class EmptyConversationList : public CKConversationList {
 public:
  CKConversationArray conversations() override { return {}; }
  CKConversationArray filteredConversationsByZephyl(
      const std::shared_ptr<Zephyl>& /*zephyl*/) override {
    return {};
  }
  CKConversationRef conversationForExistingChatWithGUID(const std::string& /*guid*/) override {
    return nullptr;
  }
  void shouldShowAllConversations(bool /*all*/) override {}
  CKConversationArray listedConversations() override { return {}; }
};

class EmptyAddressBook : public ABAddressBook {
 public:
  ABAuthorizationStatus authorizationStatus() override {
    return ABAuthorizationStatus::kAuthorized;
  }
  void requestAccessWithCompletion(AccessCompletion completion) override {
    host().dispatch().globalAsync(QueuePriority::kDefault, [completion = std::move(completion)] {
      completion(/*granted=*/true, nullptr);
    });
  }
  std::vector<ABPersonRef> copyArrayOfAllPeople() override { return {}; }
  ABPersonRef personWithRecordID(std::int32_t /*recordID*/) override { return nullptr; }
  ABPersonSortOrdering personGetSortOrdering() override {
    return ABPersonSortOrdering::kByLastName;
  }
  ABPersonRef addPerson(const ABPerson& /*person*/, NSError& error) override {
    error = NSError(ABAddressBookErrorDomain, kABOperationNotPermittedByUserError);
    return nullptr;
  }
  void registerExternalChangeCallback(ABExternalChangeCallback /*callback*/,
                                      void* /*context*/) override {}
  void unregisterExternalChangeCallback(ABExternalChangeCallback /*callback*/,
                                        void* /*context*/) override {}
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
