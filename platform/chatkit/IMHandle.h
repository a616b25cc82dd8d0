// One participant of a conversation: an address and, where the device knows, the person behind it.
//
// What a handle answers differs between releases, so whether it answers is told apart from what.
// Immutable; any thread may read one.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace zephyl {

class IMHandle {
 public:
  // A handle that answers neither `person` nor `isContact`.
  explicit IMHandle(std::string displayID) : displayID_(std::move(displayID)) {}

  // A handle that answers `person`; record id 0 is that of nobody.
  [[nodiscard]] static IMHandle withPerson(std::string displayID, std::int32_t recordID) {
    IMHandle handle(std::move(displayID));
    handle.personRecordID_ = recordID;
    return handle;
  }

  // A handle that answers `isContact`.
  [[nodiscard]] static IMHandle withContact(std::string displayID, bool isContact,
                                            std::string contactIdentifier) {
    IMHandle handle(std::move(displayID));
    handle.isContact_ = isContact;
    handle.contactIdentifier_ = std::move(contactIdentifier);
    return handle;
  }

  // The raw address: a phone number, an e-mail address or a short code.
  [[nodiscard]] const std::string& displayID() const { return displayID_; }

  [[nodiscard]] bool respondsToPerson() const { return personRecordID_.has_value(); }
  // Meaningful when the handle answers `person`.
  [[nodiscard]] std::int32_t personRecordID() const { return personRecordID_.value_or(0); }

  [[nodiscard]] bool respondsToIsContact() const { return isContact_.has_value(); }
  [[nodiscard]] bool isContact() const { return isContact_.value_or(false); }
  [[nodiscard]] const std::string& cnContactIdentifier() const { return contactIdentifier_; }

 private:
  std::string displayID_;
  std::optional<std::int32_t> personRecordID_;
  std::optional<bool> isContact_;
  std::string contactIdentifier_;
};

}  // namespace zephyl
