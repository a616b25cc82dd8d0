// The address book. Read-only, but for people that the user adds.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/addressbook/ABPerson.h"
#include "platform/foundation/NSError.h"

namespace zephyl {

class ABAddressBook;

// With the platform's values.
enum class ABAuthorizationStatus {
  kNotDetermined = 0,
  kRestricted = 1,
  kDenied = 2,
  kAuthorized = 3
};
enum class ABPersonSortOrdering { kByFirstName = 0, kByLastName = 1 };

inline constexpr const char* ABAddressBookErrorDomain = "ABAddressBookErrorDomain";
inline constexpr std::int64_t kABOperationNotPermittedByUserError = 1;

// Together with its context it names a registration. Main thread.
using ABExternalChangeCallback = void (*)(ABAddressBook& addressBook, void* context);

class ABAddressBook {
 public:
  virtual ~ABAddressBook() = default;

  // Any thread.
  [[nodiscard]] virtual ABAuthorizationStatus authorizationStatus() = 0;

  // Returns at once. `completion` runs once, later, on any thread; `error` tells why access is
  // refused, is null otherwise, and is valid during the call only.
  using AccessCompletion = std::function<void(bool granted, const NSError* error)>;
  virtual void requestAccessWithCompletion(AccessCompletion completion) = 0;

  // Everybody, in the system's order. Any thread.
  [[nodiscard]] virtual std::vector<ABPersonRef> copyArrayOfAllPeople() = 0;

  // Null when nobody has that record id. Any thread.
  [[nodiscard]] virtual ABPersonRef personWithRecordID(std::int32_t recordID) = 0;

  // By which name the user has people sorted. Any thread.
  [[nodiscard]] virtual ABPersonSortOrdering personGetSortOrdering() = 0;

  // Adds a person, who gets a record id, and announces that as any change. Null when that fails,
  // for the reason told in `error`. Main thread.
  [[nodiscard]] virtual ABPersonRef addPerson(const ABPerson& person, NSError& error) = 0;

  // `callback` runs on the main queue after each change of the people, once for each registration,
  // unless that was taken back before; registering the same twice counts once. Any thread; only on
  // the main thread can it be told that no call comes after unregistering.
  virtual void registerExternalChangeCallback(ABExternalChangeCallback callback, void* context) = 0;
  virtual void unregisterExternalChangeCallback(ABExternalChangeCallback callback,
                                                void* context) = 0;
};

using ABAddressBookRef = std::shared_ptr<ABAddressBook>;

}  // namespace zephyl
