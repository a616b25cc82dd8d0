#include "contacts/ZLAddressBook.h"

#include <utility>

#include "platform/Once.h"
#include "platform/foundation/NSNotificationCenter.h"

namespace zephyl {

namespace {

constexpr APContactField kFields = APContactFieldFirstName | APContactFieldLastName |
                                   APContactFieldPhones | APContactFieldEmails |
                                   APContactFieldThumbnail | APContactFieldCompositeName |
                                   APContactFieldAddresses | APContactFieldRecordID;

Once<ZLAddressBook>& shared() {
  static Once<ZLAddressBook> once;
  return once;
}

}  // namespace

std::shared_ptr<ZLAddressBook> ZLAddressBook::sharedInstance() {
  return shared().get([] { return std::make_shared<ZLAddressBook>(); });
}

ZLAddressBook::ZLAddressBook() {
  setup();
}

void ZLAddressBook::setup() {
  addressBook_ = std::make_unique<APAddressBook>();
}

void ZLAddressBook::loadContacts(Completion completion) {
  addressBook_->setFieldsMask(kFields);
  addressBook_->setFilterBlock(
      [](const APContact& contact) { return !contact.compositeName().empty(); });
  addressBook_->loadContacts([self = shared_from_this(), completion = std::move(completion)](
                                 const APAddressBook::Contacts& contacts, const NSError* error) {
    if (error == nullptr) {
      self->contacts_ = contacts;
    }
    if (completion) {
      completion(error == nullptr, error);
    }
  });
  addressBook_->startObserveChangesWithCallback([] {
    NSNotificationCenter::defaultCenter()->postNotificationName(ZLAddressBookDidChangeNotification);
  });
}

}  // namespace zephyl
