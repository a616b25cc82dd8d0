#include <memory>
#include <string>

#include <gmock/gmock.h>

#include "platform/chatkit/CKConversationList.h"

#include "hosts/common/FilteredConversationList.h"
#include "hosts/contract/DeviceUnderTest.h"
#include "hosts/fake/Conversations.h"

namespace zephyl::contract {
namespace {

using ::testing::ElementsAre;

// A group to the list is no more than what it is told of.
class ConversationsContract : public ContractTest {
 protected:
  ConversationsContract() {
    FilteredConversationList& list = device().conversations();
    list.setConversations({work_, family_});
    list.setShows([this](const std::shared_ptr<Zephyl>& group, const CKConversationRef& one) {
      return group == group_ && one == family_;
    });
  }
  CKConversationList& list() { return host().conversationList(); }

  const CKConversationRef work_ = fake::chat("iMessage;-;work", {fake::known(1)});
  const CKConversationRef family_ = fake::chat("iMessage;-;family", {fake::known(2)});
  // Never followed.
  const std::shared_ptr<int> place_ = std::make_shared<int>();
  const std::shared_ptr<Zephyl> group_ =
      std::static_pointer_cast<Zephyl>(std::shared_ptr<void>(place_));
};
ZEPHYLS_CONTRACT(ConversationsContract);

TEST_P(ConversationsContract, AConversationIsFoundByItsWholeGuid) {
  EXPECT_EQ(list().conversationForExistingChatWithGUID("iMessage;-;family"), family_);
  EXPECT_EQ(list().conversationForExistingChatWithGUID("iMessage;-;work"), work_);
  for (const char* other : {"", "iMessage;-;fam", "imessage;-;family", "iMessage;-;family "}) {
    EXPECT_EQ(list().conversationForExistingChatWithGUID(other), nullptr) << other;
  }
}

TEST_P(ConversationsContract, AllAreListedWhileTheUserIsInNoGroup) {
  EXPECT_THAT(list().listedConversations(), ElementsAre(work_, family_));
  device().conversations().setActiveGroup([] { return nullptr; });
  EXPECT_THAT(list().listedConversations(), ElementsAre(work_, family_));
}

TEST_P(ConversationsContract, ThoseOfTheGroupAreListedUnlessAllAreShown) {
  device().conversations().setActiveGroup([this] { return group_; });
  EXPECT_THAT(list().listedConversations(), ElementsAre(family_));
  list().shouldShowAllConversations(true);
  EXPECT_THAT(list().listedConversations(), ElementsAre(work_, family_));
  EXPECT_THAT(list().conversations(), ElementsAre(work_, family_));
  list().shouldShowAllConversations(false);
  EXPECT_THAT(list().listedConversations(), ElementsAre(family_));
  EXPECT_THAT(list().conversations(), ElementsAre(work_, family_));
}

TEST_P(ConversationsContract, AnyThreadMayAskWhileOthersComeIn) {
  onThreads(4, [this](int number) {
    for (int i = 0; i < 50; ++i) {
      if (number == 0) {
        device().conversations().setConversations({family_});
        list().shouldShowAllConversations(i % 2 == 0);
      }
      EXPECT_EQ(list().conversationForExistingChatWithGUID("iMessage;-;family"), family_);
      EXPECT_FALSE(list().listedConversations().empty());
    }
  });
}

}  // namespace
}  // namespace zephyl::contract
