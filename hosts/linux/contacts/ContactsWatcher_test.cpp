// Each way in which contacts can change under a watcher, with real files.

#include "hosts/linux/contacts/ContactsWatcher.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/LinuxDispatch.h"

namespace zephyl::linux_host {
namespace {

using namespace std::chrono_literals;

class ContactsWatcherTest : public ::testing::Test {
 protected:
  void watch(std::vector<std::string> sources,
             WatcherDelays delays = {.settling = 1ms, .polling = 1h}) {
    watcher_.emplace(
        std::move(sources), [this] { ++calls_; }, delays);
  }
  bool isTold(int calls) {
    return dispatch_.runMainUntil([&] { return calls_ >= calls; }, 10s);
  }

  LinuxDispatch dispatch_;
  contract::TemporaryFolder folder_;
  const std::string file_ = folder_.path() + "/a.vcf";
  int calls_ = 0;
  std::optional<ContactsWatcher> watcher_;
};

TEST_F(ContactsWatcherTest, WritingAFileIsTold) {
  folder_.put("/a.vcf", "one");
  watch({file_});
  folder_.put("/a.vcf", "one more");
  EXPECT_TRUE(isTold(1));
  folder_.put("/a.vcf", "and another");
  EXPECT_TRUE(isTold(2));
}

TEST_F(ContactsWatcherTest, PuttingAnotherFileInItsPlaceIsToldAgainAndAgain) {
  folder_.put("/a.vcf", "one");
  watch({file_});
  for (int i = 1; i <= 3; ++i) {
    folder_.put("/b", std::string(static_cast<std::size_t>(i), 'x'));
    std::filesystem::rename(folder_.path() + "/b", file_);
    EXPECT_TRUE(isTold(i)) << i;
  }
}

TEST_F(ContactsWatcherTest, AFileThatComesAndGoesIsTold) {
  watch({file_});
  folder_.put("/a.vcf", "one");
  EXPECT_TRUE(isTold(1));
  std::filesystem::remove(file_);
  EXPECT_TRUE(isTold(2));
}

TEST_F(ContactsWatcherTest, AFileInAFolderIsTold) {
  std::filesystem::create_directories(folder_.path() + "/in/deep");
  folder_.put("/in/deep/a.vcf", "one");
  watch({folder_.path() + "/in"});
  folder_.put("/in/deep/b.vcf", "two");
  EXPECT_TRUE(isTold(1));
  folder_.put("/in/deep/a.vcf", "one more");
  EXPECT_TRUE(isTold(2));
  std::filesystem::remove(folder_.path() + "/in/deep/b.vcf");
  EXPECT_TRUE(isTold(3));
}

TEST_F(ContactsWatcherTest, APictureThatChangesAloneIsTold) {
  folder_.put("/AddressBook.sqlitedb", "book");
  folder_.put("/AddressBookImages.sqlitedb", "pictures");
  watch({folder_.path() + "/AddressBook.sqlitedb"});
  int calls = 0;
  for (const char* file : {"/AddressBookImages.sqlitedb", "/AddressBookImages.sqlitedb-wal",
                           "/AddressBook.sqlitedb-wal"}) {
    folder_.put(file, "other ones");
    EXPECT_TRUE(isTold(++calls)) << file;
  }
}

TEST_F(ContactsWatcherTest, ASourceWhoseFolderIsYetToComeIsFoundByLooking) {
  watch({folder_.path() + "/later/a.vcf"}, {.settling = 1ms, .polling = 5ms});
  std::filesystem::create_directories(folder_.path() + "/later");
  folder_.put("/later/a.vcf", "one");
  EXPECT_TRUE(isTold(1));
}

TEST_F(ContactsWatcherTest, OtherFilesDoNotMatter) {
  folder_.put("/a.vcf", "one");
  watch({file_});
  folder_.put("/b.txt", "other");
  folder_.put("/a.vcf", "one more");
  EXPECT_TRUE(isTold(1));
  EXPECT_EQ(calls_, 1);
}

}  // namespace
}  // namespace zephyl::linux_host
