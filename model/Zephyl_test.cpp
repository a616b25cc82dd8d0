#include "model/Zephyl.h"

#include <gtest/gtest.h>

#include "platform/foundation/NSKeyedArchive.h"

#include "hosts/fake/Device.h"
#include "model/TestGroups.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

constexpr char kCounter[] = "LAST_GEN_IDENTIFIER";
constexpr char kDefaultText[] =
    "This message is protected by Zephyls and available in Messages app only.";

class ZephylTest : public ::testing::Test {
 protected:
  static ZephylRef made(const Dictionary& dictionary) {
    return std::make_shared<Zephyl>(dictionary);
  }
  std::int64_t counter() { return device_.userDefaults().integerForKey(kCounter); }

  fake::Device device_;
};

TEST_F(ZephylTest, TheFirstIdentifierIsTheWholeUnixTimeAndTheNextOneMore) {
  device_.clock().set(1600000000.7);
  EXPECT_EQ(std::make_shared<Zephyl>()->identifier(), 1600000000);
  EXPECT_EQ(counter(), 1600000000);
  EXPECT_EQ(std::make_shared<Zephyl>()->identifier(), 1600000001);
  EXPECT_EQ(device_.userDefaults().synchronizations(), 2);
}

TEST_F(ZephylTest, ACounterBelowOneStartsAgainFromTheTime) {
  device_.userDefaults().setInteger(-5, kCounter);
  EXPECT_EQ(std::make_shared<Zephyl>()->identifier(), 1600000000);
}

TEST_F(ZephylTest, ANewRecordHasZeroValues) {
  const auto group = std::make_shared<Zephyl>();
  EXPECT_EQ(group->contacts(), nullptr);
  EXPECT_EQ(group->unreadConversations(), nullptr);
  EXPECT_EQ(group->conversations(), nullptr);
  EXPECT_FALSE(group->createdDate());
  EXPECT_FALSE(group->isEnabled());
  EXPECT_FALSE(group->requiresUpdateForUnReadCount());
  EXPECT_EQ(group->title(), "");
}

TEST_F(ZephylTest, ADictionaryWithoutAnIdentifierOfOneOrMoreGetsAFreshOne) {
  for (const Value& identifier : {Value(0), Value(-3), Value("none"), Value()}) {
    const std::int64_t before = counter();
    Dictionary dictionary;
    if (!identifier.isNull()) {
      dictionary.set(keys::kIdentifier, identifier);
    }
    EXPECT_GE(made(dictionary)->identifier(), 1600000000);
    EXPECT_GT(counter(), before);
  }
}

TEST_F(ZephylTest, AnIdentifierOfItsOwnLeavesTheCounterAlone) {
  EXPECT_EQ(made(GroupBuilder(42, "Work"))->identifier(), 42);
  EXPECT_EQ(counter(), 0);
  EXPECT_EQ(device_.userDefaults().synchronizations(), 0);
}

TEST_F(ZephylTest, EqualityIsThatOfTheIdentifiers) {
  EXPECT_TRUE(made(GroupBuilder(7, "A"))->isEqual(*made(GroupBuilder(7, "B"))));
  EXPECT_FALSE(made(GroupBuilder(7, "A"))->isEqual(*made(GroupBuilder(8, "A"))));
}

TEST_F(ZephylTest, ACopyHasTheSourcesIdentifierAndMovesTheCounterOn) {
  device_.userDefaults().setInteger(100, kCounter);
  const auto source = made(GroupBuilder(7, "Work").members({12, "+15550100"}));
  source->setUnreadCount(3);
  source->setConversations(std::make_shared<const ConversationSet>(CKConversationArray()));
  source->setHeaderImage(std::make_shared<const UIImage>(Data{1}));
  source->setRequiresUpdateForUnReadCount(false);

  const auto copied = source->copy();
  EXPECT_EQ(copied->identifier(), 7);
  EXPECT_EQ(counter(), 101);
  EXPECT_EQ(copied->title(), "Work");
  EXPECT_EQ(copied->contacts()->size(), 2U);
  EXPECT_EQ(copied->conversations(), nullptr);
  EXPECT_TRUE(copied->unreadConversations()->empty());
  EXPECT_TRUE(copied->requiresUpdateForUnReadCount());
  EXPECT_EQ(copied->headerImage(), nullptr);
}

TEST_F(ZephylTest, AnEmptyMaskedMessageReadsAsTheDefaultText) {
  EXPECT_EQ(made(GroupBuilder(1, "A"))->maskedMessage(), kDefaultText);
  EXPECT_EQ(made(GroupBuilder(1, "A").with(keys::kMaskedMessage, ""))->maskedMessage(),
            kDefaultText);
  EXPECT_EQ(made(GroupBuilder(1, "A").with(keys::kMaskedMessage, "x"))->maskedMessage(), "x");
}

TEST_F(ZephylTest, TheDefaultTextComesFromTheSettingsBundleInTheUsersLanguage) {
  const std::string bundle = "/System/Library/PreferenceBundles/ZephylsSettings.bundle";
  device_.files().put(bundle + "/de.lproj/Localizable.strings",
                      std::string("\"") + kDefaultText + "\" = \"Geschützt.\";\n");
  device_.processInfo().setPreferredLanguages({"de-AT"});
  EXPECT_EQ(made(GroupBuilder(1, "A"))->maskedMessage(), "Geschützt.");
}

TEST_F(ZephylTest, WithoutTheSettingsBundleTheDefaultTextComesFromTheMainBundle) {
  device_.files().put("/Applications/MobileSMS.app/en.lproj/Localizable.strings",
                      std::string("\"") + kDefaultText + "\" = \"From the app.\";\n");
  EXPECT_EQ(made(GroupBuilder(1, "A"))->maskedMessage(), "From the app.");
  // The settings bundle is asked alone once it is there, even when it has no such text.
  device_.files().put(
      "/System/Library/PreferenceBundles/ZephylsSettings.bundle/en.lproj/Localizable.strings", "");
  EXPECT_EQ(made(GroupBuilder(1, "A"))->maskedMessage(), kDefaultText);
}

TEST_F(ZephylTest, TheDefaultTextBecomesTheGroupsOwnOnceItIsWritten) {
  const auto stored = made(GroupBuilder(1, "A"))->dictionaryRepresentation();
  EXPECT_EQ(stored[keys::kMaskedMessage], Value(kDefaultText));
  device_.files().put(
      "/System/Library/PreferenceBundles/ZephylsSettings.bundle/en.lproj/Localizable.strings",
      std::string("\"") + kDefaultText + "\" = \"Another text.\";\n");
  EXPECT_EQ(made(stored)->maskedMessage(), kDefaultText);
}

TEST_F(ZephylTest, WithBiometricsTheProtectionIsAsStored) {
  EXPECT_TRUE(made(Zephyl::allMessagesDictionaryRepresenation())->isPasswordProtected());
  EXPECT_FALSE(made(GroupBuilder(1, "A"))->isPasswordProtected());
}

TEST_F(ZephylTest, WithoutBiometricsTheProtectionIsClearedForGood) {
  device_.authentication().setAvailable(false);
  const auto group = made(Zephyl::allMessagesDictionaryRepresenation());
  EXPECT_FALSE(group->isPasswordProtected());
  device_.authentication().setAvailable(true);
  EXPECT_FALSE(group->isPasswordProtected());
  EXPECT_EQ(group->dictionaryRepresentation()[keys::kPasswordProtected], Value(false));
}

TEST_F(ZephylTest, WritingADictionaryWithoutBiometricsClearsTheProtectionToo) {
  device_.authentication().setAvailable(false);
  const auto group = made(Zephyl::allMessagesDictionaryRepresenation());
  EXPECT_EQ(group->dictionaryRepresentation()[keys::kPasswordProtected], Value(false));
  device_.authentication().setAvailable(true);
  EXPECT_FALSE(group->isPasswordProtected());
}

TEST_F(ZephylTest, TheDescriptionIsThatOfTheDictionary) {
  const auto group = made(GroupBuilder(7, "Work").with(keys::kCreatedDate, Date{0}));
  EXPECT_NE(group->description().find("title = Work"), std::string::npos) << group->description();
  EXPECT_NE(group->description().find("identifier = 7"), std::string::npos);
}

class HeaderImageTest : public ZephylTest {
 protected:
  void answerWith(Value data) {
    device_.messagingCenter().setAnswer("ZephylsServiceMessageData", [data](const Dictionary*) {
      return Dictionary{{"ZephylsServiceMessageData", data}};
    });
  }
  std::size_t requests() { return device_.messagingCenter().sent().size(); }
};

TEST_F(HeaderImageTest, ThePathIsThatOfThePicturesDirectory) {
  EXPECT_EQ(made(GroupBuilder(7, "A").with(keys::kHeaderImagePath, "7.png"))->headerImage(),
            nullptr);
  const auto sent = device_.messagingCenter().sent();
  ASSERT_EQ(sent.size(), 1U);
  EXPECT_EQ(sent[0].center, "com.vantor.zephyls");
  EXPECT_EQ(sent[0].name, "ZephylsServiceMessageData");
  EXPECT_EQ((*sent[0].userInfo)["ZephylsServiceMessageData"],
            Value("/var/mobile/Library/Preferences/Zephyls/7.png"));
}

TEST_F(HeaderImageTest, TheNameIsJoinedAsAPathComponent) {
  for (const char* name : {"/7.png", "7.png/", "//7.png"}) {
    EXPECT_EQ(made(GroupBuilder(7, "A").with(keys::kHeaderImagePath, name))->headerImage(),
              nullptr);
    EXPECT_EQ((*device_.messagingCenter().sent().back().userInfo)["ZephylsServiceMessageData"],
              Value("/var/mobile/Library/Preferences/Zephyls/7.png"));
  }
}

TEST_F(HeaderImageTest, AGroupWithoutAPictureAsksWithAnEmptyPathEachTime) {
  for (const char* version : {"6.1", "11.4", "14.0"}) {
    device_.device().setSystemVersion(version);
    const std::size_t before = requests();
    const auto group = made(GroupBuilder(7, "A"));
    EXPECT_EQ(group->headerImage(), nullptr);
    EXPECT_EQ(group->headerImage(), nullptr);
    ASSERT_EQ(requests(), before + 2);
    EXPECT_EQ((*device_.messagingCenter().sent().back().userInfo)["ZephylsServiceMessageData"],
              Value(""));
  }
}

TEST_F(HeaderImageTest, APictureIsAskedForOnceAndKept) {
  answerWith(Value(archivedImage(UIImage(Data{1, 2, 3}))));
  const auto group = made(GroupBuilder(7, "A").with(keys::kHeaderImagePath, "7.png"));
  ASSERT_NE(group->headerImage(), nullptr);
  EXPECT_EQ(group->headerImage()->file(), (Data{1, 2, 3}));
  EXPECT_EQ(requests(), 1U);
}

TEST_F(HeaderImageTest, AReplyThatIsNoArchiveGivesNoPicture) {
  for (const Value& answer : {Value("text"), Value(Data{1, 2, 3}), Value(false)}) {
    answerWith(answer);
    EXPECT_EQ(made(GroupBuilder(7, "A"))->headerImage(), nullptr);
  }
}

}  // namespace
}  // namespace zephyl
