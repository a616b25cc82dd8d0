// A participant of a conversation as the Messages app shows it: the handle and a name.
//
// Immutable; any thread may read one.

#pragma once

#include <string>
#include <utility>

#include "platform/chatkit/IMHandle.h"

namespace zephyl {

class CKEntity {
 public:
  CKEntity(IMHandle handle, std::string fullName)
      : handle_(std::move(handle)), fullName_(std::move(fullName)) {}

  [[nodiscard]] const IMHandle& handle() const { return handle_; }

  // For display: the name of the person, else the address.
  [[nodiscard]] const std::string& fullName() const { return fullName_; }

 private:
  IMHandle handle_;
  std::string fullName_;
};

}  // namespace zephyl
