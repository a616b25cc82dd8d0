#include "platform/uikit/tables/TableGeometry.h"

#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

TableGeometry::Section uniform(std::int64_t rows, CGFloat height = 44, CGFloat header = 0,
                               CGFloat footer = 0) {
  return {rows, header, footer, height, {}};
}

TableGeometry::Section with(std::vector<CGFloat> heights, CGFloat header = 0, CGFloat footer = 0) {
  const auto rows = static_cast<std::int64_t>(heights.size());
  return {rows, header, footer, 44, std::move(heights)};
}

TEST(TableGeometry, ThingsFollowOneAnotherFromTheTop) {
  const TableGeometry table(50, {uniform(2, 44, 28, 10), with({10, 20, 30}, 5)}, 7);
  EXPECT_EQ(table.header(0), (TableSpan{50, 78}));
  EXPECT_EQ(table.row({0, 0}), (TableSpan{78, 122}));
  EXPECT_EQ(table.row({0, 1}), (TableSpan{122, 166}));
  EXPECT_EQ(table.footer(0), (TableSpan{166, 176}));
  EXPECT_EQ(table.section(1), (TableSpan{176, 241}));
  EXPECT_EQ(table.row({1, 0}), (TableSpan{181, 191}));
  EXPECT_EQ(table.row({1, 2}), (TableSpan{211, 241}));
  EXPECT_EQ(table.tableFooter(), (TableSpan{241, 248}));
  EXPECT_EQ(table.height(), 248);
}

TEST(TableGeometry, TheRowAtAnOffsetIsNoHeaderOrFooter) {
  const TableGeometry table(50, {uniform(2, 44, 28, 10), with({10, 20, 30}, 5)}, 7);
  EXPECT_FALSE(table.rowAt(-1));
  EXPECT_FALSE(table.rowAt(77.9));
  EXPECT_EQ(table.rowAt(78), (NSIndexPath{0, 0}));
  EXPECT_EQ(table.rowAt(122), (NSIndexPath{0, 1}));
  EXPECT_FALSE(table.rowAt(166));
  EXPECT_FALSE(table.rowAt(180));
  EXPECT_EQ(table.rowAt(240.9), (NSIndexPath{1, 2}));
  EXPECT_FALSE(table.rowAt(241));
}

TEST(TableGeometry, RowsArePassedOnlyOnceThroughAllSections) {
  const TableGeometry table(0, {uniform(2), uniform(0), uniform(3)}, 0);
  EXPECT_EQ(table.position({2, 0}), 2);
  EXPECT_EQ(table.rowAtPosition(2), (NSIndexPath{2, 0}));
  EXPECT_EQ(table.rowAtPosition(4), (NSIndexPath{2, 2}));
  EXPECT_FALSE(table.rowAtPosition(5));
  EXPECT_FALSE(table.rowAtPosition(-1));
  EXPECT_EQ(table.position({1, 0}), -1);
}

TEST(TableGeometry, WhatIsNotThereIsEmptyAtTheEnd) {
  const TableGeometry table(0, {uniform(2)}, 7);
  EXPECT_EQ(table.row({0, 2}), (TableSpan{88, 88}));
  EXPECT_EQ(table.row({-1, 0}), (TableSpan{88, 88}));
  EXPECT_EQ(table.header(9), (TableSpan{88, 88}));
  EXPECT_EQ(table.numberOfRows(9), 0);
  EXPECT_EQ(TableGeometry().height(), 0);
  EXPECT_TRUE(TableGeometry().rowsBetween(-10, 10).empty());
}

TEST(TableGeometry, NumbersThatAreNoneCountAsNothing) {
  constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
  const TableGeometry table(kNaN, {{-5, kNaN, -3, 44, {}}, with({kNaN, -7, 12})}, -1);
  EXPECT_EQ(table.numberOfRows(0), 0);
  EXPECT_EQ(table.height(), 12);
  EXPECT_EQ(table.rowsBetween(0, 20), (std::vector<NSIndexPath>{{1, 2}}));
}

TEST(TableGeometry, ACountThatCannotBeMeantIsCut) {
  const auto many = std::numeric_limits<std::int64_t>::max();
  const TableGeometry table(0, {uniform(many, 1), uniform(5)}, 0);
  EXPECT_EQ(table.numberOfRows(0), TableGeometry::kMostRows);
  EXPECT_EQ(table.numberOfRows(1), 0);
}

// Every answer held against one that looks at all rows.
TEST(TableGeometry, FindsWhatAPlainSearchFinds) {
  std::mt19937 random(7);  // NOLINT(bugprone-random-generator-seed,cert-msc51-cpp)
  const auto number = [&random](int below) { return static_cast<int>(random() % unsigned(below)); };
  for (int round = 0; round < 200; ++round) {
    std::vector<TableGeometry::Section> sections(static_cast<std::size_t>(number(5)));
    for (auto& section : sections) {
      section = uniform(number(6), number(3) * 10, number(2) * 8, number(2) * 6);
      if (number(2) == 0) {
        section.rowHeights.assign(static_cast<std::size_t>(section.rows), 0);
        for (CGFloat& height : section.rowHeights) {
          height = number(4) * 5;
        }
      }
    }
    const TableGeometry table(number(20), sections, 0);
    const CGFloat from = number(200) - 20;
    const CGFloat to = from + number(60);
    std::vector<NSIndexPath> expected;
    std::optional<NSIndexPath> covering;
    for (std::int64_t section = 0; section < table.numberOfSections(); ++section) {
      for (std::int64_t row = 0; row < table.numberOfRows(section); ++row) {
        const TableSpan span = table.row({section, row});
        if (span.height() > 0 && span.bottom > from && span.top < to) {
          expected.push_back({section, row});
        }
        if (span.top <= from && from < span.bottom) {
          covering = {section, row};
        }
      }
    }
    EXPECT_EQ(table.rowsBetween(from, to), expected) << round;
    EXPECT_EQ(table.rowAt(from), covering) << round;
  }
}

}  // namespace
}  // namespace zephyl
