#include "platform/uikit/tables/TableGeometry.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zephyl {
namespace {

CGFloat sane(CGFloat height) {
  return std::max(0.0, finite(height));
}

}  // namespace

TableGeometry::TableGeometry(CGFloat headerHeight, std::vector<Section> sections,
                             CGFloat footerHeight) {
  if (sections.size() > static_cast<std::size_t>(kMostSections)) {
    sections.resize(static_cast<std::size_t>(kMostSections));
  }
  sections_.reserve(sections.size());
  rowsBefore_.reserve(sections.size() + 1);
  CGFloat y = sane(headerHeight);
  for (Section& section : sections) {
    Placed placed;
    placed.rows = std::clamp<std::int64_t>(section.rows, 0, kMostRows - rowsBefore_.back());
    placed.header = {y, y + sane(section.headerHeight)};
    placed.footerHeight = sane(section.footerHeight);
    placed.rowHeight = sane(section.rowHeight);
    CGFloat rowsHeight = placed.rowHeight * static_cast<CGFloat>(placed.rows);
    if (!section.rowHeights.empty()) {
      section.rowHeights.resize(static_cast<std::size_t>(placed.rows));
      rowsHeight = 0;
      for (CGFloat& height : section.rowHeights) {
        rowsHeight += sane(height);
        height = rowsHeight;
      }
      placed.rowEnds = std::move(section.rowHeights);
    }
    placed.bottom = placed.header.bottom + rowsHeight + placed.footerHeight;
    y = placed.bottom;
    rowsBefore_.push_back(rowsBefore_.back() + placed.rows);
    sections_.push_back(std::move(placed));
  }
  footer_ = {y, y + sane(footerHeight)};
}

TableSpan TableGeometry::Placed::row(std::int64_t index) const {
  const CGFloat first = header.bottom;
  if (rowEnds.empty()) {
    const auto number = static_cast<CGFloat>(index);
    return {first + number * rowHeight, first + (number + 1) * rowHeight};
  }
  const auto at = static_cast<std::size_t>(index);
  return {first + (at == 0 ? 0 : rowEnds[at - 1]), first + rowEnds[at]};
}

std::int64_t TableGeometry::Placed::firstRowEndingBelow(CGFloat y) const {
  const CGFloat inside = y - header.bottom;
  if (inside < 0) {
    // Rows of no height at the very top end at it, not below.
    return rowEnds.empty() && rowHeight == 0 ? rows : 0;
  }
  if (!rowEnds.empty()) {
    return std::upper_bound(rowEnds.begin(), rowEnds.end(), inside) - rowEnds.begin();
  }
  if (rowHeight == 0) {
    return rows;
  }
  return static_cast<std::int64_t>(
      std::min(std::floor(inside / rowHeight), static_cast<CGFloat>(rows)));
}

bool TableGeometry::hasSection(std::int64_t section) const {
  return section >= 0 && section < numberOfSections();
}

std::int64_t TableGeometry::numberOfSections() const {
  return static_cast<std::int64_t>(sections_.size());
}

std::int64_t TableGeometry::numberOfRows(std::int64_t section) const {
  return hasSection(section) ? sections_[static_cast<std::size_t>(section)].rows : 0;
}

bool TableGeometry::contains(const NSIndexPath& path) const {
  return path.row >= 0 && path.row < numberOfRows(path.section);
}

TableSpan TableGeometry::row(const NSIndexPath& path) const {
  if (!contains(path)) {
    return {footer_.top, footer_.top};
  }
  return sections_[static_cast<std::size_t>(path.section)].row(path.row);
}

TableSpan TableGeometry::section(std::int64_t section) const {
  if (!hasSection(section)) {
    return {footer_.top, footer_.top};
  }
  const Placed& placed = sections_[static_cast<std::size_t>(section)];
  return {placed.header.top, placed.bottom};
}

TableSpan TableGeometry::header(std::int64_t section) const {
  if (!hasSection(section)) {
    return {footer_.top, footer_.top};
  }
  return sections_[static_cast<std::size_t>(section)].header;
}

TableSpan TableGeometry::footer(std::int64_t section) const {
  if (!hasSection(section)) {
    return {footer_.top, footer_.top};
  }
  const Placed& placed = sections_[static_cast<std::size_t>(section)];
  return {placed.bottom - placed.footerHeight, placed.bottom};
}

std::int64_t TableGeometry::firstSectionEndingBelow(CGFloat y) const {
  const auto found =
      std::upper_bound(sections_.begin(), sections_.end(), y,
                       [](CGFloat offset, const Placed& placed) { return offset < placed.bottom; });
  return found - sections_.begin();
}

std::optional<NSIndexPath> TableGeometry::rowAt(CGFloat y) const {
  const std::int64_t section = firstSectionEndingBelow(y);
  if (!hasSection(section)) {
    return std::nullopt;
  }
  const Placed& placed = sections_[static_cast<std::size_t>(section)];
  const std::int64_t row = placed.firstRowEndingBelow(y);
  if (y < placed.header.bottom || row >= placed.rows) {
    return std::nullopt;
  }
  return NSIndexPath{section, row};
}

std::vector<NSIndexPath> TableGeometry::rowsBetween(CGFloat from, CGFloat to) const {
  std::vector<NSIndexPath> rows;
  for (const std::int64_t section : sectionsBetween(from, to)) {
    const Placed& placed = sections_[static_cast<std::size_t>(section)];
    for (std::int64_t row = placed.firstRowEndingBelow(from); row < placed.rows; ++row) {
      const TableSpan span = placed.row(row);
      if (span.top >= to) {
        break;
      }
      if (span.height() > 0) {
        rows.push_back({section, row});
      }
    }
  }
  return rows;
}

std::vector<std::int64_t> TableGeometry::sectionsBetween(CGFloat from, CGFloat to) const {
  std::vector<std::int64_t> found;
  for (std::int64_t section = firstSectionEndingBelow(from); section < numberOfSections();
       ++section) {
    if (sections_[static_cast<std::size_t>(section)].header.top >= to) {
      break;
    }
    found.push_back(section);
  }
  return found;
}

std::int64_t TableGeometry::position(const NSIndexPath& path) const {
  return contains(path) ? rowsBefore_[static_cast<std::size_t>(path.section)] + path.row : -1;
}

std::optional<NSIndexPath> TableGeometry::rowAtPosition(std::int64_t position) const {
  if (position < 0 || position >= numberOfRows()) {
    return std::nullopt;
  }
  const auto after = std::upper_bound(rowsBefore_.begin(), rowsBefore_.end(), position);
  const std::int64_t section = after - rowsBefore_.begin() - 1;
  return NSIndexPath{section, position - rowsBefore_[static_cast<std::size_t>(section)]};
}

}  // namespace zephyl
