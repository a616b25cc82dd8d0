// Conversations that a test puts there, and a count of who asked.

#pragma once

#include <atomic>
#include <memory>

#include "hosts/common/FilteredConversationList.h"

namespace zephyl::fake {

class FakeConversationList : public FilteredConversationList {
 public:
  CKConversationArray filteredConversationsByZephyl(
      const std::shared_ptr<Zephyl>& zephyl) override {
    ++asked_;
    return FilteredConversationList::filteredConversationsByZephyl(zephyl);
  }

  // How often a group's conversations were asked for.
  [[nodiscard]] int asked() const { return asked_; }

 private:
  std::atomic<int> asked_ = 0;
};

}  // namespace zephyl::fake
