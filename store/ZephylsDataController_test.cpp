#include "store/ZephylsDataController.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "store/StoreTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;
using test::StoreTest;

TEST_F(StoreTest, TheSharedStoreIsMadeOnceAndLoaded) {
  putGroups({GroupBuilder(1, "Work"), GroupBuilder(2, "Family")});
  const auto store = ZephylsDataController::sharedInstance();
  EXPECT_EQ(titles(*store->allZephyls()->snapshot()), (Titles{"Work", "Family"}));
  EXPECT_EQ(ZephylsDataController::sharedInstance(), store);
  EXPECT_EQ(device_.files().readsOf(kGroupsFile), 1);
}

TEST_F(StoreTest, WithoutAFileTheStoreIsEmpty) {
  const auto store = ZephylsDataController::sharedInstance();
  EXPECT_EQ(store->getAllGroups(), std::nullopt);
  EXPECT_TRUE(store->allZephyls()->empty());
}

TEST_F(StoreTest, AFileThatIsNoArrayReadsAsNone) {
  for (const char* content : {"", "rubbish", "<plist><dict/></plist>", "<plist><array>"}) {
    device_.files().put(kGroupsFile, content);
    EXPECT_EQ(store()->getAllGroups(), std::nullopt) << content;
  }
  putGroups({GroupBuilder(1, "Work")});
  device_.files().failReading(kGroupsFile);
  EXPECT_EQ(store()->getAllGroups(), std::nullopt);
}

TEST_F(StoreTest, BinaryFilesAreReadToo) {
  const Data bytes = writeBinaryPropertyList(Value(Array{Dictionary(GroupBuilder(1, "Work"))}));
  device_.files().put(kGroupsFile, std::string(bytes.begin(), bytes.end()));
  EXPECT_EQ(titles(*store()->allZephyls()->snapshot()), Titles{"Work"});
}

TEST_F(StoreTest, ElementsThatAreNoDictionariesAreNoGroups) {
  putGroups({5, GroupBuilder(1, "Work"), "text", Array{}});
  EXPECT_EQ(titles(*store()->allZephyls()->snapshot()), Titles{"Work"});
}

TEST_F(StoreTest, OnlyEnabledUserGroupsLoadTheirConversationsAndTheActiveOneAtOnce) {
  device_.conversationList().setConversations({fake::chat("a", {fake::known(1)})});
  putGroups({GroupBuilder(1, "Background"), GroupBuilder(2, "Active").active(),
             GroupBuilder(3, "Disabled").disabled(), GroupBuilder(4, "All").system(1)});
  const auto groups = *store()->allZephyls()->snapshot();
  EXPECT_EQ(groups[0]->conversations(), nullptr);
  EXPECT_NE(groups[1]->conversations(), nullptr);
  device_.dispatch().runGlobal();
  EXPECT_NE(groups[0]->conversations(), nullptr);
  EXPECT_EQ(groups[2]->conversations(), nullptr);
  EXPECT_EQ(groups[3]->conversations(), nullptr);
}

TEST_F(StoreTest, TheActiveGroupLoadsWhileTheListEndsWithIt) {
  Titles seen;
  device_.conversationList().setConversations({fake::chat("a", {fake::known(1)})});
  device_.conversationList().setShows([&](const ZephylRef&, const CKConversationRef&) {
    seen = titles(*store()->allZephyls()->snapshot());
    return true;
  });
  putGroups({GroupBuilder(1, "A"), GroupBuilder(2, "Active").active(), GroupBuilder(3, "C")});
  EXPECT_EQ(store()->allZephyls()->size(), 3U);
  EXPECT_EQ(seen, (Titles{"A", "Active"}));
  EXPECT_EQ(device_.dispatch().waitingGlobal(), 2U);
}

TEST_F(StoreTest, ReloadingReplacesTheWholeList) {
  putGroups({GroupBuilder(1, "Work")});
  const auto before = store()->allZephyls();
  const auto group = before->snapshot()->front();
  putGroups({GroupBuilder(1, "Work"), GroupBuilder(2, "New")});
  store()->reloadAllZephyls();
  EXPECT_EQ(titles(*store()->allZephyls()->snapshot()), (Titles{"Work", "New"}));
  EXPECT_NE(store()->allZephyls()->snapshot()->front(), group);
  EXPECT_TRUE(before->empty());
}

struct Path {
  const char* version;
  const char* process;
  bool throughMessages;
};

TEST_F(StoreTest, OnlyOutsideTheShellFromTwelveOnGroupsTravelByMessage) {
  for (const Path& path : {Path{"11.4", "com.apple.MobileSMS", false},
                           {"11.4", "com.apple.springboard", false},
                           {"12.0", "com.apple.MobileSMS", true},
                           {"13.3", "com.apple.MobileSMS", true},
                           {"13.3", "com.apple.springboard", false}}) {
    device_.restartProcess();
    device_.device().setSystemVersion(path.version);
    device_.processInfo().setBundleIdentifier(path.process);
    const auto messages = device_.messagingCenter().sent().size();
    const int writes = device_.files().writesOf(kGroupsFile);
    EXPECT_EQ(store()->saveGroupsDataToDisk({}), !path.throughMessages);
    EXPECT_EQ(device_.messagingCenter().sent().size() - messages, path.throughMessages ? 2U : 0U);
    EXPECT_EQ(device_.files().writesOf(kGroupsFile) - writes, path.throughMessages ? 0 : 1);
  }
}

class MessagesTest : public StoreTest {
 protected:
  MessagesTest() { device_.device().setSystemVersion("13.3"); }

  void answer(const char* message, const Value& value) {
    device_.messagingCenter().setAnswer(message, [value](const Dictionary*) {
      return Dictionary{{"ZephylsServiceMessageData", value}};
    });
  }
};

TEST_F(MessagesTest, GroupsAreAskedForWithoutUserInfo) {
  answer("com.vantor.zephyls.groups.get", Array{Dictionary(GroupBuilder(1, "Work"))});
  EXPECT_EQ(titles(*store()->allZephyls()->snapshot()), Titles{"Work"});
  const auto sent = device_.messagingCenter().sent();
  ASSERT_EQ(sent.size(), 1U);
  EXPECT_EQ(sent[0].center, "com.vantor.zephyls");
  EXPECT_EQ(sent[0].name, "com.vantor.zephyls.groups.get");
  EXPECT_EQ(sent[0].userInfo, std::nullopt);
}

TEST_F(MessagesTest, NoReplyReadsAsNoGroupsAndAsAFailedSave) {
  EXPECT_EQ(store()->getAllGroups(), std::nullopt);
  EXPECT_FALSE(store()->saveGroupsDataToDisk({}));
}

TEST_F(MessagesTest, AReplyThatIsNoArrayReadsAsNoGroups) {
  for (const Value& reply :
       {Value("text"), Value(7), Value(Dictionary(GroupBuilder(1, "Work"))), Value(Data{1})}) {
    answer("com.vantor.zephyls.groups.get", reply);
    EXPECT_EQ(store()->getAllGroups(), std::nullopt);
    store()->reloadAllZephyls();
    EXPECT_TRUE(store()->allZephyls()->empty());
  }
}

TEST_F(MessagesTest, ASaveSendsTheWholeListAndTakesTheAnswer) {
  const Array groups{Dictionary(GroupBuilder(1, "Work"))};
  for (const auto& [reply, saved] :
       {std::pair<Value, bool>{true, true}, {false, false}, {1, true}}) {
    answer("com.vantor.zephyls.groups.save", reply);
    EXPECT_EQ(store()->saveGroupsDataToDisk(groups), saved);
    const auto last = device_.messagingCenter().sent().back();
    EXPECT_EQ(last.name, "com.vantor.zephyls.groups.save");
    EXPECT_EQ((*last.userInfo)["ZephylsServiceMessageData"], Value(groups));
  }
}

TEST_F(StoreTest, SavingWritesEveryGroupInStoreOrder) {
  putGroups({GroupBuilder(2, "B"), GroupBuilder(1, "A")});
  EXPECT_TRUE(store()->saveAllGroupsToDisk(nullptr, false, kZephylChangedNotification));
  EXPECT_EQ(storedTitles(), (Titles{"B", "A"}));
}

TEST_F(StoreTest, SavingPostsOnlyAfterSuccessAndOnRequest) {
  putGroups({GroupBuilder(1, "A")});
  const auto group = store()->allZephyls()->snapshot()->front();
  watch(kZephylChangedNotification);

  EXPECT_TRUE(
      store()->saveAllGroupsToDisk(group, /*postNotification=*/false, kZephylChangedNotification));
  EXPECT_TRUE(notifications_.empty());

  device_.files().failWriting(kGroupsFile);
  EXPECT_FALSE(store()->saveAllGroupsToDisk(group, true, kZephylChangedNotification));
  EXPECT_TRUE(notifications_.empty());
  EXPECT_TRUE(device_.darwinNotifications().posted().empty());

  device_.files().failWriting(kGroupsFile, false);
  EXPECT_TRUE(store()->saveAllGroupsToDisk(group, true, kZephylChangedNotification));
  ASSERT_EQ(notifications_.size(), 1U);
  EXPECT_EQ(std::any_cast<ZephylRef>(notifications_[0].userInfo.at("zephyls")), group);
  EXPECT_EQ(device_.darwinNotifications().posted(),
            (std::vector<std::string>{"com.vantor.ZephylChangedNotification"}));

  EXPECT_TRUE(store()->saveAllGroupsToDisk(nullptr, true, kZephylChangedNotification));
  ASSERT_EQ(notifications_.size(), 2U);
  EXPECT_TRUE(notifications_[1].userInfo.empty());
}

TEST_F(StoreTest, SavingMarksEnabledGroupsStaleWhateverItGave) {
  putGroups({GroupBuilder(1, "A").hiding(), GroupBuilder(2, "B").disabled()});
  const auto groups = *store()->allZephyls()->snapshot();
  for (const ZephylRef& group : groups) {
    group->setRequiresUpdateForUnReadCount(false);
  }
  device_.files().failWriting(kGroupsFile);
  EXPECT_FALSE(store()->saveAllGroupsToDisk(nullptr, true, kZephylChangedNotification));
  EXPECT_TRUE(groups[0]->requiresUpdateForUnReadCount());
  EXPECT_FALSE(groups[1]->requiresUpdateForUnReadCount());
}

TEST_F(StoreTest, SavingNewGroupsDoesNothingWithoutAny) {
  watch(kZephylAddedNotification);
  EXPECT_FALSE(store()->saveAllNewGroupsToDisk({}, true, kZephylAddedNotification));
  EXPECT_TRUE(notifications_.empty());
  EXPECT_EQ(device_.files().writesOf(kGroupsFile), 0);
}

TEST_F(StoreTest, SavingNewGroupsPostsWhateverHappens) {
  watch(kZephylAddedNotification);
  putGroups({GroupBuilder(1, "A")});
  const auto old = store()->allZephyls()->snapshot()->front();
  old->setRequiresUpdateForUnReadCount(false);
  device_.files().failWriting(kGroupsFile);
  EXPECT_FALSE(store()->saveAllNewGroupsToDisk({made(GroupBuilder(2, "B").hiding())},
                                               /*postNotification=*/false,
                                               kZephylAddedNotification));
  ASSERT_EQ(notifications_.size(), 1U);
  EXPECT_TRUE(notifications_[0].userInfo.empty());
  EXPECT_EQ(device_.darwinNotifications().posted().size(), 1U);
  EXPECT_EQ(titles(*store()->allZephyls()->snapshot()), (Titles{"A", "B"}));
  EXPECT_TRUE(store()->isAnyOfGroupHasHideConversationsEnabled());
  EXPECT_FALSE(old->requiresUpdateForUnReadCount());

  device_.files().failWriting(kGroupsFile, false);
  EXPECT_TRUE(store()->saveAllNewGroupsToDisk({made(GroupBuilder(3, "C"))}, true,
                                              kZephylAddedNotification));
  EXPECT_EQ(storedTitles(), (Titles{"A", "B", "C"}));
}

TEST_F(StoreTest, TheSettingsBundleIsAskedForUntilItIsThere) {
  EXPECT_EQ(store()->zephylsBundle(), nullptr);
  device_.files().put(
      "/System/Library/PreferenceBundles/ZephylsSettings.bundle/en.lproj/Localizable.strings", "");
  const auto bundle = store()->zephylsBundle();
  ASSERT_NE(bundle, nullptr);
  EXPECT_EQ(store()->zephylsBundle(), bundle);
}

TEST_F(StoreTest, AStoreThatIsGoneObservesNothing) {
  auto gone = std::make_shared<ZephylsDataController>();
  const auto center = NSNotificationCenter::defaultCenter();
  int calls = 0;
  center->addObserver(gone.get(), "news", [&](const NSNotification&) { ++calls; });
  center->postNotificationName("news");
  EXPECT_EQ(calls, 1);
  gone.reset();
  center->postNotificationName("news");
  EXPECT_EQ(calls, 1);
}

TEST_F(StoreTest, FixingContactsDoesNothing) {
  putGroups({GroupBuilder(1, "A").members({1, "x"})});
  store()->fixContactsInZephyls();
  EXPECT_EQ(store()->allZephyls()->snapshot()->front()->contacts()->size(), 2U);
  EXPECT_EQ(device_.files().writesOf(kGroupsFile), 0);
}

}  // namespace
}  // namespace zephyl
