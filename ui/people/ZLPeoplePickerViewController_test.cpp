// The people picker: how it is set up, loading, and ticking.

#include "ui/people/ZLPeoplePickerViewController.h"

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/controllers/UINavigationBar.h"
#include "platform/uikit/tables/UIRefreshControl.h"

#include "ui/people/PeopleTest.h"

namespace zephyl {
namespace {

using test::PersonBuilder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PeoplePickerTest : public test::PeopleTest {
 protected:
  PeoplePickerTest() {
    device_.people().setPeople({PersonBuilder(1, "Zoe", "Reed").phone("1"),
                                PersonBuilder(2, "Ann", "Reed").phone("2"),
                                PersonBuilder(3, "Bob", "Ash"), PersonBuilder(4).phone("4")});
  }
  void addPerson(const PersonBuilder& person) {
    auto people = device_.people().copyArrayOfAllPeople();
    people.push_back(person);
    device_.people().setPeople(people);
  }
};

TEST_F(PeoplePickerTest, AtFirstPhonesAreAskedForAndPeopleMayBeAdded) {
  const ZLPeoplePickerViewController picker;
  EXPECT_EQ(picker.filedMask(), 8U);
  EXPECT_TRUE(picker.allowAddPeople());
  EXPECT_EQ(picker.numberOfSelectedPeople(), 0);
  EXPECT_EQ(picker.searchController(), nullptr);
  EXPECT_FALSE(picker.searchControllerWasActive());
  EXPECT_FALSE(picker.searchControllerSearchFieldWasFirstResponder());
}

TEST_F(PeoplePickerTest, InitializingLoadsThePeopleOfTheProcess) {
  ZLPeoplePickerViewController::initializeAddressBook();
  EXPECT_EQ(ZLAddressBook::sharedInstance()->contacts(), nullptr);
  settle();
  EXPECT_EQ(ZLAddressBook::sharedInstance()->contacts()->size(), 3U);
}

TEST_F(PeoplePickerTest, ItIsPresentedAloneInANavigationControllerWithDone) {
  present();
  const auto navigation = picker_->navigationController();
  ASSERT_NE(navigation, nullptr);
  EXPECT_EQ(root_->presentedViewController(), navigation);
  EXPECT_THAT(navigation->viewControllers(), ElementsAre(picker_));
  EXPECT_EQ(bar().leftBarButtonItem()->systemItem(), UIBarButtonSystemItem::kDone);
  EXPECT_TRUE(picker_->hasAppeared());
  EXPECT_TRUE(picker_->selectedPeople()->empty());
  EXPECT_THAT(listener_->returned, IsEmpty());
}

TEST_F(PeoplePickerTest, EverybodyWithANameIsListed) {
  present();
  EXPECT_EQ(shown(), "A:Bob Ash R:Ann Reed,Zoe Reed");
  EXPECT_EQ(table().numberOfSections(), 27);
}

TEST_F(PeoplePickerTest, TheTitleIsLocalizedUnlessOneWasSet) {
  device_.files().put("/Applications/MobileSMS.app/de.lproj/Localizable.strings",
                      "\"Contacts\" = \"Kontakte\";");
  device_.processInfo().setPreferredLanguages({"de"});
  present();
  EXPECT_EQ(picker_->title(), "Kontakte");
  const auto other = std::make_shared<ZLPeoplePickerViewController>();
  other->setTitle("Members");
  static_cast<void>(other->view());
  EXPECT_EQ(other->title(), "Members");
}

TEST_F(PeoplePickerTest, AddIsShownWherePeopleMayBeAdded) {
  present();
  EXPECT_EQ(bar().rightBarButtonItem()->systemItem(), UIBarButtonSystemItem::kAdd);
  picker_->setAllowAddPeople(false);
  EXPECT_EQ(bar().rightBarButtonItem(), nullptr);
  const auto other = std::make_shared<ZLPeoplePickerViewController>();
  other->setAllowAddPeople(false);
  static_cast<void>(other->view());
  EXPECT_EQ(other->navigationItem()->rightBarButtonItem(), nullptr);
}

TEST_F(PeoplePickerTest, TheSearchBarIsTheHeaderOfTheTable) {
  present();
  EXPECT_EQ(table().tableHeaderView(), picker_->searchController()->searchBar());
  EXPECT_EQ(searchBar().bounds().size.height, 56);
}

TEST_F(PeoplePickerTest, ItIsASheetFromVersion13OnAndFillsTheScreenBefore) {
  struct Case {
    const char* version;
    CGRect frame;
  };
  for (const Case& each :
       {Case{"12.4", CGRectMake(0, 0, 390, 844)}, Case{"13.0", CGRectMake(0, 57, 390, 787)}}) {
    device_.device().setSystemVersion(each.version);
    present();
    EXPECT_EQ(picker_->navigationController()->view()->frame(), each.frame) << each.version;
    EXPECT_EQ(searchBar().bounds().size, (CGSize{390, 56})) << each.version;
    const UINavigationBar& top = *picker_->navigationController()->navigationBar();
    EXPECT_EQ(searchBar().convertRectToView(searchBar().bounds(), nullptr).y(),
              top.convertRectToView(top.bounds(), nullptr).maxY())
        << each.version;
    root_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(PeoplePickerTest, OnAPadItIsACardInTheMiddle) {
  device_.device().setSystemVersion("13.0");
  device_.device().setUserInterfaceIdiom(UIUserInterfaceIdiom::kPad);
  window_->setFrame(CGRectMake(0, 0, 1024, 768));
  present();
  const CGRect frame = picker_->navigationController()->view()->frame();
  EXPECT_EQ(frame.width(), 704);
  EXPECT_EQ(frame.x(), 160);
  EXPECT_EQ(shown(), "A:Bob Ash R:Ann Reed,Zoe Reed");
  EXPECT_EQ(searchBar().bounds().size.width, 704);
  tapRow("Ann Reed");
  EXPECT_TRUE(isTicked("Ann Reed"));
}

TEST_F(PeoplePickerTest, PeopleOfTheProcessAreShownBeforeAFreshLoadEnds) {
  ZLPeoplePickerViewController::initializeAddressBook();
  settle();
  addPerson(PersonBuilder(9, "Cid"));
  picker_ =
      ZLPeoplePickerViewController::presentPeoplePickerViewControllerForParentViewController(root_);
  window_->layoutWindow();
  EXPECT_EQ(shown(), "A:Bob Ash R:Ann Reed,Zoe Reed");
  settle();
  EXPECT_EQ(shown(), "A:Bob Ash C:Cid R:Ann Reed,Zoe Reed");
}

TEST_F(PeoplePickerTest, WithoutAccessFromTheStartItIsEmptyUntilThereIs) {
  device_.people().setAuthorizationStatus(ABAuthorizationStatus::kDenied);
  present();
  EXPECT_EQ(shown(), "");
  EXPECT_EQ(table().numberOfSections(), 0);
  device_.people().setAuthorizationStatus(ABAuthorizationStatus::kAuthorized);
  device_.people().announceExternalChange();
  settle();
  EXPECT_EQ(shown(), "A:Bob Ash R:Ann Reed,Zoe Reed");
}

TEST_F(PeoplePickerTest, AChangeOfTheAddressBookIsShown) {
  present();
  addPerson(PersonBuilder(9, "Cid"));
  settle();
  EXPECT_EQ(shown(), "A:Bob Ash C:Cid R:Ann Reed,Zoe Reed");
  EXPECT_NE(cellOf(*picker_, "Cid"), nullptr);
}

TEST_F(PeoplePickerTest, ReloadingTellsHowItWent) {
  present();
  std::vector<bool> results;
  picker_->reloadData([&](bool success) { results.push_back(success); });
  settle();
  device_.people().setAuthorizationStatus(ABAuthorizationStatus::kDenied);
  picker_->reloadData([&](bool success) { results.push_back(success); });
  EXPECT_EQ(results.size(), 1U);
  settle();
  EXPECT_THAT(results, ElementsAre(true, false));
  EXPECT_EQ(shown(), "A:Bob Ash R:Ann Reed,Zoe Reed");
}

TEST_F(PeoplePickerTest, RefreshingTurnsTheWheelUntilTheLoadEnds) {
  present();
  const auto wheel = picker_->refreshControl();
  ASSERT_NE(wheel, nullptr);
  wheel->sendActionsForControlEvents(kValueChanged);
  EXPECT_TRUE(wheel->isRefreshing());
  settle();
  EXPECT_FALSE(wheel->isRefreshing());
  device_.people().setAuthorizationStatus(ABAuthorizationStatus::kDenied);
  picker_->refreshControlAction(nullptr);
  EXPECT_TRUE(wheel->isRefreshing());
  settle();
  EXPECT_FALSE(wheel->isRefreshing());
}

TEST_F(PeoplePickerTest, ATapTicksAndAnotherTakesTheTickAway) {
  present();
  tapRow("Ann Reed");
  EXPECT_TRUE(isTicked("Ann Reed"));
  EXPECT_EQ(table().indexPathForSelectedRow(), std::nullopt);
  tapRow("Bob Ash");
  EXPECT_THAT(numbers(*picker_->selectedPeople()), ElementsAre(2, 3));
  tapRow("Ann Reed");
  EXPECT_FALSE(isTicked("Ann Reed"));
  EXPECT_THAT(numbers(*picker_->selectedPeople()), ElementsAre(3));
}

TEST_F(PeoplePickerTest, TheDelegateIsToldBeforeTheTickChanges) {
  present();
  tapRow("Ann Reed");
  tapRow("Ann Reed");
  EXPECT_THAT(listener_->log, ElementsAre("select 2", "select 2 ticked"));
}

TEST_F(PeoplePickerTest, NoMoreAreTickedThanMayBe) {
  present(std::nullopt, 1);
  tapRow("Ann Reed");
  tapRow("Bob Ash");
  EXPECT_THAT(numbers(*picker_->selectedPeople()), ElementsAre(2));
  EXPECT_THAT(listener_->log, ElementsAre("select 2", "select 3"));
  tapRow("Ann Reed");
  tapRow("Bob Ash");
  EXPECT_THAT(numbers(*picker_->selectedPeople()), ElementsAre(3));
}

TEST_F(PeoplePickerTest, WithZeroNothingCanBeTicked) {
  present(std::nullopt, 0);
  tapRow("Ann Reed");
  EXPECT_TRUE(picker_->selectedPeople()->empty());
  EXPECT_THAT(listener_->log, ElementsAre("select 2"));
}

TEST_F(PeoplePickerTest, ANegativeNumberIsNoLimit) {
  present(std::nullopt, -1);
  for (const char* name : {"Ann Reed", "Bob Ash", "Zoe Reed"}) {
    tapRow(name);
  }
  EXPECT_EQ(picker_->selectedPeople()->size(), 3U);
}

TEST_F(PeoplePickerTest, WhoCannotBePickedIsNotTicked) {
  present();
  picker_->setFiledMask(APContactFieldPhones);
  tapRow("Bob Ash");
  EXPECT_TRUE(picker_->selectedPeople()->empty());
  EXPECT_THAT(listener_->log, IsEmpty());
  tapRow("Ann Reed");
  EXPECT_THAT(numbers(*picker_->selectedPeople()), ElementsAre(2));
}

TEST_F(PeoplePickerTest, ARowThatCannotBePickedDoesNotStaySelected) {
  present();
  picker_->setFiledMask(APContactFieldPhones);
  tapRow("Bob Ash");
  EXPECT_EQ(table().indexPathForSelectedRow(), std::nullopt);
}

TEST_F(PeoplePickerTest, ARowIsDeselectedWithAnimation) {
  present();
  const auto path = pathOf(*picker_, "Ann Reed");
  ASSERT_TRUE(path);
  table().selectRowAtIndexPath(*path, /*animated=*/false, UITableViewScrollPosition::kNone);
  settle();
  // A row without a record id ends there: nothing is reloaded over the fading.
  const APContactRef nobody = APContact::initWithRecordRef(
      PersonBuilder(2, "Ann", "Reed").build(), APContactFieldFirstName | APContactFieldLastName);
  picker_->partitionedContacts()[static_cast<std::size_t>(path->section)]
                                [static_cast<std::size_t>(path->row)] = nobody;
  EXPECT_FALSE(device_.uikit()->displayLink().isFrameRequested());
  picker_->didSelectRowAtIndexPath(table(), *path);
  EXPECT_EQ(table().indexPathForSelectedRow(), std::nullopt);
  EXPECT_TRUE(device_.uikit()->displayLink().isFrameRequested());
}

TEST_F(PeoplePickerTest, TicksStayWhenTheAddressBookChanges) {
  present();
  tapRow("Ann Reed");
  device_.people().setPeople({PersonBuilder(2, "Ann", "Moved")});
  settle();
  EXPECT_TRUE(isTicked("Ann Moved"));
}

}  // namespace
}  // namespace zephyl
