// What counts as a new message, and what is told of it.

#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/messages/NewMessagesTest.h"

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class NewMessagesOfAnOldReleaseTest : public NewMessagesTest {
 protected:
  NewMessagesOfAnOldReleaseTest() : NewMessagesTest(kOldSchema) {}
};

TEST_F(NewMessagesTest, NothingIsNewAtFirst) {
  EXPECT_THAT(news(), IsEmpty());
  EXPECT_THAT(news(), IsEmpty());
}

TEST_F(NewMessagesTest, TellsOfEachMessageOnce) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'hello'");
  EXPECT_THAT(news(), ElementsAre(NewMessage{.rowID = 2,
                                             .chatGuid = "SMS;-;+15550100",
                                             .sender = "+15550100",
                                             .text = "hello",
                                             .date = 978307209.0}));
  EXPECT_THAT(news(), IsEmpty());
  receive("3, 'again'");
  receive("4, 'and again'");
  EXPECT_THAT(newRows(), ElementsAre(3, 4));
}

TEST_F(NewMessagesOfAnOldReleaseTest, AreFoundToo) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'hello'", ", is_finished", ", 1");
  EXPECT_THAT(newRows(), ElementsAre(2));
}

TEST_F(NewMessagesTest, TellsOnlyOfWhatCameInAndIsNotReadYet) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'mine'", ", is_from_me", ", 1");
  receive("3, 'read'", ", is_read", ", 1");
  receive("4, 'left the conversation'", ", item_type", ", 1");
  receive("5, 'of the system'", ", is_system_message", ", 1");
  receive("6, 'Loved'", ", associated_message_type", ", 2000");
  receive("7, 'no longer loved'", ", associated_message_type", ", 3000");
  receive("8, 'sticker'", ", associated_message_type", ", 1000");
  receive("9, 'nothing said'", ", is_read, item_type, is_from_me, associated_message_type",
          ", NULL, NULL, NULL, NULL");
  EXPECT_THAT(newRows(), ElementsAre(9));
}

TEST_F(NewMessagesTest, KeepsQuietAboutJunk) {
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("UPDATE chat SET is_filtered = 2");
  receive("2, 'buy now'");
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("UPDATE chat SET is_filtered = 1");
  receive("3, 'from somebody unknown'");
  EXPECT_THAT(newRows(), ElementsAre(3));
}

TEST_F(NewMessagesTest, WaitsUntilAMessageIsFinished) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'unfin'", ", is_finished", ", 0");
  receive("3, 'finished'");
  EXPECT_THAT(newRows(), ElementsAre(3));
  writer_.run("UPDATE message SET text = 'unfinished no more', is_finished = 1 WHERE ROWID = 2");
  const auto news = this->news();
  ASSERT_THAT(news, SizeIs(1));
  EXPECT_EQ(news[0].text, "unfinished no more");
  EXPECT_THAT(this->news(), IsEmpty());
}

TEST_F(NewMessagesTest, WaitsUntilAMessageIsInAConversation) {
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("INSERT INTO message(ROWID, text, handle_id) VALUES (2, 'where?', 1)");
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("INSERT INTO chat_message_join VALUES (1, 2, 0)");
  EXPECT_THAT(newRows(), ElementsAre(2));
}

TEST_F(NewMessagesTest, ForgetsAnUnfinishedMessageThatWasReadOrDeleted) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'read'", ", is_finished", ", 0");
  receive("3, 'deleted'", ", is_finished", ", 0");
  EXPECT_THAT(news(), IsEmpty());
  writer_.run(
      "DELETE FROM chat_message_join WHERE message_id = 3; DROP TRIGGER "
      "after_delete_on_message; DELETE FROM message WHERE ROWID = 3;"
      "UPDATE message SET is_finished = 1, is_read = 1 WHERE ROWID = 2");
  EXPECT_THAT(news(), IsEmpty());
}

TEST_F(NewMessagesTest, ReadsArchivedTextsAndTellsOfThoseThatCannotBeRead) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, NULL", ", attributedBody", ", " + blobLiteral(archivedText("archived")));
  receive("3, NULL", ", attributedBody", ", x'040b73'");
  receive("4, char(65532)");
  const auto news = this->news();
  ASSERT_THAT(news, SizeIs(3));
  EXPECT_EQ(news[0].text, "archived");
  EXPECT_EQ(news[1].text, std::nullopt);
  EXPECT_EQ(news[2].text, "");
}

TEST_F(NewMessagesTest, ConversationsAreCalledByTheirCanonicalGuid) {
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("UPDATE chat SET guid = 'any;-;+15550100', service_name = 'RCS'");
  receive("2, 'hello'");
  EXPECT_THAT(news(), ElementsAre(Field(&NewMessage::chatGuid, "SMS;-;+15550100")));
}

TEST_F(NewMessagesTest, AMessageWithoutSenderHasNone) {
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("DELETE FROM handle");
  receive("2, 'hello'");
  EXPECT_THAT(news(), ElementsAre(Field(&NewMessage::sender, "")));
}

TEST_F(NewMessagesTest, OfABurstNoTextsAreRead) {
  EXPECT_THAT(news(), IsEmpty());
  for (std::size_t i = 0; i < NewMessages::kMostTexts; ++i) {
    receive("NULL, 'text'");
  }
  EXPECT_EQ(news().at(0).text, "text");
  for (std::size_t i = 0; i <= NewMessages::kMostTexts; ++i) {
    receive("NULL, 'text'");
  }
  const auto burst = news();
  ASSERT_THAT(burst, SizeIs(NewMessages::kMostTexts + 1));
  EXPECT_EQ(burst[0].text, std::nullopt);
  EXPECT_EQ(burst[0].chatGuid, "SMS;-;+15550100");
}

TEST_F(NewMessagesTest, OfManyUnfinishedMessagesTheYoungestAreRemembered) {
  EXPECT_THAT(news(), IsEmpty());
  for (int row = 2; row < 103; ++row) {
    receive(std::to_string(row) + ", 'unfinished'", ", is_finished", ", 0");
  }
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("UPDATE message SET is_finished = 1");
  const auto rows = newRows();
  ASSERT_THAT(rows, SizeIs(100));
  EXPECT_EQ(rows.front(), 3);
}

}  // namespace
}  // namespace zephyl::linux_host
