#include "hosts/linux/safety/WriteJournal.h"

#include <string>

#include <gtest/gtest.h>

namespace zephyl::linux_host {
namespace {

TEST(WriteJournalTest, ComesBackAsItWasWritten) {
  const std::string after("new\ncontent\0with anything", 25);
  const auto journal =
      readJournal(textOf(WriteJournal{ContentMark::of("old"), "20200913-122640-250", after}));
  ASSERT_TRUE(journal);
  EXPECT_EQ(journal->before, ContentMark::of("old"));
  EXPECT_EQ(journal->copy, "20200913-122640-250");
  EXPECT_EQ(journal->after, after);
}

TEST(WriteJournalTest, TellsAMissingFileFromAnEmptyOne) {
  EXPECT_EQ(readJournal(textOf(WriteJournal{std::nullopt, "", "new"}))->before, std::nullopt);
  EXPECT_EQ(readJournal(textOf(WriteJournal{ContentMark::of(""), "", ""}))->before,
            ContentMark::of(""));
}

TEST(WriteJournalTest, NothingButTheWholeOfItIsRead) {
  const std::string text = textOf(WriteJournal{ContentMark::of("old"), "name", "new content"});
  for (std::size_t size = 0; size < text.size(); ++size) {
    EXPECT_FALSE(readJournal(text.substr(0, size))) << size;
  }
  EXPECT_FALSE(readJournal(text + "x"));
  EXPECT_FALSE(readJournal("x" + text));
}

TEST(WriteJournalTest, AChangedContentIsNotRead) {
  std::string text = textOf(WriteJournal{ContentMark::of("old"), "name", "new content"});
  text.back() = 'T';
  EXPECT_FALSE(readJournal(text));
}

}  // namespace
}  // namespace zephyl::linux_host
