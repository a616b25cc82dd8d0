#include "hosts/fake/FakePhoneBook.h"

#include <algorithm>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"

namespace zephyl::fake {

void FakeAddressBook::requestAccessWithCompletion(AccessCompletion completion) {
  host().dispatch().globalAsync(QueuePriority::kDefault,
                                [self = shared_from_this(), completion = std::move(completion)] {
                                  std::optional<NSError> error;
                                  bool granted = false;
                                  {
                                    const std::lock_guard lock(self->mutex_);
                                    if (self->status_ == ABAuthorizationStatus::kNotDetermined) {
                                      self->status_ = ABAuthorizationStatus::kAuthorized;
                                    }
                                    granted = self->status_ == ABAuthorizationStatus::kAuthorized;
                                    error = self->accessError_;
                                  }
                                  completion(granted, granted || !error ? nullptr : &*error);
                                });
}

ABPersonRef FakeAddressBook::personWithRecordID(std::int32_t recordID) {
  const std::lock_guard lock(mutex_);
  const auto found = std::find_if(people_.begin(), people_.end(), [&](const ABPersonRef& person) {
    return person->recordID == recordID;
  });
  return found == people_.end() ? nullptr : *found;
}

ABPersonRef FakeAddressBook::addPerson(const ABPerson& person, NSError& error) {
  auto added = std::make_shared<ABPerson>(person);
  added->recordID = 0;
  {
    const std::lock_guard lock(mutex_);
    if (addingError_) {
      error = *addingError_;
      return nullptr;
    }
    for (const ABPersonRef& other : people_) {
      added->recordID = std::max(added->recordID, other->recordID);
    }
    ++added->recordID;
    const std::string space =
        added->firstName.empty() || added->lastName.empty() ? std::string() : " ";
    const std::string name = added->firstName + space + added->lastName;
    if (!name.empty() || !added->organization.empty()) {
      added->compositeName = name.empty() ? added->organization : name;
    }
    people_.push_back(added);
  }
  announceExternalChange();
  return added;
}

void FakeAddressBook::registerExternalChangeCallback(ABExternalChangeCallback callback,
                                                     void* context) {
  ++registrationCalls_;
  observers_.add(callback, context);
}

void FakeAddressBook::unregisterExternalChangeCallback(ABExternalChangeCallback callback,
                                                       void* context) {
  ++unregistrationCalls_;
  observers_.remove(callback, context);
}

void FakeAddressBook::setPeople(std::vector<ABPersonRef> people) {
  {
    const std::lock_guard lock(mutex_);
    people_ = std::move(people);
  }
  announceExternalChange();
}

}  // namespace zephyl::fake
