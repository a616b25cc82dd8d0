#include "hosts/linux/messages/ScratchCopy.h"

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/messages/TestDatabase.h"

namespace zephyl::linux_host {
namespace {

using ::testing::HasSubstr;

class ScratchCopyTest : public ::testing::Test {
 protected:
  ScratchCopyTest() {
    TestDatabase(file_).run("CREATE TABLE t (a)");
    writeFile(file_ + "-wal", "log");
  }

  [[nodiscard]] bool leavesNothing() const { return std::filesystem::is_empty(scratch_.path()); }

  TemporaryFolder scratch_;
  TemporaryFolder folder_;
  TemporaryFilesIn temporaryFiles_{scratch_.path()};
  std::string file_ = folder_.file("a.db");
};

TEST_F(ScratchCopyTest, HoldsTheFilesWhereNobodyElseMayLookAndRemovesThem) {
  {
    const auto copy = ScratchCopy::of(file_);
    ASSERT_TRUE(copy.ok());
    const std::filesystem::path database = copy.value().database();
    EXPECT_EQ(readFile(database), readFile(file_));
    EXPECT_EQ(readFile(database.string() + "-wal"), "log");
    EXPECT_EQ(std::filesystem::status(database.parent_path()).permissions(),
              std::filesystem::perms::owner_all);
    EXPECT_EQ(std::filesystem::status(database).permissions() & std::filesystem::perms::others_all,
              std::filesystem::perms::none);
  }
  EXPECT_TRUE(leavesNothing());
}

TEST_F(ScratchCopyTest, IsRemovedOnceHoweverItIsMoved) {
  auto first = ScratchCopy::of(file_);
  auto second = ScratchCopy::of(file_);
  const std::filesystem::path kept = first.value().database();
  second.value() = std::move(first).value();
  EXPECT_TRUE(std::filesystem::exists(kept));
  const auto third = std::optional(std::move(second).value());
  EXPECT_EQ(third->database(), kept);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(scratch_.path()), {}), 1);
}

TEST_F(ScratchCopyTest, CopiesAgainWhenASourceChangesMeanwhile) {
  int attempts = 0;
  const auto copy = ScratchCopy::of(file_, [&](int attempt) {
    attempts = attempt + 1;
    if (attempt == 0) {
      writeFile(file_ + "-wal", "a longer log");
    } else if (attempt == 1) {
      std::filesystem::remove(file_ + "-wal");
    }
  });
  ASSERT_TRUE(copy.ok());
  EXPECT_EQ(attempts, 3);
  EXPECT_FALSE(std::filesystem::exists(copy.value().database().string() + "-wal"));
}

TEST_F(ScratchCopyTest, GivesUpOnASourceThatNeverRests) {
  std::string log;
  const auto copy = ScratchCopy::of(file_, [&](int) { writeFile(file_ + "-wal", log += "x"); });
  ASSERT_FALSE(copy.ok());
  EXPECT_EQ(log.size(), static_cast<std::size_t>(ScratchCopy::kAttempts));
  EXPECT_EQ(copy.error().file, file_);
  EXPECT_THAT(copy.error().reason, HasSubstr("keeps changing the file; close that program"));
  EXPECT_TRUE(leavesNothing());
}

// The journal of a transaction over several databases ends with the name of a file, which SQLite
// deletes when the journal is played back.
TEST_F(ScratchCopyTest, ForgetsTheJournalThatSeveralDatabasesShare) {
  const std::string magic = "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7";
  writeFile(file_ + "-journal", magic + "pages and a name" + magic);
  const auto copy = ScratchCopy::of(file_);
  ASSERT_TRUE(copy.ok());
  EXPECT_EQ(readFile(copy.value().database().string() + "-journal"), magic + "pages and a name");
}

TEST_F(ScratchCopyTest, LeavesAJournalThatIsFinishedWith) {
  writeFile(file_ + "-journal", std::string(512, '\0'));
  const auto copy = ScratchCopy::of(file_);
  ASSERT_TRUE(copy.ok());
  EXPECT_FALSE(std::filesystem::exists(copy.value().database().string() + "-journal"));
}

TEST_F(ScratchCopyTest, LeavesNothingWhenASourceCannotBeCopied) {
  const auto copy = ScratchCopy::of(folder_.file("missing.db"));
  ASSERT_FALSE(copy.ok());
  EXPECT_THAT(copy.error().reason, HasSubstr("missing.db cannot be read"));
  EXPECT_TRUE(leavesNothing());
}

}  // namespace
}  // namespace zephyl::linux_host
