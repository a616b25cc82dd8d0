// What changes in a table between two states of its data, and where each row and section of the one
// is in the other. Plain numbers.
//
// Deletions and reloads are counted in the old state, insertions in the new one.

#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/tables/NSIndexPath.h"

namespace zephyl {

struct TableChanges {
  std::set<NSIndexPath> deletedRows;
  std::set<NSIndexPath> insertedRows;
  std::set<NSIndexPath> reloadedRows;
  std::set<std::int64_t> deletedSections;
  std::set<std::int64_t> insertedSections;
  // May have another number of rows afterwards.
  std::set<std::int64_t> reloadedSections;
};

class ZP_EXPORT TableUpdate {
 public:
  // `oldRows` and `newRows`: the number of rows in each section.
  TableUpdate(TableChanges changes, std::vector<std::int64_t> oldRows,
              std::vector<std::int64_t> newRows);

  // Why the changes do not lead from the one state to the other; empty when they do. The rest is
  // meaningless where they do not.
  [[nodiscard]] const std::string& problem() const { return problem_; }

  // Nothing for what goes, or comes.
  [[nodiscard]] std::optional<std::int64_t> newSection(std::int64_t oldSection) const;
  [[nodiscard]] std::optional<std::int64_t> oldSection(std::int64_t newSection) const;
  // Rows of reloaded sections go and come.
  [[nodiscard]] std::optional<NSIndexPath> newRow(const NSIndexPath& oldRow) const;
  [[nodiscard]] std::optional<NSIndexPath> oldRow(const NSIndexPath& newRow) const;

  // Whether what is shown of it is of no more use.
  [[nodiscard]] bool isReloaded(const NSIndexPath& oldRow) const;
  [[nodiscard]] bool isReloaded(std::int64_t oldSection) const;

 private:
  [[nodiscard]] std::string findProblem() const;
  [[nodiscard]] std::string findRowProblem() const;

  TableChanges changes_;
  std::vector<std::int64_t> oldRows_;
  std::vector<std::int64_t> newRows_;
  std::string problem_;
};

}  // namespace zephyl
