// What edits say when they fail, and what is left behind then.

#include <string>

#include <gtest/gtest.h>

#include "model/ZPLocalizedText.h"
#include "store/EditingTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

class EditingFailuresTest : public test::EditingTest {
 protected:
  // The user info of the only error, which came from this process.
  [[nodiscard]] Dictionary told() const {
    EXPECT_EQ(log_, Words{"failure"});
    EXPECT_EQ(errors_.size(), 1U);
    EXPECT_EQ(errors_.at(0).domain(), "com.apple.MobileSMS");
    EXPECT_EQ(errors_.at(0).code(), 1);
    return errors_.at(0).userInfo();
  }
  static Dictionary texts(const char* description, const char* reason, const char* suggestion) {
    return {{"NSLocalizedDescription", description},
            {"NSLocalizedFailureReason", reason},
            {"NSLocalizedRecoverySuggestion", suggestion}};
  }
  static Dictionary description(const char* text) { return {{"NSLocalizedDescription", text}}; }

  // Nothing was loaded, saved or posted.
  void expectNoEffect() {
    EXPECT_EQ(device_.dispatch().waitingGlobal(), 0U);
    EXPECT_EQ(saves(), 0);
    EXPECT_EQ(posted(), Words());
    EXPECT_TRUE(notifications_.empty());
  }
};

TEST_F(EditingFailuresTest, AnIdentifierIsAddedOnlyOnce) {
  putGroups({GroupBuilder(1, "A").system(1), GroupBuilder(2, "B").system(2)});
  const auto before = *store()->allZephyls()->snapshot();
  watch(kZephylAddedNotification);
  store()->addZephyl(made(GroupBuilder(1, "New")), success(), failure());
  EXPECT_EQ(told(), texts("Unable to add group.", "Group identifier already exist.",
                          "Change group identifier and try again."));
  EXPECT_EQ(*store()->allZephyls()->snapshot(), before);
  expectNoEffect();
}

TEST_F(EditingFailuresTest, AGroupThatIsNotStoredIsNotUpdatedButStamped) {
  putGroups({GroupBuilder(1, "A").system(1)});
  EXPECT_EQ(listed(), Titles{"A"});
  watch(kZephylChangedNotification);
  const auto group = made(GroupBuilder(2, "B"));
  store()->updateZephyl(group, success(), failure());
  EXPECT_EQ(told(), texts("Unable to update group.",
                          "Trying to update a group that is not yet saved to disk.",
                          "Is Group saved to disk?"));
  EXPECT_EQ(group->updatedDate(), Date::since1970(kNow));
  EXPECT_EQ(listed(), Titles{"A"});
  expectNoEffect();
}

TEST_F(EditingFailuresTest, AGroupThatIsNotStoredIsNotDeletedButStamped) {
  putGroups({GroupBuilder(1, "A").system(1)});
  EXPECT_EQ(listed(), Titles{"A"});
  watch(kZephylDeletedNotification);
  const auto group = made(GroupBuilder(2, "B"));
  store()->deleteZephyl(group, success(), failure());
  EXPECT_EQ(told(),
            texts("Unable to delete group.", "Trying to delete a group that is not yet available.",
                  "Is Group saved to disk?"));
  EXPECT_EQ(group->updatedDate(), Date::since1970(kNow));
  EXPECT_EQ(listed(), Titles{"A"});
  expectNoEffect();
}

// The same row is run with a file that cannot be written and with a shell that says no.
struct FailingSave {
  const char* name;
  void (*edit)(ZephylsDataController&, const ZephylsDataController::Success&,
               const ZephylsDataController::Failure&);
  const char* description;
  std::vector<std::string> left;
};

std::ostream& operator<<(std::ostream& out, const FailingSave& row) {
  return out << row.name;
}

class FailingSaveTest : public EditingFailuresTest,
                        public ::testing::WithParamInterface<FailingSave> {
 protected:
  FailingSaveTest() {
    startWith({GroupBuilder(1, "A"), GroupBuilder(2, "B")});
    for (const char* name :
         {kZephylAddedNotification, kZephylChangedNotification, kZephylDeletedNotification}) {
      watch(name);
    }
  }

  void runAndExpectFailure() {
    GetParam().edit(*store(), success(), failure());
    EXPECT_EQ(told(), description(GetParam().description));
    EXPECT_EQ(listed(), GetParam().left);
    EXPECT_EQ(storedTitles(), (Titles{"A", "B"}));
    EXPECT_TRUE(notifications_.empty());
    EXPECT_EQ(posted(), Words());
  }
};

TEST_P(FailingSaveTest, AFileThatCannotBeWrittenLeavesTheListChanged) {
  device_.files().failWriting(kGroupsFile);
  runAndExpectFailure();
  EXPECT_EQ(saves(), 1);
}

TEST_P(FailingSaveTest, ANoOfTheShellLeavesTheListChanged) {
  device_.device().setSystemVersion("13.3");
  device_.messagingCenter().setAnswer(kSaveGroupsMessage, [](const Dictionary*) {
    return Dictionary{{kServiceMessageData, false}};
  });
  runAndExpectFailure();
  EXPECT_EQ(device_.messagingCenter().sent().size(), 1U);
}

TEST_P(FailingSaveTest, NoReplyOfTheShellLeavesTheListChanged) {
  device_.device().setSystemVersion("13.3");
  runAndExpectFailure();
}

// Nothing is rolled back, so that nothing is lost either.
TEST_P(FailingSaveTest, TheNextSaveThatWorksWritesTheChange) {
  device_.files().failWriting(kGroupsFile);
  GetParam().edit(*store(), nullptr, nullptr);
  device_.files().failWriting(kGroupsFile, false);
  EXPECT_TRUE(store()->saveAllGroupsToDisk(nullptr, false, kZephylChangedNotification));
  EXPECT_EQ(storedTitles(), GetParam().left);
}

using Store = ZephylsDataController;
using Success = ZephylsDataController::Success;
using Failure = ZephylsDataController::Failure;

INSTANTIATE_TEST_SUITE_P(
    Edits, FailingSaveTest,
    ::testing::Values(FailingSave{"Add",
                                  [](Store& store, const Success& success, const Failure& failure) {
                                    store.addZephyl(std::make_shared<Zephyl>(GroupBuilder(3, "C")),
                                                    success, failure);
                                  },
                                  "Unable to save groups to disk.",
                                  {"A", "B", "C"}},
                      FailingSave{"Update",
                                  [](Store& store, const Success& success, const Failure& failure) {
                                    store.updateZephyl(
                                        std::make_shared<Zephyl>(GroupBuilder(2, "New")), success,
                                        failure);
                                  },
                                  "Unable to save groups to disk.",
                                  {"A", "New"}},
                      FailingSave{"Delete",
                                  [](Store& store, const Success& success, const Failure& failure) {
                                    store.deleteZephyl(
                                        std::make_shared<Zephyl>(GroupBuilder(2, "B")), success,
                                        failure);
                                  },
                                  "Unable to remove and save groups to disk.",
                                  {"A"}},
                      FailingSave{"DeleteSeveral",
                                  [](Store& store, const Success& success, const Failure& failure) {
                                    store.deleteZephyls(
                                        {std::make_shared<Zephyl>(GroupBuilder(1, "A"))}, success,
                                        failure);
                                  },
                                  "Unable to remove and save groups to disk.",
                                  {"B"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(EditingFailuresTest, AFailurePassesSilentlyWithoutACallback) {
  store()->updateZephyl(made(GroupBuilder(2, "B")), success(), nullptr);
  store()->deleteZephyl(made(GroupBuilder(2, "B")), success(), nullptr);
  EXPECT_EQ(log_, Words());
}

TEST_F(EditingFailuresTest, TheDomainIsTheProcessAndTheTextsAreTranslated) {
  device_.processInfo().setBundleIdentifier("com.apple.springboard");
  device_.processInfo().setPreferredLanguages({"de"});
  device_.files().put(std::string(kZephylsSettingsBundlePath) + "/de.lproj/Localizable.strings",
                      "\"Unable to update group.\" = \"Geht nicht.\";\"Is Group saved to disk?\" = "
                      "\"Liegt sie?\";");
  store()->updateZephyl(made(GroupBuilder(2, "B")), success(), failure());
  ASSERT_EQ(errors_.size(), 1U);
  EXPECT_EQ(errors_[0].domain(), "com.apple.springboard");
  EXPECT_EQ(errors_[0].localizedDescription(), "Geht nicht.");
  EXPECT_EQ(errors_[0].localizedFailureReason(),
            "Trying to update a group that is not yet saved to disk.");
  EXPECT_EQ(errors_[0].localizedRecoverySuggestion(), "Liegt sie?");
}

TEST_F(EditingFailuresTest, ANullGroupIsNeverStored) {
  putGroups({GroupBuilder(1, "A").system(1)});
  EXPECT_EQ(listed(), Titles{"A"});
  store()->addZephyl(nullptr, success(), failure());
  store()->updateZephyl(nullptr, success(), failure());
  store()->deleteZephyl(nullptr, success(), failure());
  store()->updateZephyls({nullptr}, success(), failure());
  EXPECT_EQ(log_, (Words{"failure", "failure", "failure", "failure"}));
  EXPECT_EQ(errors_.at(0).userInfo(), description("Unable to add group."));
  EXPECT_EQ(listed(), Titles{"A"});
  expectNoEffect();

  store()->deleteZephyls({nullptr}, success(), failure());
  EXPECT_EQ(log_.back(), "success");
  EXPECT_EQ(storedTitles(), Titles{"A"});
}

}  // namespace
}  // namespace zephyl
