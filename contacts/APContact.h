// A person of the address book with the fields that were asked for. Never changes once it is made;
// any thread.
//
// A text that is empty, and a date or number that is absent, is not there: the person has none, or
// it was not asked for. Lists are the same then: empty.

#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/addressbook/ABPerson.h"
#include "platform/foundation/Value.h"
#include "platform/uikit/UIImage.h"

#include "contacts/APAddress.h"
#include "contacts/APContactField.h"
#include "contacts/APPhoneWithLabel.h"
#include "contacts/APSocialProfile.h"

namespace zephyl {

class APContact;
using APContactRef = std::shared_ptr<const APContact>;
using APContactArray = std::vector<APContactRef>;

class ZP_EXPORT APContact {
 public:
  // Reads the fields of the mask, and looks which pictures of it are there.
  [[nodiscard]] static APContactRef initWithRecordRef(const ABPersonRef& record,
                                                      APContactField fieldMask);

  APContact(const APContact&) = delete;
  APContact& operator=(const APContact&) = delete;

  [[nodiscard]] APContactField fieldMask() const { return fieldMask_; }

  [[nodiscard]] const std::string& firstName() const { return firstName_; }
  [[nodiscard]] const std::string& middleName() const { return middleName_; }
  [[nodiscard]] const std::string& lastName() const { return lastName_; }
  [[nodiscard]] const std::string& company() const { return company_; }
  [[nodiscard]] const std::string& compositeName() const { return compositeName_; }
  [[nodiscard]] const std::vector<std::string>& phones() const { return phones_; }
  [[nodiscard]] const std::vector<APPhoneWithLabel>& phonesWithLabels() const {
    return phonesWithLabels_;
  }
  [[nodiscard]] const std::vector<std::string>& emails() const { return emails_; }
  [[nodiscard]] const std::vector<APAddress>& addresses() const { return addresses_; }
  [[nodiscard]] const std::vector<APSocialProfile>& socialProfiles() const {
    return socialProfiles_;
  }
  [[nodiscard]] const std::optional<std::int32_t>& recordID() const { return recordID_; }
  [[nodiscard]] const std::optional<Date>& creationDate() const { return creationDate_; }
  [[nodiscard]] const std::optional<Date>& modificationDate() const { return modificationDate_; }
  // Whether there is one that the device can show, as it was when the contact was read.
  [[nodiscard]] bool hasPhoto() const { return photo_.isThere(); }
  [[nodiscard]] bool hasThumbnail() const { return thumbnail_.isThere(); }
  // Null without a picture. Its file is read here, at the first call: those of a whole address book
  // are too much to keep.
  [[nodiscard]] UIImageRef photo() const { return photo_.image(); }
  [[nodiscard]] UIImageRef thumbnail() const { return thumbnail_.image(); }

  // The name, else the name of the whole person.
  [[nodiscard]] const std::string& firstNameOrCompositeName() const;
  [[nodiscard]] const std::string& lastNameOrCompositeName() const;
  // The phones without all that is none of the digits 0 to 9, in their order.
  [[nodiscard]] std::vector<std::string> sanitizedPhones() const;
  // Null: the address book's links between cards are not read.
  [[nodiscard]] const APContactArray* linkedContacts() const { return nullptr; }

  // For whoever keeps a list of contacts: a number to find this one again by. Another list may set
  // it meanwhile, so that it has to be checked.
  [[nodiscard]] std::uint32_t listPlace() const {
    return listPlace_.load(std::memory_order_relaxed);
  }
  void setListPlace(std::uint32_t place) const {
    listPlace_.store(place, std::memory_order_relaxed);
  }

 private:
  class Picture {
   public:
    // Fetches it once to look at it.
    void read(const ABImageLoader& loader);
    [[nodiscard]] bool isThere() const { return loader_ != nullptr; }
    [[nodiscard]] UIImageRef image() const;

   private:
    ABImageLoader loader_;  // none without a picture
    mutable std::once_flag once_;
    mutable UIImageRef image_;
  };

  APContact(const ABPersonRef& record, APContactField fieldMask);

  void readNames(const ABPerson& person);
  void readLists(const ABPerson& person);
  void readNumbers(const ABPerson& person);
  [[nodiscard]] bool reads(APContactField field) const { return (fieldMask_ & field) != 0; }

  APContactField fieldMask_;
  mutable std::atomic<std::uint32_t> listPlace_ = 0;
  std::string firstName_;
  std::string middleName_;
  std::string lastName_;
  std::string company_;
  std::string compositeName_;
  std::vector<std::string> phones_;
  std::vector<APPhoneWithLabel> phonesWithLabels_;
  std::vector<std::string> emails_;
  std::vector<APAddress> addresses_;
  std::vector<APSocialProfile> socialProfiles_;
  std::optional<std::int32_t> recordID_;
  std::optional<Date> creationDate_;
  std::optional<Date> modificationDate_;
  Picture photo_;
  Picture thumbnail_;
};

}  // namespace zephyl
