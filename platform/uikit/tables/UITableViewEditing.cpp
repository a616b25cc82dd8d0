// The editing mode, and deleting and inserting at the user's wish.

#include <utility>

#include "platform/uikit/UIKitText.h"
#include "platform/uikit/tables/UITableViewCore.h"

namespace zephyl {

UITableView::Core::Editing UITableView::Core::editingOf(const NSIndexPath& path) {
  Editing how;
  const bool wasAsking = std::exchange(asking, true);
  const auto rule = rules();
  how.canEdit = source()->canEditRowAtIndexPath(table, path);
  if (how.canEdit) {
    how.style = editing && allowsMultipleSelectionDuringEditing
                    ? UITableViewCellEditingStyle::kMultiSelect
                    : rule->editingStyleForRowAtIndexPath(table, path);
    how.indents = rule->shouldIndentWhileEditingRowAtIndexPath(table, path);
  }
  asking = wasAsking;
  return how;
}

// Only rows that are as they were last laid out: what is about to be made anew comes out right.
void UITableView::Core::updateCells(bool animated) {
  const std::map<NSIndexPath, Cell> present = cells;
  for (const auto& [path, cell] : present) {
    // An answer, or a cell, may have the table reload or lay itself out meanwhile.
    if (needsCells) {
      return;
    }
    const auto now = cells.find(path);
    if (now == cells.end() || now->second != cell) {
      continue;
    }
    TableCellSurroundings surroundings = surroundingsOf(path, cell->surroundings());
    const Editing how = editing ? editingOf(path) : Editing{};
    // Leaving, the control goes the way it came.
    if (editing) {
      surroundings.canEdit = how.canEdit;
      surroundings.editingStyle = how.style;
      surroundings.indentsWhileEditing = how.indents;
    }
    cell->setSurroundings(surroundings);
    cell->setEditing(editing, animated);
    cell->setSelected(selected.contains(path), animated);
  }
}

void UITableView::setEditing(bool editing, bool animated) {
  if (editing == core_->editing) {
    return;
  }
  // What was to be reloaded is first, so that the right rows are seen to change.
  layoutIfNeeded();
  core_->closeSwipe(animated);
  core_->endPress();
  core_->editing = editing;
  core_->selected.clear();
  core_->updateCells(animated);
}

bool UITableView::isEditing() const {
  return core_->editing;
}

void UITableView::Core::editControlTapped(const UITableViewCell& cell) {
  const auto path = table.indexPathForCell(cell);
  if (!path) {
    return;
  }
  switch (editingOf(*path).style) {
    case UITableViewCellEditingStyle::kDelete:
      return openSwipe(cells.at(*path));
    case UITableViewCellEditingStyle::kInsert:
      return commit(cell, UITableViewCellEditingStyle::kInsert);
    case UITableViewCellEditingStyle::kMultiSelect:
    case UITableViewCellEditingStyle::kNone:
      return;
  }
}

void UITableView::Core::commit(const UITableViewCell& cell, UITableViewCellEditingStyle how) {
  const auto path = table.indexPathForCell(cell);
  if (!path) {
    return;
  }
  const auto kept = table.weak_from_this().lock();
  const Cell committed = cells.at(*path);
  source()->commitEditingStyle(table, how, *path);
  // A row that is still there, or goes only later, moves back.
  if (swipe && swipe->cell == committed) {
    closeSwipe(/*animated=*/true);
  }
}

std::string UITableView::Core::deleteTitle(const NSIndexPath& path) {
  const bool wasAsking = std::exchange(asking, true);
  const std::string own = rules()->titleForDeleteConfirmationButtonForRowAtIndexPath(table, path);
  asking = wasAsking;
  return own.empty() ? uikitText("Delete") : own;
}

}  // namespace zephyl
