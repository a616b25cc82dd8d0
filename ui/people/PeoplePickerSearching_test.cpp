// The people picker: searching.

#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/controls/UIButton.h"

#include "ui/people/PeopleTest.h"

namespace zephyl {
namespace {

using test::PersonBuilder;
using ::testing::ElementsAre;

class PeoplePickerSearchingTest : public test::PeopleTest {
 protected:
  PeoplePickerSearchingTest() {
    PersonBuilder hans(2, "Hans", "Meyer");
    hans.address({"", "London", "", "", "", ""});
    device_.people().setPeople({PersonBuilder(1, "Anna", "Longman").phone("1"), hans,
                                PersonBuilder(3, "Anna", "Reed").email("anna@example.com")});
    present();
  }
  void beginSearch() {
    test::tap(*window_, *test::viewOf<UITextField>(searchBar()));
    settle();
  }
  ZLResultsTableViewController& resultsScreen() { return *picker_->resultsTableViewController(); }
};

TEST_F(PeoplePickerSearchingTest, WhoHasEveryWordIsFoundInSections) {
  beginSearch();
  type("an lon");
  EXPECT_TRUE(picker_->searchController()->showsResults());
  EXPECT_EQ(found(), "L:Anna Longman M:Hans Meyer");
  type("anna");
  EXPECT_EQ(found(), "L:Anna Longman R:Anna Reed");
  type("nobody");
  EXPECT_EQ(found(), "");
  EXPECT_EQ(results().numberOfSections(), 0);
  EXPECT_EQ(shown(), "L:Anna Longman M:Hans Meyer R:Anna Reed");
}

TEST_F(PeoplePickerSearchingTest, WhatIsFoundCoversThePickerAlone) {
  beginSearch();
  type("anna");
  EXPECT_TRUE(picker_->definesPresentationContext());
  EXPECT_EQ(resultsScreen().view()->superview(), picker_->view()->superview());
}

TEST_F(PeoplePickerSearchingTest, AnEmptyTextKeepsEverybodyAndAnEmptyWordNobody) {
  beginSearch();
  type("   ");
  EXPECT_EQ(found(), shown());
  type("an  lon");
  EXPECT_EQ(found(), "");
}

TEST_F(PeoplePickerSearchingTest, TicksAreSharedWithTheResults) {
  beginSearch();
  type("anna");
  EXPECT_EQ(resultsScreen().selectedPeople(), picker_->selectedPeople());
  EXPECT_EQ(resultsScreen().filedMask(), picker_->filedMask());
  tapRow(resultsScreen(), "Anna Reed");
  EXPECT_TRUE(isTicked(resultsScreen(), "Anna Reed"));
  EXPECT_THAT(numbers(*picker_->selectedPeople()), ElementsAre(3));
  EXPECT_THAT(listener_->log, ElementsAre("select 3"));
  picker_->searchController()->setActive(false);
  settle();
  EXPECT_TRUE(isTicked("Anna Reed"));
}

TEST_F(PeoplePickerSearchingTest, WhoCannotBePickedIsGreyAmongTheResultsToo) {
  picker_->setFiledMask(APContactFieldEmails);
  beginSearch();
  type("anna");
  tapRow(resultsScreen(), "Anna Longman");
  EXPECT_TRUE(picker_->selectedPeople()->empty());
  EXPECT_EQ(cellOf(resultsScreen(), "Anna Longman")->selectionStyle(),
            UITableViewCellSelectionStyle::kNone);
}

TEST_F(PeoplePickerSearchingTest, ASearchAfterAChangeFindsWhoIsThereNow) {
  beginSearch();
  type("cid");
  EXPECT_EQ(found(), "");
  device_.people().setPeople({PersonBuilder(9, "Cid")});
  settle();
  type("ci");
  EXPECT_EQ(found(), "C:Cid");
}

TEST_F(PeoplePickerSearchingTest, CancelIsShownWhileTheBarIsEdited) {
  EXPECT_FALSE(searchBar().showsCancelButton());
  beginSearch();
  EXPECT_TRUE(searchBar().showsCancelButton());
  searchBar().resignFirstResponder();
  settle();
  EXPECT_FALSE(searchBar().showsCancelButton());
}

TEST_F(PeoplePickerSearchingTest, CancelIsShownAgainWhenEditingBeginsAgain) {
  beginSearch();
  type("anna");
  searchBar().resignFirstResponder();
  settle();
  EXPECT_TRUE(picker_->searchController()->isActive());
  EXPECT_FALSE(searchBar().showsCancelButton());
  beginSearch();
  EXPECT_TRUE(searchBar().isFirstResponder());
  EXPECT_TRUE(searchBar().showsCancelButton());
  EXPECT_EQ(found(), "L:Anna Longman R:Anna Reed");
}

TEST_F(PeoplePickerSearchingTest, CancelOfAnyBarEndsItsEditing) {
  UISearchBar& bar = searchBar();
  bar.becomeFirstResponder();
  picker_->searchBarCancelButtonClicked(bar);
  EXPECT_FALSE(bar.isFirstResponder());
}

TEST_F(PeoplePickerSearchingTest, CancelEndsEditing) {
  beginSearch();
  type("anna");
  test::tap(*window_, *test::viewOf<UIButton>(searchBar()));
  settle();
  EXPECT_FALSE(searchBar().isFirstResponder());
  EXPECT_FALSE(searchBar().showsCancelButton());
  EXPECT_FALSE(picker_->searchController()->showsResults());
}

TEST_F(PeoplePickerSearchingTest, ASavedSearchComesBackOnce) {
  picker_->setSearchControllerWasActive(true);
  picker_->setSearchControllerSearchFieldWasFirstResponder(true);
  picker_->viewDidAppear(/*animated=*/false);
  EXPECT_TRUE(picker_->searchController()->isActive());
  EXPECT_TRUE(searchBar().isFirstResponder());
  EXPECT_FALSE(picker_->searchControllerWasActive());
  EXPECT_FALSE(picker_->searchControllerSearchFieldWasFirstResponder());
  picker_->searchController()->setActive(false);
  picker_->viewDidAppear(/*animated=*/false);
  EXPECT_FALSE(picker_->searchController()->isActive());
}

TEST_F(PeoplePickerSearchingTest, ASavedSearchThatWasNotEditedComesBackWithoutTheFocus) {
  picker_->setSearchControllerWasActive(true);
  picker_->viewDidAppear(/*animated=*/false);
  EXPECT_TRUE(picker_->searchController()->isActive());
  EXPECT_FALSE(searchBar().isFirstResponder());
  EXPECT_FALSE(searchBar().showsCancelButton());
}

TEST_F(PeoplePickerSearchingTest, WithoutASavedSearchNothingComesBack) {
  picker_->setSearchControllerSearchFieldWasFirstResponder(true);
  picker_->viewDidAppear(/*animated=*/false);
  EXPECT_FALSE(picker_->searchController()->isActive());
  EXPECT_FALSE(searchBar().isFirstResponder());
}

TEST_F(PeoplePickerSearchingTest, EndlessTextsAreSearched) {
  beginSearch();
  type(std::string(10'000, 'x'));
  EXPECT_EQ(found(), "");
  type("anna\xff");
  EXPECT_EQ(found(), "");
}

TEST_F(PeoplePickerSearchingTest, TheGlassInTheIndexLeadsToTheSearchBar) {
  table().setContentOffset({0, 300});
  EXPECT_EQ(picker_->sectionIndexTitlesForTableView(table()).front(), UITableViewIndexSearch);
  static_cast<void>(picker_->sectionForSectionIndexTitle(table(), UITableViewIndexSearch, 0));
  window_->layoutWindow();
  const CGRect seen = searchBar().convertRectToView(searchBar().bounds(), nullptr);
  EXPECT_GE(seen.y(), picker_->safeAreaInsets().top);
}

}  // namespace
}  // namespace zephyl
