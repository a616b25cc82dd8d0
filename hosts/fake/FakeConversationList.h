// Conversations that a test puts there. What a group shows is decided by a function that the test
// (or the program) gives, since a host knows no rules.

#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <utility>

#include "platform/chatkit/CKConversationList.h"

namespace zephyl::fake {

class FakeConversationList : public CKConversationList {
 public:
  using Shows = std::function<bool(const std::shared_ptr<Zephyl>&, const CKConversationRef&)>;

  CKConversationArray conversations() override {
    const std::lock_guard lock(mutex_);
    return conversations_;
  }

  CKConversationArray filteredConversationsByZephyl(
      const std::shared_ptr<Zephyl>& zephyl) override {
    CKConversationArray all;
    Shows shows;
    {
      const std::lock_guard lock(mutex_);
      ++asked_;
      all = conversations_;
      shows = shows_;
    }
    CKConversationArray shown;
    for (const auto& conversation : all) {
      if (!shows || shows(zephyl, conversation)) {
        shown.push_back(conversation);
      }
    }
    return shown;
  }

  void setConversations(CKConversationArray conversations) {
    const std::lock_guard lock(mutex_);
    conversations_ = std::move(conversations);
  }

  // Without one every group shows everything.
  void setShows(Shows shows) {
    const std::lock_guard lock(mutex_);
    shows_ = std::move(shows);
  }

  // How often a group's conversations were asked for.
  [[nodiscard]] int asked() {
    const std::lock_guard lock(mutex_);
    return asked_;
  }

 private:
  std::mutex mutex_;
  CKConversationArray conversations_;
  Shows shows_;
  int asked_ = 0;
};

}  // namespace zephyl::fake
