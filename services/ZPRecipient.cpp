#include "services/ZPRecipient.h"

#include "services/ZPUtils.h"

namespace zephyl {

ZPRecipient::ZPRecipient(const CKEntity& recipient)
    : plainPhoneNumber_(ZPUtils::plainPhoneNumber(recipient.handle().displayID())),
      forMatterPhoneNumber_(
          ZPUtils::formattedPhoneNumber(recipient.handle().displayID()).value_or("")),
      name_(recipient.fullName()),
      contactId_(recipient.handle().respondsToPerson() ? recipient.handle().personRecordID() : -1) {
}

}  // namespace zephyl
