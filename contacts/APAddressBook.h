// Loads people of the system's address book as contacts, in the background, and tells of changes.
//
// Its settings belong to one thread, which is also the one that loads and observes; what they were
// at the time of the call is what a load goes by. A load goes on when the loader is gone.

#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/Export.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/foundation/Dispatch.h"
#include "platform/foundation/NSSortDescriptor.h"

#include "contacts/APContact.h"

namespace zephyl {

enum class APAddressBookAccess { kUnknown = 0, kGranted = 1, kDenied = 2 };

// What a loader registers at its address book, with itself as the context: calls the loader's
// change callback, if it has one. Main thread.
ZP_EXPORT void APAddressBookExternalChangeCallback(ABAddressBook& addressBook, void* context);

class ZP_EXPORT APAddressBook {
 public:
  using FilterBlock = std::function<bool(const APContact& contact)>;
  using SortDescriptors = std::vector<NSSortDescriptor<APContact>>;
  // Exactly one of the two is not null. The error is valid during the call only.
  using Contacts = std::shared_ptr<const APContactArray>;
  using Completion = std::function<void(const Contacts& contacts, const NSError* error)>;
  using ChangeCallback = std::function<void()>;

  // Opens the address book of the installed host. The mask asks for first name, last name, phones.
  APAddressBook();
  // Stops observing.
  ~APAddressBook();
  APAddressBook(const APAddressBook&) = delete;
  APAddressBook& operator=(const APAddressBook&) = delete;

  [[nodiscard]] static APAddressBookAccess access();

  [[nodiscard]] APContactField fieldsMask() const { return fieldsMask_; }
  void setFieldsMask(APContactField mask) { fieldsMask_ = mask; }
  // Keeps those for whom it says true; runs in the background. Empty keeps everybody.
  [[nodiscard]] const FilterBlock& filterBlock() const { return filterBlock_; }
  void setFilterBlock(FilterBlock filter) { filterBlock_ = std::move(filter); }
  // None: the system's order.
  [[nodiscard]] const SortDescriptors& sortDescriptors() const { return sortDescriptors_; }
  void setSortDescriptors(SortDescriptors descriptors);
  [[nodiscard]] const ChangeCallback& changeCallback() const { return changeCallback_; }
  void setChangeCallback(ChangeCallback callback) { changeCallback_ = std::move(callback); }

  // Asks for access, reads everybody and calls on the main queue, or on another one.
  void loadContacts(Completion completion);
  void loadContactsOnQueue(const std::shared_ptr<SerialQueue>& queue, Completion completion);

  // From now on `callback` runs on the main queue after each change; it takes the place of the one
  // before. An empty one does nothing.
  void startObserveChangesWithCallback(ChangeCallback callback);
  void stopObserveChanges();

 private:
  ABAddressBookRef addressBook_;
  std::shared_ptr<SerialQueue> localQueue_;
  APContactField fieldsMask_ = APContactFieldDefault;
  FilterBlock filterBlock_;
  SortDescriptors sortDescriptors_;
  ChangeCallback changeCallback_;
};

}  // namespace zephyl
