#include "hosts/common/AddressBookObservers.h"

#include <algorithm>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"

namespace zephyl {

std::vector<AddressBookObservers::Registration> AddressBookObservers::Registrations::copy() {
  const std::lock_guard lock(mutex);
  return all;
}

bool AddressBookObservers::Registrations::contains(const Registration& registration) {
  const std::lock_guard lock(mutex);
  return std::find(all.begin(), all.end(), registration) != all.end();
}

void AddressBookObservers::add(ABExternalChangeCallback callback, void* context) {
  const Registration registration(callback, context);
  const std::lock_guard lock(registrations_->mutex);
  auto& all = registrations_->all;
  if (std::find(all.begin(), all.end(), registration) == all.end()) {
    all.push_back(registration);
  }
}

void AddressBookObservers::remove(ABExternalChangeCallback callback, void* context) {
  const std::lock_guard lock(registrations_->mutex);
  std::erase(registrations_->all, Registration(callback, context));
}

void AddressBookObservers::announce(const std::shared_ptr<ABAddressBook>& book) {
  if (registrations_->copy().empty()) {
    return;
  }
  const std::weak_ptr<ABAddressBook> weak = book;
  host().dispatch().mainAsync([weak, registrations = registrations_] {
    for (const Registration& registration : registrations->copy()) {
      const auto alive = weak.lock();
      if (alive != nullptr && registrations->contains(registration)) {
        registration.first(*alive, registration.second);
      }
    }
  });
}

}  // namespace zephyl
