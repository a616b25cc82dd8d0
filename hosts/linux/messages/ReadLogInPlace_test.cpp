// Reading a database together with its log where both lie: nothing is touched, nothing is copied,
// and what another program does meanwhile is noticed.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "hosts/linux/messages/ReadOnlyDatabase.h"
#include "hosts/linux/messages/ReadOnlyFileSystem.h"
#include "hosts/linux/messages/TestDatabase.h"

namespace zephyl::linux_host {
namespace {

using ::testing::HasSubstr;

constexpr std::string_view kLogged =
    "PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0; CREATE TABLE t (a TEXT);"
    "INSERT INTO t VALUES ('one'); PRAGMA wal_checkpoint(TRUNCATE);";

class ReadLogInPlaceTest : public ::testing::Test {
 protected:
  // The last value in the table, or the reason why there is none. The folder must be as it was, and
  // there is no place for temporary files.
  std::string lastValue() {
    const TemporaryFilesIn nowhere("/nonexistent");
    const auto before = folder_.contents();
    std::string value = read();
    EXPECT_TRUE(folder_.contents() == before);
    return value;
  }

  [[nodiscard]] DatabaseResult<ReadOnlyDatabase> open() const {
    return ReadOnlyDatabase::open(file_, ReadOnlyDatabase::Access::kLogInPlace);
  }

  TemporaryFolder folder_;
  const std::string file_ = folder_.file("a.db");

 private:
  [[nodiscard]] std::string read() const {
    auto database = open();
    if (!database.ok()) {
      return database.error().reason;
    }
    auto statement = database.value().prepare("SELECT a FROM t ORDER BY a DESC");
    const bool hasRow = statement.next();
    if (database.value().error()) {
      return database.value().error()->reason;
    }
    return hasRow ? statement.text(0).value_or("null") : "no rows";
  }
};

TEST_F(ReadLogInPlaceTest, ReadsWhatIsOnlyInTheLog) {
  TestDatabase writer(file_, kLogged);
  writer.run("INSERT INTO t VALUES ('two')");
  EXPECT_EQ(lastValue(), "two");
  writer.run("INSERT INTO t VALUES ('unseen'); DELETE FROM t WHERE a = 'unseen';");
  EXPECT_EQ(lastValue(), "two");
}

TEST_F(ReadLogInPlaceTest, ReadsWhileTheWriterIsInTheMiddleOfATransaction) {
  TestDatabase writer(file_, kLogged);
  writer.run("PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN IMMEDIATE;");
  writer.run(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000)"
      "INSERT INTO t SELECT 'unfinished ' || i FROM n");
  ASSERT_GT(std::filesystem::file_size(file_ + "-wal"), 0U) << "nothing has reached the log";
  EXPECT_EQ(lastValue(), "one");
  writer.run("COMMIT");
  EXPECT_EQ(lastValue(), "unfinished 999");
}

TEST_F(ReadLogInPlaceTest, ReadsAFileWithoutALog) {
  const TestDatabase writer(file_, "CREATE TABLE t (a TEXT); INSERT INTO t VALUES ('one');");
  EXPECT_EQ(lastValue(), "one");
}

TEST_F(ReadLogInPlaceTest, ReadsWhereNothingMayBeWritten) {
  TestDatabase writer(file_, kLogged);
  writer.run("INSERT INTO t VALUES ('two')");
  std::filesystem::remove(file_ + "-shm");
  using std::filesystem::perms;
  for (const std::string& file : {file_, file_ + "-wal"}) {
    std::filesystem::permissions(file, perms::owner_read);
  }
  std::filesystem::permissions(folder_.path(), perms::owner_read | perms::owner_exec);
  EXPECT_EQ(lastValue(), "two");
  std::filesystem::permissions(folder_.path(), perms::owner_all);
}

TEST_F(ReadLogInPlaceTest, NoticesThatTheLogHasGrown) {
  TestDatabase writer(file_, kLogged);
  writer.run("INSERT INTO t VALUES ('two')");
  const auto database = open();
  ASSERT_TRUE(database.ok()) << database.error().reason;
  EXPECT_FALSE(database.value().sourceChanged());
  writer.run("INSERT INTO t VALUES ('three')");
  EXPECT_TRUE(database.value().sourceChanged());
}

TEST_F(ReadLogInPlaceTest, LeavesAnUnfinishedTransactionToItsWriter) {
  TestDatabase writer(file_, "CREATE TABLE t (a TEXT); INSERT INTO t VALUES ('one');");
  writer.run("PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN IMMEDIATE;");
  writer.run(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50000)"
      "INSERT INTO t SELECT 'unfinished ' || i FROM n");
  EXPECT_THAT(lastValue(), HasSubstr("in the middle of changing the file"));
  writer.run("ROLLBACK");
  EXPECT_EQ(lastValue(), "one");
}

TEST_F(ReadLogInPlaceTest, LeavesALogBesideAnEmptyFileAlone) {
  TestDatabase writer(folder_.file("b.db"), kLogged);
  writer.run("INSERT INTO t VALUES ('two')");
  writeFile(file_, "");
  writeFile(file_ + "-wal", readFile(folder_.file("b.db-wal")));
  EXPECT_THAT(lastValue(), HasSubstr("still in its log"));
}

// Whatever SQLite is asked for.
TEST_F(ReadLogInPlaceTest, TheFileSystemCannotChangeAnything) {
  TestDatabase writer(file_, kLogged);
  writer.run("INSERT INTO t VALUES ('two')");
  const auto before = folder_.contents();
  constexpr int kWriting = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  for (const char* sql : {"DELETE FROM t", "PRAGMA wal_checkpoint(TRUNCATE)",
                          "PRAGMA journal_mode = DELETE", "VACUUM", "PRAGMA user_version = 1"}) {
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open_v2(file_.c_str(), &database, kWriting, readOnlyFileSystem()), SQLITE_OK);
    sqlite3_exec(database, "PRAGMA locking_mode = EXCLUSIVE", nullptr, nullptr, nullptr);
    sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
    sqlite3_close(database);
    EXPECT_TRUE(folder_.contents() == before) << sql;
  }
  sqlite3* database = nullptr;
  EXPECT_NE(
      sqlite3_open_v2(folder_.file("new.db").c_str(), &database, kWriting, readOnlyFileSystem()),
      SQLITE_OK);
  sqlite3_close(database);
  EXPECT_TRUE(folder_.contents() == before);
}

// SQLite would delete it.
TEST_F(ReadLogInPlaceTest, TheFileSystemKeepsALogBesideAnEmptyFile) {
  writeFile(file_, "");
  writeFile(file_ + "-wal", "log");
  sqlite3* database = nullptr;
  sqlite3_open_v2(file_.c_str(), &database, SQLITE_OPEN_READONLY, readOnlyFileSystem());
  EXPECT_NE(sqlite3_exec(database, "SELECT * FROM sqlite_master", nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(database);
  EXPECT_EQ(readFile(file_ + "-wal"), "log");
}

TEST_F(ReadLogInPlaceTest, ALogThatIsRubbishCountsForNothing) {
  { const TestDatabase writer(file_, kLogged); }
  for (const std::string& rubbish : {std::string(1, 'x'), std::string(100'000, 'x')}) {
    writeFile(file_ + "-wal", rubbish);
    EXPECT_EQ(lastValue(), "one");
  }
}

}  // namespace
}  // namespace zephyl::linux_host
