// Each way in which a database can change under a watcher, with real files.

#include "hosts/linux/messages/DatabaseWatcher.h"

#include <QFileSystemWatcher>
#include <QString>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/messages/TestDatabase.h"

namespace zephyl::linux_host {
namespace {

using namespace std::chrono_literals;

constexpr auto kLimit = 10s;
constexpr WatcherDelays kByEvents{.settling = 1ms, .polling = 1h};

class DatabaseWatcherTest : public ::testing::Test {
 protected:
  void watch(const std::string& file, WatcherDelays delays = kByEvents) {
    watcher_.emplace(
        file, [this] { ++calls_; }, delays);
  }

  // Whether the change that `make` makes is told.
  template <typename Change>
  bool isTold(const Change& make) {
    // What happened before is told by now.
    watcher_->callAgain();
    const int before = calls_;
    EXPECT_TRUE(dispatch_.runMainUntil([&] { return calls_ > before; }, kLimit));
    const int expected = calls_ + 1;
    make();
    return dispatch_.runMainUntil([&] { return calls_ >= expected; }, kLimit);
  }

  LinuxDispatch dispatch_;
  TemporaryFolder folder_;
  const std::string file_ = folder_.file("sms.db");
  int calls_ = 0;
  std::optional<DatabaseWatcher> watcher_;
};

// A byte written past the system's signs, as another machine does it.
void writeUnseen(const std::string& file) {
  const int descriptor = ::open(file.c_str(), O_RDWR | O_CLOEXEC);
  void* const bytes = ::mmap(nullptr, 1, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
  ASSERT_NE(bytes, MAP_FAILED);
  *static_cast<char*>(bytes) = 'X';
  ::msync(bytes, 1, MS_SYNC);
  ::munmap(bytes, 1);
  ::close(descriptor);
}

TEST_F(DatabaseWatcherTest, TellsOfWritesIntoTheLogAndOfItsBeingWrittenBack) {
  TestDatabase writer(file_, "CREATE TABLE t (a);");
  watch(file_);
  EXPECT_TRUE(isTold([&] { writer.run("PRAGMA journal_mode = WAL; INSERT INTO t VALUES (1)"); }));
  EXPECT_TRUE(isTold([&] { writer.run("INSERT INTO t VALUES (2)"); }));
  EXPECT_TRUE(isTold([&] { writer.run("PRAGMA wal_checkpoint(TRUNCATE)"); }));
  EXPECT_TRUE(isTold([&] { writer.run("INSERT INTO t VALUES (3)"); }));
}

TEST_F(DatabaseWatcherTest, TellsOfWritesIntoTheFile) {
  TestDatabase writer(file_, "CREATE TABLE t (a);");
  watch(file_);
  EXPECT_TRUE(isTold([&] { writer.run("INSERT INTO t VALUES (1)"); }));
  EXPECT_TRUE(isTold([&] { writer.run("INSERT INTO t VALUES (2)"); }));
}

TEST_F(DatabaseWatcherTest, TellsOfAFileThatTakesItsPlaceAndOfWritesIntoThat) {
  writeFile(file_, "first");
  watch(file_);
  for (const std::string name : {"second", "third"}) {
    writeFile(folder_.file(name), name);
    EXPECT_TRUE(isTold([&] { std::filesystem::rename(folder_.file(name), file_); })) << name;
    EXPECT_TRUE(isTold([&] { writeFile(file_, name + ", longer"); })) << name;
  }
}

TEST_F(DatabaseWatcherTest, TellsOfWritesIntoTheNewFileWhileSomebodyHoldsTheOld) {
  writeFile(file_, "old");
  watch(file_);
  const std::ifstream held(file_);
  writeFile(folder_.file("new"), "new");
  EXPECT_TRUE(isTold([&] { std::filesystem::rename(folder_.file("new"), file_); }));
  EXPECT_TRUE(isTold([&] { writeFile(file_, "newer"); }));
}

TEST_F(DatabaseWatcherTest, TellsOfAFileThatGoesAndComesBack) {
  writeFile(file_, "here");
  watch(file_);
  EXPECT_TRUE(isTold([&] { std::filesystem::remove(file_); }));
  EXPECT_TRUE(isTold([&] { writeFile(file_, "back"); }));
  EXPECT_TRUE(isTold([&] { writeFile(file_, "back again"); }));
}

TEST_F(DatabaseWatcherTest, TellsOfAFileInAFolderThatComesLaterAndGoes) {
  const std::filesystem::path folder = folder_.path() / "a" / "b";
  watch(folder / "sms.db");
  std::filesystem::create_directories(folder);
  EXPECT_TRUE(isTold([&] { writeFile(folder / "sms.db", "here"); }));
  EXPECT_TRUE(isTold([&] { std::filesystem::rename(folder, folder_.path() / "c"); }));
  EXPECT_TRUE(isTold([&] { std::filesystem::rename(folder_.path() / "c", folder); }));
  EXPECT_TRUE(isTold([&] { writeFile(folder / "sms.db", "here again"); }));
}

TEST_F(DatabaseWatcherTest, FollowsALinkToWhatItLeadsTo) {
  const TemporaryFolder other;
  TestDatabase writer(other.file("chat.db"), "PRAGMA journal_mode = WAL; CREATE TABLE t (a);");
  std::filesystem::create_symlink(other.file("chat.db"), file_);
  watch(file_);
  EXPECT_TRUE(isTold([&] { writer.run("INSERT INTO t VALUES (1)"); }));
  EXPECT_TRUE(isTold([&] {
    writeFile(folder_.file("plain"), "no link");
    std::filesystem::rename(folder_.file("plain"), file_);
  }));
}

TEST_F(DatabaseWatcherTest, ManyChangesAtOnceAreToldOnce) {
  writeFile(file_, "");
  watch(file_, {.settling = 100ms, .polling = 1h});
  for (int i = 0; i < 100; ++i) {
    std::ofstream(file_, std::ios::app) << i;
  }
  ASSERT_TRUE(dispatch_.runMainUntil([&] { return calls_ > 0; }, kLimit));
  EXPECT_EQ(calls_, 1);
  EXPECT_FALSE(dispatch_.runMainUntil([&] { return calls_ > 1; }, 300ms));
}

TEST_F(DatabaseWatcherTest, OtherFilesOfTheFolderDoNotMatter) {
  writeFile(file_, "here");
  watch(file_);
  QFileSystemWatcher own;
  bool isSeen = false;
  own.addPath(QString::fromStdString(folder_.path().string()));
  QObject::connect(&own, &QFileSystemWatcher::directoryChanged, &own, [&] { isSeen = true; });
  writeFile(folder_.file("other"), "noise");
  ASSERT_TRUE(dispatch_.runMainUntil([&] { return isSeen; }, kLimit));
  EXPECT_FALSE(dispatch_.runMainUntil([&] { return calls_ > 0; }, 50ms));
}

TEST_F(DatabaseWatcherTest, LooksFromTimeToTimeWhereTheSystemGivesNoSign) {
  writeFile(file_, "here");
  watch(file_, {.settling = 1ms, .polling = 5ms});
  EXPECT_TRUE(isTold([&] { writeUnseen(file_); }));
  watch(file_);
  writeUnseen(file_);
  EXPECT_FALSE(dispatch_.runMainUntil([&] { return calls_ > 2; }, 50ms)) << "there was a sign";
}

TEST_F(DatabaseWatcherTest, CallsAgainWhenAsked) {
  watch(folder_.file("nothing"));
  watcher_->callAgain();
  ASSERT_TRUE(dispatch_.runMainUntil([&] { return calls_ == 1; }, kLimit));
  EXPECT_FALSE(dispatch_.runMainUntil([&] { return calls_ > 1; }, 20ms));
}

}  // namespace
}  // namespace zephyl::linux_host
