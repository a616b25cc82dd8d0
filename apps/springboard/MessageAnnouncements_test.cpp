// From a line in the database to a notice on the desktop: a real file, a real bus, and a
// notification service of the test's own.

#include "apps/springboard/MessageAnnouncements.h"

#include <QStringList>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/PropertyList.h"

#include "hosts/fake/Conversations.h"
#include "hosts/fake/Device.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/messages/TestDatabase.h"
#include "hosts/linux/notices/DesktopNotices.h"
#include "hosts/linux/notices/NotificationService_testing.h"
#include "hosts/linux/testing/PrivateBus.h"
#include "model/ZPSettings.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"

namespace zephyl::app {
namespace {

using namespace std::chrono_literals;
using linux_host::DesktopNotices;
using linux_host::kMiddleSchema;
using linux_host::TestDatabase;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class MessageAnnouncementsTest : public ::testing::Test {
 protected:
  MessageAnnouncementsTest() {
    device_.files().put(ZPUtils::settingsFilePath(),
                        writeXmlPropertyList(Dictionary{{settings_keys::kEnabled, true}}));
    readConversations();
  }

  void makeDatabase() {
    writer_.emplace(file_, kMiddleSchema);
    writer_->run(
        "PRAGMA journal_mode = WAL;"
        "INSERT INTO chat(ROWID, guid) VALUES (1, 'SMS;-;ann'), (2, 'SMS;-;bob');"
        "INSERT INTO message(ROWID, guid, text) VALUES (1, 'old', 'old');"
        "INSERT INTO chat_message_join VALUES (1, 1, 0);");
  }
  void receive(int chat, const std::string& text) {
    writer_->run("BEGIN; INSERT INTO message(text) VALUES ('" + text +
                 "'); INSERT INTO chat_message_join SELECT " + std::to_string(chat) +
                 ", max(ROWID), 0 FROM message; COMMIT;");
  }
  void readConversations() {
    CKConversationArray conversations;
    for (const char* name : {"ann", "bob"}) {
      CKConversation::Facts facts;
      facts.guid = std::string("SMS;-;") + name;
      facts.name = name;
      facts.handles = {fake::unknown(name)};
      conversations.push_back(std::make_shared<CKConversation>(std::move(facts)));
    }
    device_.conversationList().setConversations(std::move(conversations));
  }
  void mask(const std::string& guid) {
    const Dictionary group{{keys::kIdentifier, 1},
                           {keys::kEnabled, true},
                           {keys::kContacts, Array{guid}},
                           {keys::kHidesOnLockScreen, true},
                           {keys::kMaskedMessage, "masked"}};
    device_.files().put(kGroupsFilePath, writeXmlPropertyList(Value(Array{group})));
  }

  // Whether the service was asked for so many notices in all.
  bool areShown(std::size_t count) {
    return dispatch_.runMainUntil([&] { return service_.shown().size() >= count; }, 10s);
  }

  test::PrivateBus bus_;
  linux_host::LinuxDispatch dispatch_;
  fake::Device device_;
  linux_host::TemporaryFolder folder_;
  const std::string file_ = folder_.file("sms.db");
  std::optional<TestDatabase> writer_;
  linux_host::NotificationService service_{bus_.address(), QStringList{"body"}};
  DesktopNotices notices_{
      {.programName = "Messages", .desktopEntry = "", .busAddress = bus_.address(), .log = {}}};
  MessageAnnouncements announcements_{{.database = file_,
                                       .readConversations = [this] { readConversations(); },
                                       .show = [this](auto notice) { notices_.show(notice); },
                                       .delays = {.settling = 1ms, .polling = 1h}}};
};

TEST_F(MessageAnnouncementsTest, ANewMessageIsShownWithNameAndText) {
  makeDatabase();
  announcements_.start();
  receive(1, "hello");
  ASSERT_TRUE(areShown(1));
  EXPECT_THAT(service_.titles(), ElementsAre("ann"));
  EXPECT_THAT(service_.bodies(), ElementsAre("hello"));
}

TEST_F(MessageAnnouncementsTest, AMaskedOneIsShownWithTheTextOfItsGroup) {
  makeDatabase();
  announcements_.start();
  mask("SMS;-;ann");
  receive(1, "secret");
  ASSERT_TRUE(areShown(1));
  receive(2, "hello");
  ASSERT_TRUE(areShown(2));
  EXPECT_THAT(service_.titles(), ElementsAre("Messages", "bob"));
  EXPECT_THAT(service_.bodies(), ElementsAre("masked", "hello"));
}

TEST_F(MessageAnnouncementsTest, WhatCameWhileTheExtensionWasOffIsNotToldLater) {
  makeDatabase();
  announcements_.start();
  const std::string settings = ZPUtils::settingsFilePath();
  device_.files().put(settings, "");
  const int before = device_.files().readsOf(settings);
  receive(1, "while off");
  ASSERT_TRUE(
      dispatch_.runMainUntil([&] { return device_.files().readsOf(settings) > before; }, 10s));
  device_.files().put(settings, writeXmlPropertyList(Dictionary{{settings_keys::kEnabled, true}}));
  receive(1, "on again");
  ASSERT_TRUE(areShown(1));
  EXPECT_THAT(service_.bodies(), ElementsAre("on again"));
}

TEST_F(MessageAnnouncementsTest, ADatabaseMayComeLater) {
  announcements_.start();
  EXPECT_THAT(device_.systemLog().lines(), ElementsAre(HasSubstr("there is no such file")));
  makeDatabase();
  // The first ones may come before it was looked at.
  for (int i = 0; i < 1000 && service_.shown().empty(); ++i) {
    receive(1, "hello");
    dispatch_.runMainUntil([&] { return !service_.shown().empty(); }, 10ms);
  }
  EXPECT_THAT(service_.titles(), ElementsAre("ann"));
}

}  // namespace
}  // namespace zephyl::app
