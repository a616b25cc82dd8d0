// What the system shell shows on the desktop, from files that change while it runs.

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/PropertyList.h"

#include "apps/springboard/ShellTest.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/contacts/ContactSources.h"
#include "hosts/linux/messages/TestDatabase.h"
#include "hosts/linux/notices/NotificationService_testing.h"
#include "model/ZPSettings.h"

namespace zephyl::app::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string card(const std::string& name, const std::string& number) {
  return "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + name + "\r\nFN:" + name + "\r\nN:" + name +
         ";;;;\r\nTEL:" + number + "\r\nEND:VCARD\r\n";
}

class ShellNoticesTest : public ShellTest {
 protected:
  ShellNoticesTest() {
    folder_.put("/device/var/mobile/Library/Preferences/com.vantor.zephyls.plist",
                writeXmlPropertyList(Dictionary{{settings_keys::kEnabled, true}}));
    folder_.put("/contacts.vcf", card("Bob", "+15555550199"));
    database_.run(
        "INSERT INTO handle(ROWID, id, service) VALUES (1, '+15555550101', 'SMS');"
        "INSERT INTO handle(ROWID, id, service) VALUES (2, '+15555550199', 'SMS');"
        "INSERT INTO chat(ROWID, guid, style, chat_identifier, service_name) VALUES"
        " (1, 'SMS;-;+15555550101', 45, '+15555550101', 'SMS'),"
        " (2, 'SMS;+;team', 43, 'team', 'SMS');"
        "INSERT INTO chat_handle_join VALUES (1, 1), (2, 2);");
  }

  // As a program does that reads the contacts; the record id of that person.
  [[nodiscard]] std::int32_t recordIDOf(const std::string& name) {
    linux_host::RecordIDs ids(device_ + "/record-ids");
    const auto reading = linux_host::readContacts({contacts_}, ids);
    const auto found =
        std::find_if(reading.people.begin(), reading.people.end(),
                     [&](const ABPersonRef& person) { return person->guid == name; });
    return found == reading.people.end() ? 0 : (*found)->recordID;
  }
  void mask(std::int32_t recordID) {
    const Dictionary group{{keys::kIdentifier, 1},
                           {keys::kEnabled, true},
                           {keys::kContacts, Array{recordID}},
                           {keys::kHidesOnLockScreen, true},
                           {keys::kMaskedMessage, "masked"}};
    folder_.put(std::string("/device") + kGroupsFilePath,
                writeXmlPropertyList(Value(Array{group})));
  }
  void receive(int chat, const std::string& text) {
    database_.run("BEGIN; INSERT INTO message(guid, text, handle_id, is_finished) VALUES ('" +
                  text + "', '" + text + "', 1, 1); INSERT INTO chat_message_join SELECT " +
                  std::to_string(chat) + ", max(ROWID), 0 FROM message; COMMIT;");
  }
  [[nodiscard]] std::string bodyOfNotice(std::size_t number) {
    dispatch_.runMainUntil([&] { return notices_.shown().size() >= number; }, kLong);
    return notices_.shown().size() < number ? "no notice: " + shellLog()
                                            : notices_.bodies().at(number - 1);
  }

  linux_host::LinuxDispatch dispatch_;
  linux_host::NotificationService notices_{bus_.address(), {"body"}};
  const std::string contacts_ = folder_.path() + "/contacts.vcf";
  const std::string file_ = folder_.path() + "/sms.db";
  linux_host::TestDatabase database_{file_, linux_host::kMiddleSchema};
};

TEST_F(ShellNoticesTest, AContactWhoIsAddedLaterMasks) {
  const auto shell = start({"--messages", file_, "--contacts", contacts_});
  receive(1, "before");
  EXPECT_EQ(bodyOfNotice(1), "before");
  folder_.put("/contacts.vcf", card("Bob", "+15555550199") + card("Ann", "+15555550101"));
  mask(recordIDOf("Ann"));
  receive(1, "secret");
  EXPECT_EQ(bodyOfNotice(2), "masked");
}

TEST_F(ShellNoticesTest, AMaskedPersonWhoJoinsAKnownConversationMasksIt) {
  folder_.put("/contacts.vcf", card("Ann", "+15555550101"));
  mask(recordIDOf("Ann"));
  const auto shell = start({"--messages", file_, "--contacts", contacts_});
  receive(2, "before");
  EXPECT_THAT(bodyOfNotice(1), HasSubstr("before"));
  database_.run("INSERT INTO chat_handle_join VALUES (2, 1);");
  receive(2, "secret");
  EXPECT_EQ(bodyOfNotice(2), "masked");
}

TEST_F(ShellNoticesTest, WhileTheContactsCannotBeReadNothingIsGivenAway) {
  const auto shell = start({"--messages", file_, "--contacts", contacts_});
  receive(1, "before");
  EXPECT_EQ(bodyOfNotice(1), "before");
  std::filesystem::remove(contacts_);
  receive(1, "secret");
  EXPECT_EQ(bodyOfNotice(2), "New message");
  folder_.put("/contacts.vcf", card("Bob", "+15555550199"));
  receive(1, "after");
  EXPECT_EQ(bodyOfNotice(3), "after");
}

TEST_F(ShellNoticesTest, AFileOfGroupsThatIsPutBackIsToldOnce) {
  const Array groups{Dictionary{{"identifier", 7}, {"title", "Work"}, {"enabled", true}}};
  {
    const auto shell = start();
    ASSERT_EQ(ask(kSaveGroupsMessage, Value(groups)), saying(true));
  }
  folder_.put(std::string("/device") + kGroupsFilePath, "<plist><arr");
  const auto shell = start();
  EXPECT_EQ(ask(kGetGroupsMessage), saying(groups));
  EXPECT_THAT(bodyOfNotice(1), HasSubstr("put back"));
  EXPECT_EQ(ask(kGetGroupsMessage), saying(groups));
  EXPECT_THAT(notices_.titles(), ElementsAre("Groups of conversations"));
}

}  // namespace
}  // namespace zephyl::app::test
