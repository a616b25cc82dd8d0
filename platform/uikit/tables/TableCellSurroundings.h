// What a table and its rows tell one another. Plain values.

#pragma once

#include <cstdint>
#include <functional>

#include "platform/uikit/UIColor.h"
#include "platform/uikit/tables/UITableViewEnumerations.h"

namespace zephyl {

// What a row tells its table.
struct TableCellActions {
  // As if it was tapped; whether it could be.
  std::function<bool()> activate;
  // The control on the leading side while the table is edited.
  std::function<void()> editControlTapped;
  std::function<void()> deleteTapped;
};

// How the table shows a row.
struct TableCellSurroundings {
  UIColor background;
  // Left is the leading side; negative is the margin of the texts.
  UIEdgeInsets separatorInset{0, -1, 0, 0};
  bool topSeparator = false;
  bool bottomSeparator = false;
  // The bottom one over the whole width: the last of a group.
  bool endsGroup = false;
  // The room that the section index takes on the trailing side.
  CGFloat trailingInset = 0;
  // Counted from 1; 0 outside a table.
  std::int64_t position = 0;
  std::int64_t count = 0;
  // Keys go to it.
  bool focused = false;
  // Whether the row takes part while the table is edited, and how.
  bool canEdit = false;
  bool indentsWhileEditing = true;
  UITableViewCellEditingStyle editingStyle = UITableViewCellEditingStyle::kNone;
  friend bool operator==(const TableCellSurroundings&, const TableCellSurroundings&) = default;
};

}  // namespace zephyl
