#include "hosts/linux/LinuxUserDefaults.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/PropertyList.h"

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/fake/FakeSystem.h"
#include "hosts/linux/FullDisk_testing.h"

namespace zephyl::linux_host {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kFolder = "/var/mobile/Library/Preferences";
constexpr const char* kOwnFile = "/var/mobile/Library/Preferences/com.apple.MobileSMS.plist";

class LinuxUserDefaultsTest : public ::testing::Test {
 protected:
  static std::string binary(const Value& value) {
    const Data bytes = writeBinaryPropertyList(value);
    return {bytes.begin(), bytes.end()};
  }

  contract::TemporaryFolder top_;
  fake::FakeSystemLog log_;
  fake::FakeClock clock_;
  const DeviceRoot root_{top_.path(), ""};
  LinuxUserDefaults defaults_{root_, log_, clock_, "com.apple.MobileSMS"};
  // Another program that runs under the same name.
  LinuxUserDefaults others_{root_, log_, clock_, "com.apple.MobileSMS"};
};

TEST_F(LinuxUserDefaultsTest, NothingIsWrittenBeforeItIsSynchronized) {
  defaults_.setInteger(7, "LAST");
  EXPECT_EQ(others_.integerForKey("LAST"), 0);
  EXPECT_FALSE(top_.has(kOwnFile));
  EXPECT_TRUE(defaults_.synchronize());
  EXPECT_EQ(others_.integerForKey("LAST"), 7);
}

TEST_F(LinuxUserDefaultsTest, IsABinaryPropertyListAndNothingIsLeftBesideIt) {
  defaults_.setInteger(7, "LAST");
  ASSERT_TRUE(defaults_.synchronize());
  EXPECT_EQ(top_.read(kOwnFile), binary(Dictionary{{"LAST", 7}}));
  EXPECT_THAT(top_.namesIn(kFolder), ElementsAre("com.apple.MobileSMS.plist"));
}

TEST_F(LinuxUserDefaultsTest, KeysThatOthersWroteStay) {
  EXPECT_EQ(defaults_.integerForKey("theirs"), 0);
  defaults_.setInteger(1, "ours");
  others_.setInteger(2, "theirs");
  EXPECT_TRUE(others_.synchronize());
  EXPECT_TRUE(defaults_.synchronize());
  EXPECT_EQ(others_.integerForKey("ours"), 1);
  EXPECT_EQ(defaults_.integerForKey("theirs"), 2);
}

TEST_F(LinuxUserDefaultsTest, WhatWasSetHereStandsBeforeWhatOthersWrote) {
  defaults_.setInteger(1, "LAST");
  others_.setInteger(2, "LAST");
  EXPECT_TRUE(others_.synchronize());
  EXPECT_EQ(defaults_.integerForKey("LAST"), 1);
  EXPECT_EQ(defaults_.persistentDomainForName("com.apple.MobileSMS"), Dictionary({{"LAST", 1}}));
}

TEST_F(LinuxUserDefaultsTest, ValuesOfEveryTypeSurvive) {
  const Dictionary before{{"text", "Zoë"}, {"when", Date{12.5}}, {"bytes", Data{0, 255}}};
  top_.put(kOwnFile, writeXmlPropertyList(before));
  defaults_.setInteger(7, "LAST");
  ASSERT_TRUE(defaults_.synchronize());
  Dictionary after = before;
  after.set("LAST", 7);
  EXPECT_EQ(top_.read(kOwnFile), binary(after));
}

TEST_F(LinuxUserDefaultsTest, ANumberOfAnotherTypeIsConverted) {
  top_.put(kOwnFile, binary(Dictionary{{"text", "12"}, {"real", 3.9}, {"list", Array{Value(1)}}}));
  EXPECT_EQ(defaults_.integerForKey("text"), 12);
  EXPECT_EQ(defaults_.integerForKey("real"), 3);
  EXPECT_EQ(defaults_.integerForKey("list"), 0);
}

TEST_F(LinuxUserDefaultsTest, ACorruptFileIsToldOnceAndKeptBeforeItIsOverwritten) {
  for (const std::string& bad : {std::string("bplist00 torn"), binary(Array{Value(1)})}) {
    const contract::TemporaryFolder top;
    const DeviceRoot root(top.path(), "");
    fake::FakeSystemLog log;
    LinuxUserDefaults defaults(root, log, clock_, "com.apple.MobileSMS");
    top.put(kOwnFile, bad);
    EXPECT_EQ(defaults.integerForKey("LAST"), 0);
    EXPECT_EQ(defaults.integerForKey("LAST"), 0);
    EXPECT_THAT(log.lines(), ElementsAre(HasSubstr(kOwnFile)));
    defaults.setInteger(7, "LAST");
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(top.read(kOwnFile), binary(Dictionary{{"LAST", 7}}));
    auto names = top.namesIn(kFolder);
    ASSERT_THAT(names, SizeIs(2));
    std::erase(names, "com.apple.MobileSMS.plist");
    EXPECT_THAT(names.front(), HasSubstr("com.apple.MobileSMS.plist.unreadable-"));
    EXPECT_EQ(top.read(std::string(kFolder) + "/" + names.front()), bad);
    EXPECT_THAT(log.lines().back(), HasSubstr(names.front()));
  }
}

TEST_F(LinuxUserDefaultsTest, AFailedWriteLeavesTheFileAndTheNumbersThatWereSet) {
  top_.put(kOwnFile, binary(Dictionary{{"LAST", 1}}));
  defaults_.setInteger(2, "LAST");
  {
    const FileSizeLimit limit(8);
    EXPECT_FALSE(defaults_.synchronize());
  }
  EXPECT_EQ(top_.read(kOwnFile), binary(Dictionary{{"LAST", 1}}));
  EXPECT_THAT(top_.namesIn(kFolder), SizeIs(1));
  EXPECT_THAT(log_.lines(), ElementsAre(AllOf(HasSubstr(kOwnFile), HasSubstr("not written"))));
  EXPECT_EQ(defaults_.integerForKey("LAST"), 2);
  EXPECT_TRUE(defaults_.synchronize());
  EXPECT_EQ(others_.integerForKey("LAST"), 2);
}

TEST_F(LinuxUserDefaultsTest, ADomainIsWrittenAtOnceForOthersToRead) {
  defaults_.setPersistentDomain(Dictionary{{"ring-vibrate", true}}, "com.apple.springboard");
  EXPECT_EQ(others_.persistentDomainForName("com.apple.springboard"),
            Dictionary({{"ring-vibrate", true}}));
  EXPECT_TRUE(top_.has(std::string(kFolder) + "/com.apple.springboard.plist"));
}

TEST_F(LinuxUserDefaultsTest, TheOwnDomainCanBeReplacedToo) {
  defaults_.setInteger(1, "old");
  defaults_.setPersistentDomain(Dictionary{{"new", 2}}, "com.apple.MobileSMS");
  EXPECT_EQ(defaults_.integerForKey("old"), 0);
  EXPECT_EQ(defaults_.integerForKey("new"), 2);
}

TEST_F(LinuxUserDefaultsTest, AValueThatNoFileCanHoldIsToldAndNotWritten) {
  defaults_.setPersistentDomain(Dictionary{{"bad", Value("\xff")}}, "com.example");
  EXPECT_EQ(defaults_.persistentDomainForName("com.example"), std::nullopt);
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("com.example.plist: not written: ")));
}

TEST_F(LinuxUserDefaultsTest, ANameIsNoPath) {
  top_.put("/var/mobile/Library/secret.plist", binary(Dictionary{{"a", 1}}));
  for (const char* name : {"../secret", "", "a/b"}) {
    EXPECT_EQ(defaults_.persistentDomainForName(name), std::nullopt) << name;
    defaults_.setPersistentDomain(Dictionary{{"b", 2}}, name);
  }
  EXPECT_EQ(top_.read("/var/mobile/Library/secret.plist"), binary(Dictionary{{"a", 1}}));
  EXPECT_FALSE(top_.has(kFolder));
  EXPECT_THAT(log_.lines(), SizeIs(3));
}

}  // namespace
}  // namespace zephyl::linux_host
