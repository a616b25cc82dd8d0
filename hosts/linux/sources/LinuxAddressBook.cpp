#include "hosts/linux/sources/LinuxAddressBook.h"

#include <utility>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"

namespace zephyl::linux_host {

namespace {

NSError notPermitted(const std::string& reason) {
  Dictionary info;
  info.set(kNSLocalizedDescriptionKey, reason);
  return {ABAddressBookErrorDomain, kABOperationNotPermittedByUserError, info};
}

}  // namespace

void LinuxAddressBook::store(std::vector<ABPersonRef> people, std::vector<std::string> errors) {
  auto book = std::make_shared<Book>();
  book->people = std::move(people);
  book->errors = std::move(errors);
  for (const ABPersonRef& person : book->people) {
    book->byRecordID.emplace(person->recordID, person);
  }
  book_.store(std::move(book));
}

void LinuxAddressBook::setPeople(std::vector<ABPersonRef> people, std::vector<std::string> errors) {
  store(std::move(people), std::move(errors));
  observers_.announce(shared_from_this());
}

ABAuthorizationStatus LinuxAddressBook::authorizationStatus() {
  const ABAuthorizationStatus status = status_;
  return status == ABAuthorizationStatus::kAuthorized && refusal() != nullptr
             ? ABAuthorizationStatus::kDenied
             : status;
}

std::unique_ptr<NSError> LinuxAddressBook::refusal() {
  const ABAuthorizationStatus status = status_;
  if (status == ABAuthorizationStatus::kDenied || status == ABAuthorizationStatus::kRestricted) {
    return std::make_unique<NSError>(notPermitted("Access to the contacts is not allowed."));
  }
  const auto book = book_.load();
  if (book->people.empty() && !book->errors.empty()) {
    return std::make_unique<NSError>(notPermitted(book->errors.front()));
  }
  return nullptr;
}

void LinuxAddressBook::requestAccessWithCompletion(AccessCompletion completion) {
  host().dispatch().globalAsync(
      QueuePriority::kDefault, [self = shared_from_this(), completion = std::move(completion)] {
        auto unknown = ABAuthorizationStatus::kNotDetermined;
        self->status_.compare_exchange_strong(unknown, ABAuthorizationStatus::kAuthorized);
        const auto error = self->refusal();
        completion(error == nullptr, error.get());
      });
}

ABPersonRef LinuxAddressBook::personWithRecordID(std::int32_t recordID) {
  const auto book = book_.load();
  const auto found = book->byRecordID.find(recordID);
  return found == book->byRecordID.end() ? nullptr : found->second;
}

ABPersonRef LinuxAddressBook::addPerson(const ABPerson& person, NSError& error) {
  if (!adder_) {
    error = notPermitted("Nobody can be added to these contacts.");
    return nullptr;
  }
  return adder_(person, error);
}

}  // namespace zephyl::linux_host
