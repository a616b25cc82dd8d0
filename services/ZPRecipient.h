// One participant of a conversation, chosen to be added to groups. Belongs to the thread that uses
// it.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Export.h"
#include "platform/chatkit/CKEntity.h"

namespace zephyl {

class ZP_EXPORT ZPRecipient {
 public:
  // Not selected.
  explicit ZPRecipient(const CKEntity& recipient);

  [[nodiscard]] const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }

  // The form in which members of groups are stored.
  [[nodiscard]] const std::string& plainPhoneNumber() const { return plainPhoneNumber_; }
  void setPlainPhoneNumber(std::string value) { plainPhoneNumber_ = std::move(value); }

  // As the system displays the address; empty when it has no answer. Kept: the name is misspelt;
  // companion code calls it so.
  [[nodiscard]] const std::string& forMatterPhoneNumber() const { return forMatterPhoneNumber_; }
  void setForMatterPhoneNumber(std::string value) { forMatterPhoneNumber_ = std::move(value); }

  // The record id of the person behind the address: -1 when the handle answers with none, 0 when it
  // answers with nobody.
  [[nodiscard]] std::int64_t contactId() const { return contactId_; }
  void setContactId(std::int64_t value) { contactId_ = value; }

  [[nodiscard]] bool isSelected() const { return selected_; }
  void setIsSelected(bool value) { selected_ = value; }

 private:
  std::string plainPhoneNumber_;
  std::string forMatterPhoneNumber_;
  std::string name_;
  std::int64_t contactId_ = -1;
  bool selected_ = false;
};

using ZPRecipientArray = std::vector<std::shared_ptr<ZPRecipient>>;

}  // namespace zephyl
