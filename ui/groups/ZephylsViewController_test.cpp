// The list of groups: what it is for, its bar, its sections, and how it is made anew.

#include "ui/groups/ZephylsViewController.h"

#include <optional>
#include <string>
#include <vector>

#include "model/ZPLocalizedText.h"
#include "ui/editor/ZephylViewController.h"
#include "ui/groups/GroupListTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;
using Item = UIBarButtonSystemItem;

class GroupListScreenTest : public test::GroupListTest {
 protected:
  static const Array& someGroups() {
    static const Array kGroups = {GroupBuilder(1, "Work"), system(2, "Known"),
                                  GroupBuilder(3, "family"), GroupBuilder(4, "Off").disabled(),
                                  system(5, "All")};
    return kGroups;
  }
  static std::int64_t modeOf(const ZephylsViewController& screen) { return screen.zephylsMode(); }
};

TEST_F(GroupListScreenTest, WhatIsGivenDecidesWhatTheListIsFor) {
  const auto style = UITableViewStyle::kPlain;
  const auto chat = fake::chat("a", {fake::known(1)});
  const auto person = std::make_shared<ZPRecipient>(CKEntity(fake::known(1), "Ann"));
  EXPECT_EQ(modeOf(ZephylsViewController(style)), 0);
  EXPECT_EQ(modeOf(ZephylsViewController(style, chat)), 2);
  EXPECT_EQ(modeOf(ZephylsViewController(style, CKConversationRef())), 0);
  EXPECT_EQ(modeOf(ZephylsViewController(style, CKConversationArray{chat})), 2);
  EXPECT_EQ(modeOf(ZephylsViewController(style, CKConversationArray())), 2);
  EXPECT_EQ(modeOf(ZephylsViewController(style, std::optional<CKConversationArray>())), 0);
  EXPECT_EQ(modeOf(ZephylsViewController(style, ZPRecipientArray{person})), 2);
  EXPECT_EQ(modeOf(ZephylsViewController(style, ZPRecipientArray())), 0);
  EXPECT_EQ(modeOf(ZephylsViewController(style, std::optional<ZPRecipientArray>())), 0);
}

TEST_F(GroupListScreenTest, BrowsingBarBefore13) {
  for (const char* version : {"6.1", "8.0", "9.3", "11.4", "12.4"}) {
    start(version, someGroups());
    present(ZephylsModeBrowse);
    EXPECT_EQ(screen_->title(), "Zephyls") << version;
    ASSERT_EQ(bar().leftBarButtonItems().size(), 1U) << version;
    EXPECT_EQ(left().systemItem(), Item::kAdd) << version;
    ASSERT_EQ(bar().rightBarButtonItems().size(), 1U) << version;
    EXPECT_EQ(right().systemItem(), std::nullopt) << version;
    EXPECT_EQ(right().style(), UIBarButtonItemStyle::kDone) << version;
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(GroupListScreenTest, BrowsingBarFrom13On) {
  for (const char* version : {"13.0", "14.2"}) {
    start(version, someGroups());
    present(ZephylsModeBrowse);
    ASSERT_EQ(bar().leftBarButtonItems().size(), 1U);
    EXPECT_EQ(left().systemItem(), Item::kCancel);
    ASSERT_EQ(bar().rightBarButtonItems().size(), 2U);
    EXPECT_EQ(right().style(), UIBarButtonItemStyle::kDone);
    EXPECT_EQ(right().systemItem(), std::nullopt);
    EXPECT_EQ(bar().rightBarButtonItems().at(1)->systemItem(), Item::kAdd);
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(GroupListScreenTest, TheGroupsButtonShowsThePictureOfTheBundleAndHasAName) {
  start("14.0", someGroups());
  device_.files().put(std::string(kZephylsSettingsBundlePath) + "/users_group.png", "picture");
  present(ZephylsModeBrowse);
  ASSERT_NE(right().image(), nullptr);
  const Data file = right().image()->file();
  EXPECT_EQ(std::string(file.begin(), file.end()), "picture");
  EXPECT_EQ(right().accessibilityLabel(), "Manage Groups");
}

TEST_F(GroupListScreenTest, ManagingBar) {
  start("14.0", someGroups());
  present(ZephylsModeManage);
  EXPECT_EQ(screen_->title(), "Manage Groups");
  EXPECT_EQ(left().systemItem(), Item::kCancel);
  ASSERT_EQ(bar().rightBarButtonItems().size(), 1U);
  EXPECT_EQ(right().systemItem(), Item::kEdit);
  EXPECT_FALSE(table().allowsMultipleSelectionDuringEditing());
}

TEST_F(GroupListScreenTest, AddingBar) {
  start("14.0", someGroups());
  present(ZephylsModeAddToGroups);
  EXPECT_EQ(screen_->title(), "Add to Groups");
  EXPECT_EQ(left().systemItem(), Item::kCancel);
  ASSERT_EQ(bar().rightBarButtonItems().size(), 2U);
  EXPECT_EQ(right().systemItem(), Item::kDone);
  EXPECT_FALSE(right().isEnabled());
  EXPECT_EQ(bar().rightBarButtonItems().at(1)->systemItem(), Item::kAdd);
}

TEST_F(GroupListScreenTest, APushedScreenHasNoCancelButtonToManageOrAdd) {
  start("14.0", someGroups());
  for (const auto mode : {ZephylsModeManage, ZephylsModeAddToGroups}) {
    const auto screen = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain);
    screen->setZephylsMode(mode);
    screen->setIsViewPushed(true);
    static_cast<void>(screen->view());
    EXPECT_TRUE(screen->navigationItem()->leftBarButtonItems().empty()) << mode;
  }
}

TEST_F(GroupListScreenTest, TheTitlesAreLocalized) {
  start("14.0", someGroups());
  device_.files().put(std::string(kZephylsSettingsBundlePath) + "/en.lproj/Localizable.strings",
                      "\"Zephyls\" = \"Gruppen\";");
  present(ZephylsModeBrowse);
  EXPECT_EQ(screen_->title(), "Gruppen");
}

TEST_F(GroupListScreenTest, BrowsingShowsEnabledGroupsInBothSections) {
  start("14.0", someGroups());
  present(ZephylsModeBrowse);
  EXPECT_EQ(screen_->zephylsTitles(), (SectionKeys{"Default", "User"}));
  EXPECT_EQ(titles(0), (Words{"All", "Known"}));
  EXPECT_EQ(titles(1), (Words{"family", "Work"}));
  EXPECT_EQ(screen_->zephylsDict().at("User").size(), 2U);
}

TEST_F(GroupListScreenTest, ManagingShowsDisabledGroupsToo) {
  start("14.0", someGroups());
  present(ZephylsModeManage);
  EXPECT_EQ(titles(0), (Words{"All", "Known"}));
  EXPECT_EQ(titles(1), (Words{"family", "Off", "Work"}));
}

TEST_F(GroupListScreenTest, AddingShowsEnabledUserGroupsWithoutAHeader) {
  start("14.0", someGroups());
  present(ZephylsModeAddToGroups);
  EXPECT_EQ(table().numberOfSections(), 1);
  EXPECT_EQ(titles(0), (Words{"family", "Work"}));
  EXPECT_EQ(screen_->titleForHeaderInSection(table(), 0), "");
  EXPECT_EQ(table().rectForHeaderInSection(0).height(), 0);
}

TEST_F(GroupListScreenTest, HeadersAreTheKeysInEveryLanguage) {
  start("14.0", someGroups());
  device_.files().put(std::string(kZephylsSettingsBundlePath) + "/en.lproj/Localizable.strings",
                      "\"Default\" = \"Standard\"; \"User\" = \"Eigene\";");
  for (const auto mode : {ZephylsModeBrowse, ZephylsModeManage}) {
    present(mode);
    EXPECT_EQ(screen_->titleForHeaderInSection(table(), 0), "Default");
    EXPECT_EQ(screen_->titleForHeaderInSection(table(), 1), "User");
    EXPECT_GT(table().rectForHeaderInSection(0).height(), 0);
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(GroupListScreenTest, RowsAre44PointsHighAndTheGridIsOff) {
  start("14.0", someGroups());
  const auto screen = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain);
  screen->setShouldShowAsGrid(true);
  present(screen);
  EXPECT_FALSE(screen->shouldShowAsGrid());
  EXPECT_EQ(table().rowHeight(), 44);
  EXPECT_NE(std::dynamic_pointer_cast<ZephylsManageTableViewCell>(cell({0, 0})), nullptr);
}

TEST_F(GroupListScreenTest, UserGroupsAreSortedAsTheSettingsSay) {
  const auto date = [](double seconds) { return Date{seconds}; };
  const Array groups = {GroupBuilder(1, "b").with(keys::kCreatedDate, date(1)),
                        GroupBuilder(2, "A").with(keys::kCreatedDate, date(3)),
                        GroupBuilder(3, "c").with(keys::kCreatedDate, date(2)), system(4, "z"),
                        system(5, "Y")};
  struct Case {
    std::int64_t by;
    std::int64_t order;
    Words expected;
  };
  for (const Case& one : {Case{0, 0, {"A", "b", "c"}},
                          {0, 1, {"c", "b", "A"}},
                          {1, 0, {"b", "c", "A"}},
                          {1, 1, {"A", "c", "b"}},
                          {2, -1, {"A", "c", "b"}}}) {
    start("14.0", groups,
          {{settings_keys::kSortBy, one.by}, {settings_keys::kSortOrder, one.order}});
    present(ZephylsModeBrowse);
    EXPECT_EQ(titles(1), one.expected) << one.by << " " << one.order;
    EXPECT_EQ(titles(0), (Words{"Y", "z"})) << one.by << " " << one.order;
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(GroupListScreenTest, WithoutGroupsTheListIsEmpty) {
  start("11.4", {});
  present(ZephylsModeBrowse);
  EXPECT_EQ(table().numberOfSections(), 0);
}

TEST_F(GroupListScreenTest, AddingAGroupIsTheDelegatesFirst) {
  start("14.0", someGroups());
  int asked = 0;
  delegate_->zp__addNewGroup = [&] { ++asked; };
  present(ZephylsModeBrowse);
  screen_->addGroupAction();
  settle();
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(screen_->presentedViewController(), nullptr);
}

TEST_F(GroupListScreenTest, WithoutTheDelegateTheEditorOpensForANewGroup) {
  start("14.0", someGroups());
  present(ZephylsModeAddToGroups);
  press(*bar().rightBarButtonItems().at(1));
  const auto navigation = std::dynamic_pointer_cast<UINavigationController>(
      screen_->navigationController()->presentedViewController());
  ASSERT_NE(navigation, nullptr);
  const auto editor =
      std::dynamic_pointer_cast<ZephylViewController>(navigation->viewControllers().at(0));
  ASSERT_NE(editor, nullptr);
  EXPECT_TRUE(editor->isNewGroup());
}

TEST_F(GroupListScreenTest, ManagingAllGroupsIsTheDelegates) {
  start("14.0", someGroups());
  int asked = 0;
  delegate_->zp__manageAllGroups = [&] { ++asked; };
  present(ZephylsModeBrowse);
  press(right());
  EXPECT_EQ(asked, 1);
  delegate_->zp__manageAllGroups = nullptr;
  press(right());
  EXPECT_EQ(asked, 1);
}

TEST_F(GroupListScreenTest, CancelClosesTheScreenAndThenRunsTheAction) {
  start("14.0", someGroups());
  present(ZephylsModeManage);
  bool wasClosed = false;
  screen_->setDismissAction([&] { wasClosed = isClosed(); });
  EXPECT_TRUE(left().performAction());
  EXPECT_FALSE(isClosed());
  settle();
  EXPECT_TRUE(isClosed());
  EXPECT_TRUE(wasClosed);
}

TEST_F(GroupListScreenTest, CancelWithoutAnActionOnlyCloses) {
  start("14.0", someGroups());
  present(ZephylsModeBrowse);
  press(left());
  EXPECT_TRUE(isClosed());
}

TEST_F(GroupListScreenTest, ADelegateThatHasGoneIsNotAsked) {
  start("14.0", someGroups());
  delegate_->zp__addNewGroup = [] { ADD_FAILURE(); };
  present(ZephylsModeBrowse);
  delegate_ = nullptr;
  screen_->zp__manageAllGroups();
  tapRow({1, 0});
  EXPECT_EQ(screen_->zephylsMode(), ZephylsModeBrowse);
}

}  // namespace
}  // namespace zephyl
