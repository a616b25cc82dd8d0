// A table of contacts: sections, index, cells, and who can be picked.

#include "ui/people/ZLBaseTableViewController.h"

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/fake/uikit/FakePng.h"
#include "ui/people/PeopleTest.h"
#include "ui/people/ZLResultsTableViewController.h"

namespace zephyl {
namespace {

using test::contactOf;
using test::PersonBuilder;
using ::testing::ElementsAre;
using ::testing::SizeIs;

class PeopleTableTest : public test::PeopleTest {
 protected:
  PeopleTableTest() {
    screen_->setFiledMask(APContactFieldAll);
    window_->setRootViewController(screen_);
  }

  void show(const std::vector<PersonBuilder>& people) {
    APContactArray contacts;
    for (const PersonBuilder& person : people) {
      contacts.push_back(contactOf(person));
    }
    screen_->setPartitionedContactsWithContacts(contacts);
    screen_->tableView()->reloadData();
    window_->layoutWindow();
  }
  UITableView& list() { return *screen_->tableView(); }
  std::vector<NSAttributedString::Run> runsOf(const PersonBuilder& person) {
    UITableViewCell cell(UITableViewCellStyle::kSubtitle);
    screen_->configureCell(cell, *contactOf(person));
    return cell.textLabel()->attributedText().runs();
  }
  // The bold part, or nothing.
  std::string boldPart(const PersonBuilder& person) {
    for (const auto& run : runsOf(person)) {
      if (run.attributes.font == UIFont::boldSystemFontOfSize(18)) {
        return contactOf(person)->compositeName().substr(run.start, run.length);
      }
    }
    return {};
  }
  bool isEnabled(APContactField mask, const PersonBuilder& person) {
    screen_->setFiledMask(mask);
    return screen_->shouldEnableCellforContact(*contactOf(person));
  }

  std::shared_ptr<ZLBaseTableViewController> screen_ =
      std::make_shared<ZLResultsTableViewController>();
};

TEST_F(PeopleTableTest, AtFirstThereIsNobody) {
  EXPECT_THAT(screen_->partitionedContacts(), SizeIs(27));
  EXPECT_TRUE(screen_->selectedPeople()->empty());
  EXPECT_EQ(screen_->selectedPeople(), screen_->selectedPeople());
  EXPECT_EQ(screen_->numberOfSectionsInTableView(list()), 0);
  EXPECT_EQ(ZLBaseTableViewController::emptyPartitionedArray(), ContactSections(27));
}

TEST_F(PeopleTableTest, SectionsAreThoseOfTheCollationTitledWhereTheyAreNotEmpty) {
  show({PersonBuilder(1, "Ann"), PersonBuilder(2, "Abe"), PersonBuilder(3, "Cid")});
  EXPECT_EQ(list().numberOfSections(), 27);
  EXPECT_EQ(list().numberOfRowsInSection(0), 2);
  EXPECT_EQ(list().numberOfRowsInSection(1), 0);
  EXPECT_EQ(screen_->titleForHeaderInSection(list(), 0), "A");
  EXPECT_EQ(screen_->titleForHeaderInSection(list(), 1), "");
  EXPECT_EQ(screen_->titleForHeaderInSection(list(), 2), "C");
  EXPECT_EQ(screen_->titleForHeaderInSection(list(), 99), "");
  EXPECT_EQ(screen_->contactForRowAtIndexPath({0, 1})->compositeName(), "Ann");
  EXPECT_EQ(screen_->contactForRowAtIndexPath({0, 2}), nullptr);
  EXPECT_EQ(screen_->contactForRowAtIndexPath({-1, 0}), nullptr);
}

TEST_F(PeopleTableTest, TheIndexLeadsToSectionsAndItsGlassToTheTop) {
  std::vector<PersonBuilder> people;
  people.reserve(60);
  for (int i = 0; i < 60; ++i) {
    people.emplace_back(i, i < 30 ? "Ann" : "Bob");
  }
  show(people);
  EXPECT_THAT(screen_->sectionIndexTitlesForTableView(list()), SizeIs(28));
  EXPECT_EQ(screen_->sectionForSectionIndexTitle(list(), "B", 2), 1);
  list().setContentInset({17, 0, 0, 0});
  list().setContentOffset({0, 500});
  EXPECT_EQ(screen_->sectionForSectionIndexTitle(list(), UITableViewIndexSearch, 0), NSNotFound);
  EXPECT_EQ(list().contentOffset(), (CGPoint{0, -list().adjustedContentInset().top}));
  EXPECT_GE(list().adjustedContentInset().top, 17);
}

TEST_F(PeopleTableTest, ACellHasANameAndATickAndNoDetail) {
  screen_->selectedPeople()->add(std::int64_t{2});
  show({PersonBuilder(1, "Ann", "Ash"), PersonBuilder(2, "Abe", "Ash")});
  const auto cell = list().cellForRowAtIndexPath({0, 1});
  EXPECT_EQ(cell->reuseIdentifier(), "cellID");
  EXPECT_EQ(cell->style(), UITableViewCellStyle::kSubtitle);
  EXPECT_EQ(cell->textLabel()->text(), "Ann Ash");
  EXPECT_EQ(cell->detailTextLabel()->text(), "");
  EXPECT_EQ(cell->accessoryType(), UITableViewCellAccessoryType::kNone);
  EXPECT_EQ(list().cellForRowAtIndexPath({0, 0})->accessoryType(),
            UITableViewCellAccessoryType::kCheckmark);
}

TEST_F(PeopleTableTest, AnIdThatIsATextTicksNobody) {
  screen_->selectedPeople()->add(std::string("1"));
  show({PersonBuilder(1, "Ann")});
  EXPECT_FALSE(isTicked(*screen_, "Ann"));
}

TEST_F(PeopleTableTest, TheNameThatIsSortedByIsBold) {
  EXPECT_EQ(boldPart(PersonBuilder(1, "Ann", "Reed")), "Reed");
  EXPECT_EQ(boldPart(PersonBuilder(1, "Ann")), "Ann");
  EXPECT_EQ(boldPart(PersonBuilder(1, "Ann", "Reed").named("Dr Ann")), "");
  EXPECT_EQ(boldPart(PersonBuilder(1, "", "Reed").named("Reed Reed")), "Reed");
  device_.people().setSortOrdering(ABPersonSortOrdering::kByFirstName);
  EXPECT_EQ(boldPart(PersonBuilder(1, "Ann", "Reed")), "Ann");
  EXPECT_EQ(boldPart(PersonBuilder(1, "", "Reed")), "Reed");
}

TEST_F(PeopleTableTest, OnlyTheFirstOccurrenceIsBold) {
  const auto runs = runsOf(PersonBuilder(1, "Reed", "Reed"));
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_EQ(runs[0].length, 4U);
  EXPECT_EQ(runs[0].attributes.font, UIFont::boldSystemFontOfSize(18));
  EXPECT_EQ(runs[1].attributes.font, UIFont::systemFontOfSize(17));
}

TEST_F(PeopleTableTest, WhoCannotBePickedIsGreyAndShowsNoSelection) {
  screen_->setFiledMask(APContactFieldPhones);
  UITableViewCell cell(UITableViewCellStyle::kSubtitle);
  screen_->configureCell(cell, *contactOf(PersonBuilder(1, "Ann", "Reed")));
  EXPECT_EQ(cell.selectionStyle(), UITableViewCellSelectionStyle::kNone);
  for (const auto& run : cell.textLabel()->attributedText().runs()) {
    EXPECT_EQ(run.attributes.color, UIColor::grayColor());
  }
  screen_->configureCell(cell, *contactOf(PersonBuilder(2, "Bob", "Reed").phone("1")));
  EXPECT_EQ(cell.selectionStyle(), UITableViewCellSelectionStyle::kDefault);
  for (const auto& run : cell.textLabel()->attributedText().runs()) {
    EXPECT_EQ(run.attributes.color, UIColor::labelColor());
  }
}

TEST_F(PeopleTableTest, OneOfTheFieldsAskedForIsEnough) {
  const PersonBuilder nothing(1, "Ann");
  const auto phone = PersonBuilder(1, "Ann").phone("1");
  const auto email = PersonBuilder(1, "Ann").email("a");
  const auto thumbnail = PersonBuilder(1, "Ann").thumbnail(test::imageOf(fake::fakePicture(1, 1)));
  const auto photo = PersonBuilder(1, "Ann").photo(test::imageOf(fake::fakePicture(1, 1)));
  const auto address = PersonBuilder(1, "Ann").address({"", "London", "", "", "", ""});
  EXPECT_TRUE(isEnabled(8, phone));
  EXPECT_FALSE(isEnabled(8, email));
  EXPECT_TRUE(isEnabled(16, email));
  EXPECT_FALSE(isEnabled(16, phone));
  EXPECT_TRUE(isEnabled(32, thumbnail));
  EXPECT_FALSE(isEnabled(32, photo));
  EXPECT_FALSE(isEnabled(32, PersonBuilder(1, "Ann").thumbnail(test::imageOf({1, 2, 3}))));
  EXPECT_FALSE(isEnabled(64, thumbnail));
  EXPECT_TRUE(isEnabled(512, address));
  EXPECT_TRUE(isEnabled(8 | 512, address));
  EXPECT_FALSE(isEnabled(0, phone));
  EXPECT_TRUE(isEnabled(65535, nothing));
  for (APContactField mask = 1; mask <= 32768; mask <<= 1U) {
    EXPECT_FALSE(isEnabled(mask, nothing)) << mask;
    EXPECT_FALSE(isEnabled(65535 & ~mask, nothing)) << mask;
  }
}

TEST_F(PeopleTableTest, ThousandsOfPeopleAreListedAndOnlyThoseSeenAreCells) {
  std::vector<PersonBuilder> people;
  people.reserve(5'000);
  for (int i = 0; i < 5'000; ++i) {
    people.emplace_back(i + 1, "Person " + std::to_string(i), "\xff" + std::string(300, 'x'));
  }
  show(people);
  EXPECT_EQ(list().numberOfRowsInSection(26), 5'000);
  EXPECT_LT(list().indexPathsForVisibleRows().size(), 40U);
}

}  // namespace
}  // namespace zephyl
