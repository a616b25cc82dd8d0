// Who wants to know of changes of an address book, and the telling. Any thread.

#pragma once

#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/addressbook/ABAddressBook.h"

namespace zephyl {

class AddressBookObservers {
 public:
  void add(ABExternalChangeCallback callback, void* context);
  void remove(ABExternalChangeCallback callback, void* context);

  // Calls them on the main queue of the installed host, unless there are none. `book` is not kept
  // alive; what is left of the calls is dropped with it.
  void announce(const std::shared_ptr<ABAddressBook>& book);

 private:
  using Registration = std::pair<ABExternalChangeCallback, void*>;

  struct Registrations {
    std::mutex mutex;
    std::vector<Registration> all;

    [[nodiscard]] std::vector<Registration> copy();
    [[nodiscard]] bool contains(const Registration& registration);
  };

  std::shared_ptr<Registrations> registrations_ = std::make_shared<Registrations>();
};

}  // namespace zephyl
