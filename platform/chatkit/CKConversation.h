// One conversation of the Messages app. Two are the same only when they are the same object.
//
// Immutable; any thread may read one. A list that changed hands out new objects.

#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/chatkit/CKEntity.h"
#include "platform/chatkit/IMHandle.h"

namespace zephyl {

class CKConversation {
 public:
  struct Facts {
    std::string guid;     // the chat GUID in canonical form
    std::string rawGuid;  // as the database has it
    std::string name;     // for display
    bool isGroupConversation = false;
    bool hasUnreadMessages = false;
    std::vector<IMHandle> handles;         // participants in order, without the owner
    std::vector<std::string> handleNames;  // for display, one a handle
    std::optional<double> lastDate;        // seconds since 1970; nothing without messages
    std::optional<std::string> lastText;   // nothing without messages or when unreadable
  };

  explicit CKConversation(Facts facts) : facts_(std::move(facts)) {}
  CKConversation(const CKConversation&) = delete;
  CKConversation& operator=(const CKConversation&) = delete;

  [[nodiscard]] const std::string& guid() const { return facts_.guid; }
  // For display.
  [[nodiscard]] const std::string& name() const { return facts_.name; }
  [[nodiscard]] bool isGroupConversation() const { return facts_.isGroupConversation; }
  [[nodiscard]] bool hasUnreadMessages() const { return facts_.hasUnreadMessages; }
  [[nodiscard]] const std::vector<IMHandle>& handles() const { return facts_.handles; }

  // The participants with their names, in the order of their handles. One whose name is not known
  // bears its address.
  [[nodiscard]] std::vector<CKEntity> recipients() const {
    std::vector<CKEntity> entities;
    entities.reserve(facts_.handles.size());
    for (const IMHandle& handle : facts_.handles) {
      const std::size_t index = entities.size();
      const bool isNamed = index < facts_.handleNames.size() && !facts_.handleNames[index].empty();
      entities.emplace_back(handle, isNamed ? facts_.handleNames[index] : handle.displayID());
    }
    return entities;
  }

  // What the programs show of it.
  [[nodiscard]] const Facts& facts() const { return facts_; }

 private:
  const Facts facts_;
};

using CKConversationRef = std::shared_ptr<const CKConversation>;
using CKConversationArray = std::vector<CKConversationRef>;

}  // namespace zephyl
