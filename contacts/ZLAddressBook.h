// The people of the address book for the whole process: all those who have a name, as they were
// loaded last. Main thread.

#pragma once

#include <functional>
#include <memory>

#include "platform/Export.h"

#include "contacts/APAddressBook.h"

namespace zephyl {

// Posted in the process, without an object, after each change of the address book from the first
// load on. Main thread.
inline constexpr const char* ZLAddressBookDidChangeNotification =
    "ZLAddressBookDidChangeNotification";

class ZP_EXPORT ZLAddressBook : public std::enable_shared_from_this<ZLAddressBook> {
 public:
  // The error is null on success, and valid during the call only.
  using Completion = std::function<void(bool success, const NSError* error)>;

  // Made at the first call. Any thread.
  [[nodiscard]] static std::shared_ptr<ZLAddressBook> sharedInstance();

  ZLAddressBook();
  ZLAddressBook(const ZLAddressBook&) = delete;
  ZLAddressBook& operator=(const ZLAddressBook&) = delete;

  // Null before the first load that succeeded.
  [[nodiscard]] const APAddressBook::Contacts& contacts() const { return contacts_; }

  // On failure the contacts stay as they are, and nothing is tried again.
  void loadContacts(Completion completion);

 private:
  void setup();

  std::unique_ptr<APAddressBook> addressBook_;
  APAddressBook::Contacts contacts_;
};

}  // namespace zephyl
