// The row's class from version 13 on. Main thread.

#pragma once

#include "platform/chatkit/ui/CKConversationListCell.h"

namespace zephyl {

class ZP_EXPORT CKConversationListStandardCell : public CKConversationListCell {
 public:
  using CKConversationListCell::CKConversationListCell;
  [[nodiscard]] const char* className() const override { return "CKConversationListStandardCell"; }
};

}  // namespace zephyl
