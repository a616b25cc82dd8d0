#include "apps/zephyls/render/SampleGroup.h"

#include <memory>

#include "platform/chatkit/CKConversation.h"

namespace zephyl::app::render {

ZephylRef SampleGroup::make() const {
  auto group = std::make_shared<Zephyl>(dictionary_);
  CKConversationArray conversations;
  for (int number = 0; number < unread_; ++number) {
    CKConversation::Facts facts;
    facts.guid = "SMS;-;" + std::to_string(number);
    facts.hasUnreadMessages = true;
    facts.handles = {IMHandle("+1555" + std::to_string(number))};
    conversations.push_back(std::make_shared<CKConversation>(std::move(facts)));
  }
  group->setConversations(std::make_shared<const ConversationSet>(std::move(conversations)));
  group->setHeaderImage(picture_);
  return group;
}

}  // namespace zephyl::app::render
