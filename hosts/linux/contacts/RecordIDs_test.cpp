// The file that keeps people's record ids from one run to the next.

#include "hosts/linux/contacts/RecordIDs.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/linux/messages/TestDatabase.h"

namespace zephyl::linux_host {
namespace {

using Strings = std::vector<std::string>;

class RecordIDsTest : public ::testing::Test {
 protected:
  // Gives the keys their ids in a run of its own.
  std::vector<std::int32_t> run(const Strings& keys) {
    RecordIDs ids(file_);
    std::vector<std::int32_t> given;
    for (const std::string& key : keys) {
      given.push_back(ids.idFor(key).value_or(0));
    }
    ids.save();
    notes_ = ids.takeNotes();
    return given;
  }

  TemporaryFolder folder_;
  std::string file_ = folder_.file("ids");
  std::string aside_ = file_ + ".damaged-1";
  ContactNotes notes_;
};

TEST_F(RecordIDsTest, IdsStartHighAndStayTheSameInEveryRun) {
  EXPECT_EQ(run({"a", "b"}), (std::vector<std::int32_t>{1000001, 1000002}));
  EXPECT_EQ(run({"c", "b", "b", "a"}),
            (std::vector<std::int32_t>{1000003, 1000002, 1000002, 1000001}));
  EXPECT_TRUE(notes_.empty());
}

TEST_F(RecordIDsTest, KeysMayHoldAnyBytes) {
  const Strings keys = {"",     " ",     "a\nb",  "a\rb", "a\\nb", "a\\", std::string("a\0b", 3),
                        "\xFF", "end 3", "next 9"};
  const std::vector<std::int32_t> given = run(keys);
  EXPECT_EQ(run(keys), given);
  EXPECT_TRUE(notes_.empty());
}

TEST_F(RecordIDsTest, TheFileIsWrittenOnlyWhenSomethingIsNew) {
  (void)run({"a"});
  const auto before = folder_.contents();
  (void)run({"a"});
  EXPECT_EQ(folder_.contents(), before);
  (void)run({});
  EXPECT_EQ(folder_.contents(), before);
}

TEST_F(RecordIDsTest, ReservedIdsAreNobodyElses) {
  (void)run({"a", "b"});
  RecordIDs ids(file_);
  ids.reserve({5, 1000001, 1000003});
  EXPECT_EQ(ids.idFor("b"), 1000002);
  EXPECT_EQ(ids.idFor("a"), 1000004);
  EXPECT_EQ(ids.idFor("c"), 1000005);
}

TEST_F(RecordIDsTest, ADamagedFileIsPutAsideAndWhatIsLeftOfItIsUsed) {
  (void)run({"a", "b"});
  const std::string whole = readFile(file_);
  for (std::size_t end = 0; end < whole.size(); ++end) {
    std::filesystem::remove(aside_);
    const std::string damaged = whole.substr(0, end);
    writeFile(file_, damaged);
    const std::vector<std::int32_t> given = run({"new", "b", "a"});
    ASSERT_EQ(notes_.errors().size(), 1U) << end;
    EXPECT_EQ(readFile(aside_), damaged);
    // Somebody's id is never given to another.
    EXPECT_GT(given[0], 1000002) << end;
    EXPECT_TRUE(given[1] == 1000002 || given[1] > given[0]) << end;
    EXPECT_TRUE(given[2] == 1000001 || given[2] > given[0]) << end;
    EXPECT_EQ(run({"new", "b", "a"}), given);
    EXPECT_TRUE(notes_.empty());
  }
}

TEST_F(RecordIDsTest, EveryKindOfDamageIsFound) {
  const std::string title = "zephyls record ids 1\n";
  const Strings files = {
      "zephyls record ids 2\nnext 1000002\n1000001 a\nend 1\n",
      title + "next 1000002\n1000001 a\nend 2\n",
      title + "next 1000001\n1000001 a\nend 1\n",
      title + "next 1000003\n1000001 a\n1000001 b\nend 2\n",
      title + "next 1000003\n1000001 a\n1000002 a\nend 2\n",
      title + "next 1000002\n7 a\nend 1\n",
      title + "next 1000002\n1000001a\nend 1\n",
      title + "next x\n1000001 a\nend 1\n",
      title + "1000001 a\nend 1\n",
      title + "next 1000002\n99999999999999999999 a\nend 1\n",
      title + "next 1000002\n1000001 a\nend 1\nmore",
  };
  for (const std::string& text : files) {
    std::filesystem::remove(aside_);
    writeFile(file_, text);
    (void)run({});
    EXPECT_EQ(notes_.errors().size(), 1U) << text;
    EXPECT_EQ(readFile(aside_), text);
  }
}

TEST_F(RecordIDsTest, WhatWasPutAsideBeforeStays) {
  writeFile(aside_, "older");
  writeFile(file_, "damaged");
  (void)run({"a"});
  EXPECT_EQ(readFile(aside_), "older");
  EXPECT_EQ(readFile(file_ + ".damaged-2"), "damaged");
  EXPECT_EQ(notes_.errors(),
            Strings{file_ + ": the file of record ids is damaged; it is kept as ids.damaged-2, and "
                            "0 of its ids are still in use"});
}

TEST_F(RecordIDsTest, AFileThatCannotBeReadIsLeftAlone) {
  std::filesystem::create_directory(file_);
  EXPECT_EQ(run({"a"}), std::vector<std::int32_t>{RecordIDs::kFirstOfThisRun});
  EXPECT_EQ(notes_.errors(), Strings{file_ + ": it is a folder; the people's ids are "
                                             "good for this run only"});
  EXPECT_TRUE(std::filesystem::is_directory(file_));
}

TEST_F(RecordIDsTest, AFileThatCannotBeWrittenStillGivesIds) {
  file_ = folder_.file("none/ids");
  EXPECT_EQ(run({"a"}), std::vector<std::int32_t>{1000001});
  EXPECT_TRUE(notes_.errors().empty());
  EXPECT_EQ(
      notes_.warnings(),
      Strings{file_ + ": cannot make a new file beside it: No such file or directory; the ids "
                      "of new people are good for this run only"});
}

TEST_F(RecordIDsTest, ALinkStaysALink) {
  const std::string target = folder_.file("target");
  writeFile(target, "");
  std::filesystem::remove(target);
  std::filesystem::create_symlink(target, file_);
  (void)run({"a"});
  EXPECT_TRUE(std::filesystem::is_symlink(file_));
  EXPECT_EQ(run({"a", "b"}), (std::vector<std::int32_t>{1000001, 1000002}));
  EXPECT_TRUE(std::filesystem::is_regular_file(target));
}

TEST_F(RecordIDsTest, WhenNoIdIsLeftNobodyGetsOne) {
  writeFile(file_, "zephyls record ids 1\nnext 2147483647\nend 0\n");
  RecordIDs ids(file_);
  EXPECT_EQ(ids.idFor("a"), 2147483647);
  EXPECT_EQ(ids.idFor("b"), std::nullopt);
  EXPECT_EQ(ids.idFor("a"), 2147483647);
}

}  // namespace
}  // namespace zephyl::linux_host
