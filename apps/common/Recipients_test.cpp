// Recipients made from the participants of a Messages database, on a device with its address book.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Host.h"

#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/contacts/HandleMatcher.h"
#include "hosts/linux/contacts/PhoneFormatter.h"
#include "hosts/linux/messages/MessagesDatabase.h"
#include "hosts/linux/messages/TestDatabase.h"
#include "hosts/linux/sources/ConversationFacts.h"
#include "services/ZPRecipient.h"

namespace zephyl::app {
namespace {

using linux_host::HandleMatcher;
using linux_host::MessagesDatabase;
using linux_host::TestDatabase;

class RecipientsTest : public ::testing::Test {
 protected:
  RecipientsTest() {
    linux_host::DeviceOptions options;
    options.deviceRoot = folder_.file("device");
    options.phoneFormatting = std::make_unique<linux_host::PhoneFormatter>("US");
    device_ = std::make_unique<linux_host::LinuxDevice>(std::move(options));
    install(*device_);
  }
  ~RecipientsTest() override { uninstall(); }

  static HandleMatcher addressBook() {
    auto ann = std::make_shared<ABPerson>();
    ann->recordID = 12;
    ann->compositeName = "Ann Larkspur";
    ann->phones = {{"", "(555) 555-0101"}};
    return HandleMatcher({ann}, "US");
  }

  // Those of the only conversation of a database filled by this SQL.
  std::vector<ZPRecipient> recipients(std::string_view sql) {
    const std::string file = folder_.file("sms.db");
    { TestDatabase(file, linux_host::kMiddleSchema).run(sql); }
    auto reading = MessagesDatabase::read(file);
    EXPECT_TRUE(reading.ok());
    const HandleMatcher people = addressBook();
    const auto conversations =
        conversationsOf(reading.value().conversations, people, device_->phoneFormatting());
    EXPECT_EQ(conversations.size(), 1U);
    const auto participants = conversations.at(0)->recipients();
    return {participants.begin(), participants.end()};
  }

  linux_host::TemporaryFolder folder_;
  std::unique_ptr<linux_host::LinuxDevice> device_;
};

TEST_F(RecipientsTest, EachParticipantBecomesOneInTheOrderOfTheConversation) {
  const auto made = recipients(R"(
    INSERT INTO handle(ROWID, id, service) VALUES
      (1, '+15555550101', 'iMessage'), (2, 'ken.doh@example.com', 'iMessage'), (3, '22000', 'SMS');
    INSERT INTO chat(ROWID, guid, style, chat_identifier, service_name)
      VALUES (1, 'iMessage;+;chat1', 43, 'chat1', 'iMessage');
    INSERT INTO chat_handle_join(chat_id, handle_id) VALUES (1, 2), (1, 1), (1, 3);)");
  ASSERT_EQ(made.size(), 3U);

  EXPECT_EQ(made[0].name(), "ken.doh@example.com");
  EXPECT_EQ(made[0].plainPhoneNumber(), "ken.doh@example.com");
  EXPECT_EQ(made[0].forMatterPhoneNumber(), "ken.doh@example.com");
  EXPECT_EQ(made[0].contactId(), -1);

  EXPECT_EQ(made[1].name(), "Ann Larkspur");
  EXPECT_EQ(made[1].plainPhoneNumber(), "+15555550101");
  EXPECT_EQ(made[1].forMatterPhoneNumber(), "+1 (555) 555-0101");
  EXPECT_EQ(made[1].contactId(), 12);
  EXPECT_FALSE(made[1].isSelected());

  EXPECT_EQ(made[2].name(), "22000");
  EXPECT_EQ(made[2].plainPhoneNumber(), "22000");
  EXPECT_EQ(made[2].contactId(), -1);
}

}  // namespace
}  // namespace zephyl::app
