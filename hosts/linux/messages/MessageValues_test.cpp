// The pure rules: guids, times, texts, remarks.

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/messages/ChatGuid.h"
#include "hosts/linux/messages/MessageText.h"
#include "hosts/linux/messages/MessageTime.h"
#include "hosts/linux/messages/ReadingNotes.h"
#include "hosts/linux/messages/TestDatabase.h"
#include "hosts/linux/messages/Utf8Text.h"

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;

std::span<const std::byte> bytesOf(const std::string& text) {
  return std::as_bytes(std::span(text));
}

TEST(ChatGuidTest, ReplacesOnlyTheServicesThatMembershipDoesNotKnow) {
  const struct {
    std::string_view guid, service, canonical;
  } cases[] = {
      {"any;-;+15550100", "iMessage", "iMessage;-;+15550100"},
      {"any;+;chat1", "SMS", "SMS;+;chat1"},
      {"any;+;chat1", "RCS", "SMS;+;chat1"},
      {"any;-;x", "", "any;-;x"},
      {"RCS;-;+15550100", "RCS", "SMS;-;+15550100"},
      {"RCS;-;x", "iMessage", "SMS;-;x"},
      {"iMessage;-;any;x", "SMS", "iMessage;-;any;x"},
      {"SMS;-;22000", "RCS", "SMS;-;22000"},
      {"Anything;-;x", "SMS", "Anything;-;x"},
      {"any", "SMS", "any"},
      {"RCS", "SMS", "RCS"},
      {"", "SMS", ""},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(canonicalChatGuid(test.guid, test.service), test.canonical) << test.guid;
  }
}

TEST(MessageTimeTest, TellsTheUnitOfEachValueByItsSize) {
  const struct {
    std::int64_t value, seconds;
    std::int32_t nanoseconds;
  } cases[] = {
      {1, 1, 0},
      {-1, -1, 0},
      {599'597'752, 599'597'752, 0},
      {999'999'999'999, 999'999'999'999, 0},
      {1'000'000'000'000, 1'000, 0},
      {599'079'037'641'931'008, 599'079'037, 641'931'008},
      {-999'999'999'999, -999'999'999'999, 0},
      {-1'000'000'000'001, -1'001, 999'999'999},
      {std::numeric_limits<std::int64_t>::max(), 9'223'372'036, 854'775'807},
      {std::numeric_limits<std::int64_t>::min(), -9'223'372'037, 145'224'192},
  };
  for (const auto& test : cases) {
    const MessageTime expected{.seconds = test.seconds, .nanoseconds = test.nanoseconds};
    EXPECT_EQ(MessageTime::fromDatabase(test.value), expected) << test.value;
  }
  EXPECT_EQ(MessageTime::fromDatabase(0), std::nullopt);
}

TEST(MessageTimeTest, KeepsNanosecondsApartThatADoubleDoesNot) {
  EXPECT_LT(MessageTime::fromDatabase(599'079'037'641'931'008),
            MessageTime::fromDatabase(599'079'037'641'931'009));
  EXPECT_EQ(MessageTime::fromDatabase(599'079'037'500'000'000)->secondsSince1970(), 1577386237.5);
}

TEST(MessageTextTest, StripsTheMarksOfAttachments) {
  EXPECT_EQ(messageText("\uFFFCa\uFFFC\uFFFCb\uFFFC", {}).text, "ab");
  EXPECT_EQ(messageText("\uFFFC", {}).text, "");
  EXPECT_EQ(messageText("", {}).text, "");
}

TEST(MessageTextTest, LooksIntoTheArchiveWhenThePlainColumnSaysNothing) {
  const std::string archive = archivedText("\uFFFCin the archive");
  EXPECT_EQ(messageText("plain", bytesOf(archive)).text, "plain");
  EXPECT_EQ(messageText("", bytesOf(archive)).text, "in the archive");
  EXPECT_EQ(messageText("\uFFFC", bytesOf(archive)).text, "in the archive");
}

TEST(MessageTextTest, TakesAnUnknownArchiveForNoEmptyText) {
  const std::string broken = "bplist00";
  EXPECT_EQ(messageText("", bytesOf(broken)).text, std::nullopt);
  EXPECT_EQ(messageText("\uFFFC", bytesOf(broken)).text, "");
}

TEST(MessageTextTest, SaysThatItRepaired) {
  const std::string archive = archivedText("a\xFF");
  EXPECT_EQ(messageText("", bytesOf(archive)).text, "a\uFFFD");
  EXPECT_TRUE(messageText("", bytesOf(archive)).isRepaired);
  EXPECT_TRUE(messageText("\xFF", {}).isRepaired);
  EXPECT_FALSE(messageText("\uFFFC\uFFFD", {}).isRepaired);
}

TEST(Utf8TextTest, ReplacesEachBrokenPartOnce) {
  const struct {
    std::string_view bytes, text;
  } cases[] = {
      {"aé€😀\x7F", "aé€😀\x7F"},
      {{"a\0b", 3}, {"a\0b", 3}},
      {"\x80z", "\uFFFDz"},
      {"\xC0\xAF", "\uFFFD\uFFFD"},
      {"\xE2\x82", "\uFFFD"},
      {"\xE2\x82z", "\uFFFDz"},
      {"\xE0\x9F\xBF", "\uFFFD\uFFFD\uFFFD"},
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
      {"\xF0\x9F\x98", "\uFFFD"},
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xF5", "\uFFFD"},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(wellFormedUtf8(test.bytes), test.text);
    EXPECT_EQ(isWellFormedUtf8(test.bytes), test.bytes == test.text);
  }
}

TEST(ReadingNotesTest, CountsWhatItNoLongerTells) {
  ReadingNotes notes;
  for (std::int64_t row = 1; row <= 12; ++row) {
    notes.add("message", row, "is odd");
  }
  notes.add("chat", 5, "is odd");
  const auto lines = notes.lines();
  ASSERT_EQ(lines.size(), ReadingNotes::kMostOfAKind + 2);
  EXPECT_EQ(lines[0], "message row 1: is odd");
  EXPECT_EQ(lines[9], "message row 10: is odd");
  EXPECT_EQ(lines[10], "message: is odd, in 2 more rows");
  EXPECT_EQ(lines[11], "chat row 5: is odd");
}

}  // namespace
}  // namespace zephyl::linux_host
