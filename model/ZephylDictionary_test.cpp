#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"
#include "model/TestGroups.h"
#include "model/Zephyl.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

class ZephylDictionaryTest : public ::testing::Test {
 protected:
  static Dictionary loadedAndSaved(const Dictionary& dictionary) {
    return std::make_shared<Zephyl>(dictionary)->dictionaryRepresentation();
  }
  static std::vector<std::string> keysOf(const Dictionary& dictionary) {
    std::vector<std::string> names;
    for (const auto& [key, value] : dictionary) {
      names.push_back(key);
    }
    return names;
  }

  // Every key with a value of its own type.
  static Dictionary whole() {
    return Dictionary{{"identifier", 42},
                      {"title", "Work"},
                      {"subTitle", "Colleagues"},
                      {"headerImagePath", "42.png"},
                      {"backGroundImagePath", "back.png"},
                      {"markerCode", "ff8800ff"},
                      {"createdDate", Date{1000.5}},
                      {"enabled", true},
                      {"active", true},
                      {"system", false},
                      {"passwordProtected", true},
                      {"zephylSystemMode", 0},
                      {"updatedDate", Date{2000.25}},
                      {"contacts", Array{12, "12", "+15550100", "iMessage;-;+15550100"}},
                      {"shouldHideConversationsInDefaultGroups", true},
                      {"shouldHideConversationsOnLockScreen", true},
                      {"maskedMessage", "Busy"}};
  }

  fake::Device device_;
};

TEST_F(ZephylDictionaryTest, EveryValueIsReadAndWrittenInTheOrderOfTheKeys) {
  EXPECT_EQ(loadedAndSaved(whole()), whole());
}

TEST_F(ZephylDictionaryTest, TheGettersGiveWhatWasRead) {
  const auto group = std::make_shared<Zephyl>(whole());
  EXPECT_EQ(group->subTitle(), "Colleagues");
  EXPECT_EQ(group->headerImagePath(), "42.png");
  EXPECT_EQ(group->backGroundImagePath(), "back.png");
  EXPECT_EQ(group->markerCode(), "ff8800ff");
  EXPECT_EQ(group->createdDate(), Date{1000.5});
  EXPECT_EQ(group->updatedDate(), Date{2000.25});
  EXPECT_TRUE(group->isActive());
  EXPECT_FALSE(group->isSystem());
  EXPECT_TRUE(group->shouldHideConversationsInDefaultGroups());
  EXPECT_TRUE(group->shouldHideConversationsOnLockScreen());
  EXPECT_TRUE(group->contacts()->contains(std::int64_t{12}));
  EXPECT_TRUE(group->contacts()->contains("12"));
  EXPECT_TRUE(group->requiresUpdateForUnReadCount());
  EXPECT_TRUE(group->unreadConversations()->empty());
}

TEST_F(ZephylDictionaryTest, AnEmptyRecordWritesEmptyTextsAndLeavesTheUpdateDateOut) {
  const auto group = std::make_shared<Zephyl>();
  const Dictionary stored = group->dictionaryRepresentation();
  EXPECT_EQ(keysOf(stored),
            (std::vector<std::string>{"identifier", "title", "subTitle", "headerImagePath",
                                      "backGroundImagePath", "markerCode", "createdDate", "enabled",
                                      "active", "system", "passwordProtected", "zephylSystemMode",
                                      "contacts", "shouldHideConversationsInDefaultGroups",
                                      "shouldHideConversationsOnLockScreen", "maskedMessage"}));
  EXPECT_EQ(stored["title"], Value(""));
  EXPECT_EQ(stored["markerCode"], Value(""));
  EXPECT_EQ(stored["contacts"], Value(Array{}));
  EXPECT_EQ(stored["enabled"], Value(false));
}

TEST_F(ZephylDictionaryTest, AMissingCreationDateIsWrittenAsNowAndTheRecordStaysAsItIs) {
  const auto group = std::make_shared<Zephyl>();
  EXPECT_EQ(group->dictionaryRepresentation()["createdDate"], Value(Date::since1970(1.6e9)));
  EXPECT_FALSE(group->createdDate());
  device_.clock().set(1.7e9);
  EXPECT_EQ(group->dictionaryRepresentation()["createdDate"], Value(Date::since1970(1.7e9)));
}

TEST_F(ZephylDictionaryTest, FillingARecordAgainLeavesItsRunTimeStateAlone) {
  const auto group = std::make_shared<Zephyl>(whole());
  const auto shown = std::make_shared<const ConversationSet>(CKConversationArray());
  group->setConversations(shown);
  group->setRequiresUpdateForUnReadCount(false);
  group->setUnreadConversations(
      std::make_shared<const std::set<std::string>>(std::set<std::string>{"a"}));
  group->setPropertiesFromDicitonary(GroupBuilder(9, "Other"));
  EXPECT_EQ(group->conversations(), shown);
  EXPECT_TRUE(group->requiresUpdateForUnReadCount());
  EXPECT_TRUE(group->unreadConversations()->empty());
  EXPECT_EQ(group->identifier(), 9);
  EXPECT_TRUE(group->contacts()->empty());
}

struct Converted {
  Value stored;
  bool boolean;
  std::int64_t integer;
};

TEST_F(ZephylDictionaryTest, ValuesOfAnotherTypeConvertAsNumbersAndTextsDo) {
  for (const Converted& one : {Converted{1, true, 1},
                               {0, false, 0},
                               {2.9, true, 2},
                               {"1", true, 1},
                               {"YES", true, 0},
                               {"no", false, 0},
                               {"3 apples", true, 3},
                               {Array{}, false, 0},
                               {true, true, 1}}) {
    const auto group = std::make_shared<Zephyl>(Dictionary(
        GroupBuilder(1, "A").with("enabled", one.stored).with("zephylSystemMode", one.stored)));
    EXPECT_EQ(group->isEnabled(), one.boolean) << group->description();
    EXPECT_EQ(group->zephylSystemMode(), one.integer) << group->description();
  }
}

TEST_F(ZephylDictionaryTest, EveryValueOfAWrongTypeIsCarriedThroughALoadAndASave) {
  for (const auto& [key, value] : whole()) {
    for (const Value& wrong : {Value(Data{1, 2}), Value(Dictionary{{"a", 1}}), Value(Array{1, 2}),
                               Value(3.5), Value("text"), Value(7), Value(Date{1})}) {
      if (wrong.type() == value.type()) {
        continue;
      }
      Dictionary damaged = whole();
      damaged.set(key, wrong);
      Dictionary saved = loadedAndSaved(damaged);
      if (key == "identifier" && wrong.integerValue() < 1) {
        // Such a record takes a number of its own.
        saved.set(key, wrong);
      }
      EXPECT_EQ(saved, damaged) << key;
    }
  }
}

TEST_F(ZephylDictionaryTest, ACarriedValueEndsWhenItsPropertyIsSet) {
  Dictionary damaged = whole();
  damaged.set("title", 5);
  damaged.set("enabled", "YES");
  const auto group = std::make_shared<Zephyl>(damaged);
  EXPECT_EQ(group->title(), "");
  group->setTitle("Mended");
  group->setEnabled(false);
  EXPECT_EQ(group->dictionaryRepresentation()["title"], Value("Mended"));
  EXPECT_EQ(group->dictionaryRepresentation()["enabled"], Value(false));
}

TEST_F(ZephylDictionaryTest, UnknownKeysAreKeptBehindTheKnownOnes) {
  Dictionary foreign{{"later", Array{1, Date{5}}}};
  const Dictionary usual = whole();
  for (const auto& [key, value] : usual) {
    foreign.set(key, value);
  }
  const Dictionary saved = loadedAndSaved(foreign);
  EXPECT_EQ(saved["later"], (Value(Array{1, Date{5}})));
  EXPECT_EQ(keysOf(saved).back(), "later");
  EXPECT_EQ(loadedAndSaved(saved), saved);
}

TEST_F(ZephylDictionaryTest, MembersOfOtherTypesAreKeptButAreNoMembers) {
  const auto group = std::make_shared<Zephyl>(
      Dictionary(GroupBuilder(1, "A").members({Date{1}, 12, Data{1}, "x", 12, 4.0})));
  EXPECT_EQ(group->contacts()->size(), 3U);
  EXPECT_EQ(group->dictionaryRepresentation()["contacts"],
            (Value(Array{12, "x", 4.0, Date{1}, Data{1}})));
}

struct SystemGroup {
  Dictionary dictionary;
  const char* title;
  const char* subTitle;
  int mode;
};

TEST_F(ZephylDictionaryTest, TheSystemGroupsHaveSixKeysEach) {
  const SystemGroup groups[] = {
      {Zephyl::allMessagesDictionaryRepresenation(), "All",
       "All messages grouped under this group.", 1},
      {Zephyl::allFavoritesDictionaryRepresenation(nullptr), "Favorites",
       "Your Favoties Contacts from Phonebook", 2},
      {Zephyl::allGroupsDictionaryRepresenation(), "All Groups",
       "All group conversations are grouped under this.", 3},
      {Zephyl::allUnknownDictionaryRepresenation(), "Unknown",
       "All conversations from Unknown numbers are grouped under this.", 4},
      {Zephyl::allKnownDictionaryRepresenation(), "Known",
       "All conversations from known numbers are grouped under this.", 5}};
  for (const SystemGroup& group : groups) {
    EXPECT_EQ(group.dictionary, (Dictionary{{"title", group.title},
                                            {"subTitle", group.subTitle},
                                            {"zephylSystemMode", group.mode},
                                            {"enabled", true},
                                            {"passwordProtected", true},
                                            {"system", true}}));
  }
}

}  // namespace
}  // namespace zephyl
