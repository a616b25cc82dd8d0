#include "contacts/APAddressBook.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "platform/Host.h"
#include "platform/foundation/MainQueue.h"

namespace zephyl {

namespace {

// A load with the settings at the time when it was asked for.
struct Load {
  ABAddressBookRef addressBook;
  APContactField fieldsMask;
  APAddressBook::FilterBlock filter;
  APAddressBook::SortDescriptors sortDescriptors;
  std::shared_ptr<SerialQueue> queue;
  APAddressBook::Completion completion;
};

std::shared_ptr<const APContactArray> readContacts(const Load& load) {
  const std::vector<ABPersonRef> people = load.addressBook->copyArrayOfAllPeople();
  APContactArray contacts;
  contacts.reserve(people.size());
  for (const ABPersonRef& person : people) {
    APContactRef contact = APContact::initWithRecordRef(person, load.fieldsMask);
    if (!load.filter || load.filter(*contact)) {
      contacts.push_back(std::move(contact));
    }
  }
  sortUsingDescriptors(contacts, load.sortDescriptors);
  return std::make_shared<const APContactArray>(std::move(contacts));
}

// What the completion holds is let go of on its own queue, not here.
void finish(Load& load, const std::optional<NSError>& error) {
  const auto contacts = error ? nullptr : readContacts(load);
  if (load.completion) {
    load.queue->async([completion = std::move(load.completion), contacts, error] {
      completion(contacts, error ? &*error : nullptr);
    });
  }
}

// A refusal for which the system gives no reason.
NSError refusal() {
  return {ABAddressBookErrorDomain, kABOperationNotPermittedByUserError};
}

}  // namespace

void APAddressBookExternalChangeCallback(ABAddressBook& /*addressBook*/, void* context) {
  // A copy: it may set another one.
  if (const auto callback = static_cast<const APAddressBook*>(context)->changeCallback()) {
    callback();
  }
}

APAddressBook::APAddressBook() : addressBook_(host().addressBook()) {
  const auto hash = static_cast<long>(std::hash<const void*>()(this));
  localQueue_ =
      host().dispatch().makeSerialQueue("com.vantor.zephyls.contacts." + std::to_string(hash));
}

APAddressBook::~APAddressBook() {
  // Whatever the callback was set to meanwhile: nobody may be called from now on.
  addressBook_->unregisterExternalChangeCallback(APAddressBookExternalChangeCallback, this);
}

APAddressBookAccess APAddressBook::access() {
  switch (host().addressBook()->authorizationStatus()) {
    case ABAuthorizationStatus::kAuthorized:
      return APAddressBookAccess::kGranted;
    case ABAuthorizationStatus::kDenied:
    case ABAuthorizationStatus::kRestricted:
      return APAddressBookAccess::kDenied;
    case ABAuthorizationStatus::kNotDetermined:
      break;
  }
  return APAddressBookAccess::kUnknown;
}

void APAddressBook::setSortDescriptors(SortDescriptors descriptors) {
  sortDescriptors_ = std::move(descriptors);
}

void APAddressBook::loadContacts(Completion completion) {
  loadContactsOnQueue(mainQueue(), std::move(completion));
}

void APAddressBook::loadContactsOnQueue(const std::shared_ptr<SerialQueue>& queue,
                                        Completion completion) {
  auto load = std::make_shared<Load>(Load{addressBook_, fieldsMask_, filterBlock_, sortDescriptors_,
                                          queue, std::move(completion)});
  addressBook_->requestAccessWithCompletion(
      [load = std::move(load), local = localQueue_](bool granted, const NSError* error) {
        std::optional<NSError> refused;
        if (!granted) {
          refused = error == nullptr ? refusal() : *error;
        }
        local->async([load, refused = std::move(refused)] { finish(*load, refused); });
      });
}

void APAddressBook::startObserveChangesWithCallback(ChangeCallback callback) {
  if (!callback) {
    return;
  }
  if (!changeCallback_) {
    addressBook_->registerExternalChangeCallback(APAddressBookExternalChangeCallback, this);
  }
  changeCallback_ = std::move(callback);
}

void APAddressBook::stopObserveChanges() {
  if (changeCallback_) {
    changeCallback_ = nullptr;
    addressBook_->unregisterExternalChangeCallback(APAddressBookExternalChangeCallback, this);
  }
}

}  // namespace zephyl
