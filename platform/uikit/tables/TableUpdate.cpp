#include "platform/uikit/tables/TableUpdate.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zephyl {
namespace {

using Numbers = std::set<std::int64_t>;

// The numbers of the rows in one section.
Numbers rowsIn(const std::set<NSIndexPath>& paths, std::int64_t section) {
  Numbers rows;
  for (auto path = paths.lower_bound({section, INT64_MIN});
       path != paths.end() && path->section == section; ++path) {
    rows.insert(path->row);
  }
  return rows;
}

// Where the one at `index` is once those at `gone` are away and, after that, those at `come` there.
std::optional<std::int64_t> moved(std::int64_t index, const Numbers& gone, const Numbers& come) {
  if (gone.contains(index)) {
    return std::nullopt;
  }
  index -= std::distance(gone.begin(), gone.lower_bound(index));
  for (const std::int64_t each : come) {
    if (each > index) {
      break;
    }
    ++index;
  }
  return index;
}

std::int64_t count(const std::vector<std::int64_t>& rows) {
  return static_cast<std::int64_t>(rows.size());
}

std::int64_t at(const std::vector<std::int64_t>& rows, std::int64_t section) {
  return section >= 0 && section < count(rows) ? rows[static_cast<std::size_t>(section)] : 0;
}

bool within(const Numbers& numbers, std::int64_t end) {
  return numbers.empty() || (*numbers.begin() >= 0 && *numbers.rbegin() < end);
}

bool within(const std::set<NSIndexPath>& paths, const std::vector<std::int64_t>& rows) {
  return std::all_of(paths.begin(), paths.end(), [&rows](const NSIndexPath& path) {
    return path.row >= 0 && path.row < at(rows, path.section);
  });
}

std::string told(const char* what, std::int64_t before, std::int64_t deleted, std::int64_t inserted,
                 std::int64_t after) {
  return std::string(what)
      .append(": there were ")
      .append(std::to_string(before))
      .append(", ")
      .append(std::to_string(deleted))
      .append(" were deleted and ")
      .append(std::to_string(inserted))
      .append(" inserted, but there are ")
      .append(std::to_string(after));
}

}  // namespace

TableUpdate::TableUpdate(TableChanges changes, std::vector<std::int64_t> oldRows,
                         std::vector<std::int64_t> newRows)
    : changes_(std::move(changes)), oldRows_(std::move(oldRows)), newRows_(std::move(newRows)) {
  problem_ = findProblem();
}

std::string TableUpdate::findProblem() const {
  if (!within(changes_.deletedSections, count(oldRows_)) ||
      !within(changes_.reloadedSections, count(oldRows_)) ||
      !within(changes_.insertedSections, count(newRows_))) {
    return "a section is changed that there is not";
  }
  if (!within(changes_.deletedRows, oldRows_) || !within(changes_.reloadedRows, oldRows_) ||
      !within(changes_.insertedRows, newRows_)) {
    return "a row is changed that there is not";
  }
  const std::int64_t deleted = std::ssize(changes_.deletedSections);
  const std::int64_t inserted = std::ssize(changes_.insertedSections);
  if (count(oldRows_) - deleted + inserted != count(newRows_)) {
    return told("sections", count(oldRows_), deleted, inserted, count(newRows_));
  }
  return findRowProblem();
}

std::string TableUpdate::findRowProblem() const {
  for (std::int64_t section = 0; section < count(oldRows_); ++section) {
    const auto after = newSection(section);
    if (!after || isReloaded(section)) {
      continue;
    }
    const std::int64_t deleted = std::ssize(rowsIn(changes_.deletedRows, section));
    const std::int64_t inserted = std::ssize(rowsIn(changes_.insertedRows, *after));
    if (at(oldRows_, section) - deleted + inserted != at(newRows_, *after)) {
      const std::string what = "rows of section " + std::to_string(section);
      return told(what.c_str(), at(oldRows_, section), deleted, inserted, at(newRows_, *after));
    }
  }
  return {};
}

bool TableUpdate::isReloaded(std::int64_t oldSection) const {
  return changes_.reloadedSections.contains(oldSection);
}

bool TableUpdate::isReloaded(const NSIndexPath& oldRow) const {
  return changes_.reloadedRows.contains(oldRow) || isReloaded(oldRow.section);
}

std::optional<std::int64_t> TableUpdate::newSection(std::int64_t oldSection) const {
  return moved(oldSection, changes_.deletedSections, changes_.insertedSections);
}

std::optional<std::int64_t> TableUpdate::oldSection(std::int64_t newSection) const {
  return moved(newSection, changes_.insertedSections, changes_.deletedSections);
}

std::optional<NSIndexPath> TableUpdate::newRow(const NSIndexPath& oldRow) const {
  const auto section = newSection(oldRow.section);
  if (!section || isReloaded(oldRow.section)) {
    return std::nullopt;
  }
  const auto row = moved(oldRow.row, rowsIn(changes_.deletedRows, oldRow.section),
                         rowsIn(changes_.insertedRows, *section));
  return row ? std::optional(NSIndexPath{*section, *row}) : std::nullopt;
}

std::optional<NSIndexPath> TableUpdate::oldRow(const NSIndexPath& newRow) const {
  const auto section = oldSection(newRow.section);
  if (!section || isReloaded(*section)) {
    return std::nullopt;
  }
  const auto row = moved(newRow.row, rowsIn(changes_.insertedRows, newRow.section),
                         rowsIn(changes_.deletedRows, *section));
  return row ? std::optional(NSIndexPath{*section, *row}) : std::nullopt;
}

}  // namespace zephyl
