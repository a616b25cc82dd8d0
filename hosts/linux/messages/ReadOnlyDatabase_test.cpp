// Files in every state that they are found in: read, or refused with a sentence, and never touched.

#include "hosts/linux/messages/ReadOnlyDatabase.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/linux/messages/TestDatabase.h"

namespace zephyl::linux_host {
namespace {

using ::testing::HasSubstr;

constexpr std::string_view kRows = "CREATE TABLE t (a TEXT); INSERT INTO t VALUES ('one');";

class ReadOnlyDatabaseTest : public ::testing::Test {
 protected:
  // The last value in the table, or the reason why there is none. The folder must be as it was, and
  // nothing may be left among the temporary files.
  std::string lastValue(const std::string& file) {
    const TemporaryFolder scratch;
    const TemporaryFilesIn temporaryFiles(scratch.path());
    const auto before = folder_.contents();
    std::string value = read(file);
    EXPECT_TRUE(folder_.contents() == before) << file;
    EXPECT_TRUE(std::filesystem::is_empty(scratch.path())) << file;
    return value;
  }

  // A database in `name` that is read while `state` is the last thing that its writer has done.
  std::string lastValueAfter(const std::string& name, std::string_view state) {
    TestDatabase writer(folder_.file(name), kRows);
    writer.run(state);
    return lastValue(folder_.file(name));
  }

  TemporaryFolder folder_;

 private:
  static std::string read(const std::string& file) {
    auto database = ReadOnlyDatabase::open(file);
    if (!database.ok()) {
      EXPECT_EQ(database.error().file, file);
      return database.error().reason;
    }
    auto statement = database.value().prepare("SELECT a FROM t ORDER BY rowid DESC");
    const bool hasRow = statement.next();
    if (database.value().error()) {
      return database.value().error()->reason;
    }
    return hasRow ? statement.text(0).value_or("null") : "no rows";
  }
};

TEST_F(ReadOnlyDatabaseTest, ReadsADatabaseThatIsAtRest) {
  EXPECT_EQ(lastValueAfter("a.db", ""), "one");
}

TEST_F(ReadOnlyDatabaseTest, ReadsPathsThatMeanSomethingInAnAddress) {
  for (const std::string name :
       {"a b.db", "what?.db", "100%41.db", "#1.db", "a&b=c;d.db", "é\n.db"}) {
    EXPECT_EQ(lastValueAfter(name, ""), "one") << name;
  }
}

TEST_F(ReadOnlyDatabaseTest, ReadsWhatIsOnlyInTheLog) {
  EXPECT_EQ(lastValueAfter("a.db", "PRAGMA journal_mode = WAL; INSERT INTO t VALUES ('two')"),
            "two");
}

TEST_F(ReadOnlyDatabaseTest, ReadsADatabaseWhoseEveryPageIsInTheLog) {
  const std::string file = folder_.file("a.db");
  TestDatabase writer(file, "PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0;");
  writer.run(kRows);
  EXPECT_LE(std::filesystem::file_size(file), 4096U);
  EXPECT_EQ(lastValue(file), "one");
}

TEST_F(ReadOnlyDatabaseTest, ReadsALogBesideAnEmptyFile) {
  const std::string file = folder_.file("a.db");
  TestDatabase writer(file, "PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0;");
  writer.run(kRows);
  writeFile(folder_.file("b.db"), "");
  writeFile(folder_.file("b.db-wal"), readFile(file + "-wal"));
  EXPECT_EQ(lastValue(folder_.file("b.db")), "one");
}

TEST_F(ReadOnlyDatabaseTest, ReadsADatabaseInLogModeWithoutItsLog) {
  const std::string file = folder_.file("a.db");
  {
    TestDatabase writer(file, kRows);
    writer.run(
        "PRAGMA journal_mode = WAL; INSERT INTO t VALUES ('two');"
        "PRAGMA wal_checkpoint(TRUNCATE)");
  }
  std::filesystem::remove(file + "-wal");
  std::filesystem::remove(file + "-shm");
  EXPECT_EQ(lastValue(file), "two");
  EXPECT_TRUE(ReadOnlyDatabase::open(file).value().missesLog());
}

TEST_F(ReadOnlyDatabaseTest, RollsAnUnfinishedTransactionBackInACopy) {
  const std::string file = folder_.file("a.db");
  TestDatabase writer(file, kRows);
  // With a small cache the writer spills the changed page into the file before the end.
  writer.run(R"(CREATE TABLE u (b); PRAGMA cache_size = 10; BEGIN; UPDATE t SET a = 'two';
    INSERT INTO u WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n WHERE x < 500)
      SELECT zeroblob(1000) FROM n)");
  ASSERT_THAT(readFile(file), HasSubstr("two"));
  EXPECT_EQ(lastValue(file), "one");
}

TEST_F(ReadOnlyDatabaseTest, ReadsADatabaseThatAnotherProgramHasLocked) {
  EXPECT_EQ(lastValueAfter("a.db", "BEGIN EXCLUSIVE"), "one");
}

TEST_F(ReadOnlyDatabaseTest, FollowsSymbolicLinksToTheSideFilesAsWell) {
  const std::string file = folder_.file("a.db");
  const TestDatabase writer(
      file, std::string(kRows) + "PRAGMA journal_mode = WAL; INSERT INTO t VALUES ('two')");
  const TemporaryFolder elsewhere;
  std::filesystem::create_symlink(file, elsewhere.path() / "link.db");
  EXPECT_EQ(lastValue(elsewhere.file("link.db")), "two");
}

TEST_F(ReadOnlyDatabaseTest, SaysWhyAFileCannotBeRead) {
  const std::string whole = [this] {
    TestDatabase(folder_.file("whole.db")).run(kRows);
    return readFile(folder_.file("whole.db"));
  }();
  const struct {
    std::string name, bytes, reason;
  } cases[] = {
      {"empty.db", "", "the file is empty; copy it again"},
      {"text.db", "Dear diary, this is not a database at all",
       "is not a SQLite database or is encrypted"},
      {"short.db", "Dear", "is not a SQLite database or is encrypted"},
      {"beginning.db", whole.substr(0, 10), "cut off: 10 of 512 bytes are there"},
      {"header.db", whole.substr(0, 100), "cut off: 100 of 8192 bytes are there"},
      {"cut.db", whole.substr(0, whole.size() - 1), "cut off: 8191 of 8192 bytes are there"},
      {"page.db", whole.substr(0, 16) + '\3' + whole.substr(17), "not a SQLite database"},
      {"rest.db", whole.substr(0, 100) + std::string(whole.size() - 100, '\xA5'),
       "the file is damaged or cut off (database disk image is malformed); copy it again"},
  };
  for (const auto& test : cases) {
    writeFile(folder_.file(test.name), test.bytes);
    EXPECT_THAT(lastValue(folder_.file(test.name)), HasSubstr(test.reason)) << test.name;
  }
}

TEST_F(ReadOnlyDatabaseTest, SaysWhyThereIsNoFileToRead) {
  ASSERT_EQ(::mkfifo(folder_.file("pipe.db").c_str(), 0600), 0);
  std::filesystem::create_symlink("circle.db", folder_.path() / "circle.db");
  EXPECT_THAT(lastValue(folder_.file("missing.db")), HasSubstr("no such file; check the path"));
  EXPECT_THAT(lastValue(folder_.path()),
              HasSubstr("this is a folder; name the database file in it"));
  EXPECT_THAT(lastValue(folder_.file("pipe.db")), HasSubstr("not a regular file"));
  EXPECT_THAT(lastValue(folder_.file("circle.db")), HasSubstr("cannot be reached"));
  EXPECT_THAT(lastValue(""), HasSubstr("no such file"));
}

// A user who may read everything takes on the rights of one who may not.
TEST_F(ReadOnlyDatabaseTest, SaysThatAFileIsNotReadableForThisUser) {
  constexpr uid_t kNobody = 65534;
  const std::string file = folder_.file("a.db");
  TestDatabase(file).run(kRows);
  ASSERT_EQ(::chmod(folder_.path().c_str(), 0755), 0);
  ASSERT_EQ(::chmod(file.c_str(), 0), 0);
  const uid_t user = ::geteuid();
  if (user == 0) {
    ASSERT_EQ(::seteuid(kNobody), 0);
  }
  const auto result = ReadOnlyDatabase::open(file);
  if (user == 0) {
    ASSERT_EQ(::seteuid(user), 0);
  }
  ASSERT_FALSE(result.ok());
  EXPECT_THAT(result.error().reason, HasSubstr("make it readable for this user"));
}

TEST_F(ReadOnlyDatabaseTest, SaysThatNoPrivateCopyCanBeMade) {
  const std::string file = folder_.file("a.db");
  const TestDatabase writer(
      file, std::string(kRows) + "PRAGMA journal_mode = WAL; INSERT INTO t VALUES ('two')");
  const TemporaryFilesIn temporaryFiles(folder_.file("nowhere"));
  const auto result = ReadOnlyDatabase::open(file);
  ASSERT_FALSE(result.ok());
  EXPECT_EQ(result.error().file, file);
  EXPECT_THAT(result.error().reason, HasSubstr("no private copy can be made"));
}

TEST_F(ReadOnlyDatabaseTest, NoticesAChangeUnderAReadingInPlace) {
  const std::string file = folder_.file("a.db");
  TestDatabase writer(file, kRows);
  auto database = ReadOnlyDatabase::open(file);
  EXPECT_FALSE(database.value().sourceChanged());
  writer.run("PRAGMA journal_mode = WAL; INSERT INTO t VALUES ('two')");
  EXPECT_TRUE(database.value().sourceChanged());
  auto copy = ReadOnlyDatabase::open(file);
  writer.run("INSERT INTO t VALUES ('three')");
  EXPECT_FALSE(copy.value().sourceChanged());
}

TEST_F(ReadOnlyDatabaseTest, NeitherWritesNorAttaches) {
  const std::string file = folder_.file("a.db");
  const TestDatabase writer(
      file, std::string(kRows) + "PRAGMA journal_mode = WAL; INSERT INTO t VALUES ('two')");
  for (const std::string sql : {"DELETE FROM t", "CREATE TABLE u (b)", "ATTACH ':memory:' AS other",
                                "SELECT nothing FROM t"}) {
    auto database = ReadOnlyDatabase::open(file);
    auto statement = database.value().prepare(sql);
    EXPECT_FALSE(statement.next());
    EXPECT_TRUE(database.value().error()) << sql;
  }
}

TEST_F(ReadOnlyDatabaseTest, ComesToAnEndWhateverIsAsked) {
  TestDatabase(folder_.file("a.db")).run(kRows);
  auto database = ReadOnlyDatabase::open(folder_.file("a.db"));
  auto endless = database.value().prepare(
      "WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n) SELECT max(x) FROM n");
  EXPECT_FALSE(endless.next());
  EXPECT_THAT(database.value().error()->reason, HasSubstr("does not come to an end"));
}

TEST_F(ReadOnlyDatabaseTest, ReadsNumbersHoweverTheyAreWritten) {
  TestDatabase(folder_.file("a.db")).run(kRows);
  auto database = ReadOnlyDatabase::open(folder_.file("a.db"));
  auto row =
      database.value().prepare("SELECT 7, 7.9, '7', ' 7', '7x', x'37', NULL, 9e99, -9e99, ''");
  ASSERT_TRUE(row.next());
  const std::optional<std::int64_t> expected[] = {7, 7, 7, {}, {}, {}, {}, {}, {}, {}};
  for (int column = 0; column < 10; ++column) {
    EXPECT_EQ(row.integer(column), expected[column]) << column;
  }
}

}  // namespace
}  // namespace zephyl::linux_host
