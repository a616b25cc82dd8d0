#include "platform/uikit/tables/TableUpdate.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

TableUpdate rows(std::set<NSIndexPath> deleted, std::set<NSIndexPath> inserted, std::int64_t before,
                 std::int64_t after) {
  TableChanges changes;
  changes.deletedRows = std::move(deleted);
  changes.insertedRows = std::move(inserted);
  return {changes, {before}, {after}};
}

TEST(TableUpdate, RowsMoveUpForThoseDeletedAndDownForThoseInserted) {
  const auto update = rows({{0, 1}, {0, 2}}, {{0, 0}, {0, 4}}, 5, 5);
  EXPECT_EQ(update.problem(), "");
  EXPECT_EQ(update.newRow({0, 0}), (NSIndexPath{0, 1}));
  EXPECT_FALSE(update.newRow({0, 1}));
  EXPECT_EQ(update.newRow({0, 3}), (NSIndexPath{0, 2}));
  EXPECT_EQ(update.newRow({0, 4}), (NSIndexPath{0, 3}));
  EXPECT_FALSE(update.oldRow({0, 0}));
  EXPECT_EQ(update.oldRow({0, 1}), (NSIndexPath{0, 0}));
  EXPECT_FALSE(update.oldRow({0, 4}));
}

TEST(TableUpdate, SectionsTakeTheirRowsAlong) {
  TableChanges changes;
  changes.deletedSections = {0};
  changes.insertedSections = {1};
  changes.insertedRows = {{0, 0}};
  const TableUpdate update(changes, {2, 3, 1}, {4, 9, 1});
  EXPECT_EQ(update.problem(), "");
  EXPECT_FALSE(update.newRow({0, 0}));
  EXPECT_EQ(update.newRow({1, 2}), (NSIndexPath{0, 3}));
  EXPECT_EQ(update.newRow({2, 0}), (NSIndexPath{2, 0}));
  EXPECT_FALSE(update.oldSection(1));
  EXPECT_EQ(update.oldSection(2), 2);
}

TEST(TableUpdate, AReloadedSectionMayChangeItsNumberOfRows) {
  TableChanges changes;
  changes.reloadedSections = {1};
  const TableUpdate update(changes, {2, 1}, {2, 7});
  EXPECT_EQ(update.problem(), "");
  EXPECT_EQ(update.newSection(1), 1);
  EXPECT_FALSE(update.newRow({1, 0}));
  EXPECT_FALSE(update.oldRow({1, 0}));
  EXPECT_TRUE(update.isReloaded(NSIndexPath{1, 0}));
  EXPECT_FALSE(update.isReloaded(NSIndexPath{0, 0}));
}

TEST(TableUpdate, TellsWhatDoesNotAddUp) {
  EXPECT_EQ(rows({{0, 0}}, {}, 3, 3).problem(),
            "rows of section 0: there were 3, 1 were deleted and 0 inserted, but there are 3");
  EXPECT_EQ(rows({{0, 3}}, {}, 3, 2).problem(), "a row is changed that there is not");
  EXPECT_EQ(rows({{0, -1}}, {}, 3, 2).problem(), "a row is changed that there is not");
  EXPECT_EQ(rows({}, {{1, 0}}, 3, 3).problem(), "a row is changed that there is not");
  TableChanges changes;
  changes.deletedSections = {5};
  EXPECT_EQ(TableUpdate(changes, {1}, {}).problem(), "a section is changed that there is not");
  EXPECT_EQ(TableUpdate({}, {1}, {1, 2}).problem(),
            "sections: there were 1, 0 were deleted and 0 inserted, but there are 2");
}

// Played through on lists of names: the name at each place is the name at the place it came from.
TEST(TableUpdate, LeadsWhereDeletingAndInsertingLeads) {
  std::mt19937 random(3);  // NOLINT(bugprone-random-generator-seed,cert-msc51-cpp)
  for (int round = 0; round < 300; ++round) {
    const auto before = static_cast<std::int64_t>(random() % 8);
    std::vector<int> names;
    TableChanges changes;
    for (std::int64_t i = 0; i < before; ++i) {
      if (random() % 3 == 0) {
        changes.deletedRows.insert({0, i});
      } else {
        names.push_back(static_cast<int>(i));
      }
    }
    const auto inserted = random() % 4;
    for (unsigned i = 0; i < inserted; ++i) {
      changes.insertedRows.insert({0, static_cast<std::int64_t>(random() % (names.size() + 1))});
    }
    for (const NSIndexPath& path : changes.insertedRows) {
      const auto place = std::min(names.size(), static_cast<std::size_t>(path.row));
      names.insert(names.begin() + static_cast<std::ptrdiff_t>(place), -1);
    }
    const TableUpdate update(changes, {before}, {static_cast<std::int64_t>(names.size())});
    ASSERT_EQ(update.problem(), "") << round;
    for (std::int64_t i = 0; i < std::ssize(names); ++i) {
      const int name = names[static_cast<std::size_t>(i)];
      const auto old = update.oldRow({0, i});
      EXPECT_EQ(old ? old->row : -1, name) << round;
      if (old) {
        EXPECT_EQ(update.newRow(*old), (NSIndexPath{0, i})) << round;
      }
    }
  }
}

}  // namespace
}  // namespace zephyl
