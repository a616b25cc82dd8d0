// Where everything in a table lies, from its top downwards: the table's header, for each section
// its header, rows and footer, and the table's footer. Plain numbers, built once per reload.
//
// Rows of one height cost nothing but their count; rows with heights of their own are summed up
// once. Finding the row at an offset takes the logarithm of the number of sections and rows.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/tables/NSIndexPath.h"

namespace zephyl {

// From the first to before the last.
struct TableSpan {
  CGFloat top = 0;
  CGFloat bottom = 0;
  [[nodiscard]] CGFloat height() const { return bottom - top; }
  friend bool operator==(const TableSpan&, const TableSpan&) = default;
};

class ZP_EXPORT TableGeometry {
 public:
  struct Section {
    std::int64_t rows = 0;
    CGFloat headerHeight = 0;
    CGFloat footerHeight = 0;
    // Of every row, unless there are `rowHeights`, one for each.
    CGFloat rowHeight = 0;
    std::vector<CGFloat> rowHeights;
  };

  // More rows than this in all are left out: a count like that is a mistake.
  static constexpr std::int64_t kMostRows = 1000000;
  static constexpr std::int64_t kMostSections = 100000;

  TableGeometry() = default;
  // Negative and unfit numbers count as 0.
  TableGeometry(CGFloat headerHeight, std::vector<Section> sections, CGFloat footerHeight);

  [[nodiscard]] std::int64_t numberOfSections() const;
  // 0 for a section that there is not.
  [[nodiscard]] std::int64_t numberOfRows(std::int64_t section) const;
  [[nodiscard]] std::int64_t numberOfRows() const { return rowsBefore_.back(); }
  [[nodiscard]] bool contains(const NSIndexPath& path) const;
  [[nodiscard]] CGFloat height() const { return footer_.bottom; }

  // Empty at the end of the table for what there is not.
  [[nodiscard]] TableSpan row(const NSIndexPath& path) const;
  // With header and footer.
  [[nodiscard]] TableSpan section(std::int64_t section) const;
  [[nodiscard]] TableSpan header(std::int64_t section) const;
  [[nodiscard]] TableSpan footer(std::int64_t section) const;
  [[nodiscard]] TableSpan tableFooter() const { return footer_; }

  // The row that covers the offset, not a header.
  [[nodiscard]] std::optional<NSIndexPath> rowAt(CGFloat y) const;
  // All rows that have a part between the offsets, in order; none when `to` is not below `from`.
  [[nodiscard]] std::vector<NSIndexPath> rowsBetween(CGFloat from, CGFloat to) const;
  // The same of sections.
  [[nodiscard]] std::vector<std::int64_t> sectionsBetween(CGFloat from, CGFloat to) const;

  // All rows counted through, from 0; and back. What there is not gives -1, or nothing.
  [[nodiscard]] std::int64_t position(const NSIndexPath& path) const;
  [[nodiscard]] std::optional<NSIndexPath> rowAtPosition(std::int64_t position) const;

 private:
  struct Placed {
    TableSpan header;
    CGFloat footerHeight = 0;
    CGFloat bottom = 0;
    CGFloat rowHeight = 0;
    std::int64_t rows = 0;
    // Where each row ends, from the top of the first; empty where all are `rowHeight` high.
    std::vector<CGFloat> rowEnds;
    [[nodiscard]] TableSpan row(std::int64_t index) const;
    // The first row that ends below the offset, `rows` when there is none.
    [[nodiscard]] std::int64_t firstRowEndingBelow(CGFloat y) const;
  };

  [[nodiscard]] bool hasSection(std::int64_t section) const;
  [[nodiscard]] std::int64_t firstSectionEndingBelow(CGFloat y) const;

  std::vector<Placed> sections_;
  // One more than sections.
  std::vector<std::int64_t> rowsBefore_{0};
  TableSpan footer_;
};

}  // namespace zephyl
