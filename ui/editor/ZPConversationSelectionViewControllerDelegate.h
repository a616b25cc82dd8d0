// Receives the conversations that were picked. Main thread.

#pragma once

#include <set>
#include <string>

#include "platform/Export.h"

namespace zephyl {

class ZPConversationSelectionViewController;

class ZP_EXPORT ZPConversationSelectionViewControllerDelegate {
 public:
  virtual ~ZPConversationSelectionViewControllerDelegate() = default;

  // Chat GUIDs. By default they are not wanted.
  virtual void didReturnWithSelectedConversation(
      ZPConversationSelectionViewController& /*picker*/,
      const std::set<std::string>& /*selectedConversations*/) {}
};

}  // namespace zephyl
