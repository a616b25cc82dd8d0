// Changing a table row by row and section by section.

#include <algorithm>
#include <utility>

#include "platform/foundation/SystemLog.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/tables/UITableViewCore.h"

namespace zephyl {
namespace {

constexpr double kDuration = 0.3;

std::vector<std::int64_t> rowCounts(const TableGeometry& geometry) {
  std::vector<std::int64_t> rows;
  rows.reserve(static_cast<std::size_t>(geometry.numberOfSections()));
  for (std::int64_t section = 0; section < geometry.numberOfSections(); ++section) {
    rows.push_back(geometry.numberOfRows(section));
  }
  return rows;
}

}  // namespace

void UITableView::Core::apply(const std::function<void(TableChanges&)>& note, Animation animation) {
  table.beginUpdates();
  note(changes.changes);
  changes.animated = changes.animated || animation != Animation::kNone;
  table.endUpdates();
}

void UITableView::beginUpdates() {
  ++core_->changes.depth;
}

void UITableView::endUpdates() {
  if (core_->changes.depth == 0 || --core_->changes.depth > 0) {
    return;
  }
  const auto kept = weak_from_this().lock();
  core_->runUpdates();
}

void UITableView::Core::runUpdates() {
  const Changes now = std::exchange(changes, {});
  // Nothing is shown that could change, or it is just being asked for.
  if (needsLoad || asking || layingOut) {
    return table.reloadData();
  }
  const TableGeometry before = geometry;
  load();
  const TableUpdate update(now.changes, rowCounts(before), rowCounts(geometry));
  if (!update.problem().empty()) {
    logError("Invalid update of a table, which is reloaded: " + update.problem());
    return table.reloadData();
  }
  const auto leaving = std::make_shared<Views>();
  remap(update, *leaving);
  remapBanners(update, now.headerFooters, *leaving);
  const Transition passing{update, before};
  running = &passing;
  const auto arrange = [this, &leaving] {
    layout();
    // A data source may give out again what it gave out before.
    std::erase_if(*leaving, [this](const auto& view) { return isShown(*view); });
    for (const auto& view : *leaving) {
      view->setAlpha(0);
    }
  };
  const std::weak_ptr<UIView> weak = table.weak_from_this();
  const auto tidy = [weak, leaving](bool /*finished*/) {
    const auto owner = std::static_pointer_cast<UITableView>(weak.lock());
    for (const auto& view : *leaving) {
      if (owner != nullptr && view->superview() == owner.get() && !owner->core_->isShown(*view)) {
        view->removeFromSuperview();
      }
    }
  };
  if (now.animated && table.window() != nullptr) {
    animateWithDuration(kDuration, 0, kAnimationAllowUserInteraction, arrange, tidy);
  } else {
    performWithoutAnimation(arrange);
    tidy(true);
  }
  running = nullptr;
}

bool UITableView::Core::isShown(const UIView& view) const {
  const auto isView = [&view](const auto& entry) { return entry.second.get() == &view; };
  const auto isBanner = [&view](const auto& entry) { return entry.second.view.get() == &view; };
  return std::any_of(cells.begin(), cells.end(), isView) ||
         std::any_of(headers.begin(), headers.end(), isBanner) ||
         std::any_of(footers.begin(), footers.end(), isBanner);
}

void UITableView::Core::remap(const TableUpdate& update, Views& leaving) {
  endPress();
  for (const auto& [path, cell] : std::exchange(cells, {})) {
    const auto now = update.newRow(path);
    if (now && !update.isReloaded(path)) {
      cells[*now] = cell;
      continue;
    }
    if (swipe && swipe->cell == cell) {
      swipe.reset();
    }
    cell->setActions({});
    leaving.push_back(cell);
  }
  for (const NSIndexPath& path : std::exchange(selected, {})) {
    const auto now = update.newRow(path);
    if (now && !update.isReloaded(path)) {
      selected.insert(*now);
    }
  }
  if (focusedRow) {
    focusedRow = update.newRow(*focusedRow);
  }
}

void UITableView::Core::remapBanners(const TableUpdate& update, const std::set<std::int64_t>& anew,
                                     Views& leaving) {
  for (auto* const banners : {&headers, &footers}) {
    for (const auto& [section, banner] : std::exchange(*banners, {})) {
      const auto now = update.newSection(section);
      if (now && !update.isReloaded(section) && !anew.contains(section)) {
        (*banners)[*now] = banner;
      } else if (banner.view != nullptr) {
        leaving.push_back(banner.view);
      }
    }
  }
}

void UITableView::insertRowsAtIndexPaths(const Paths& paths, Animation animation) {
  core_->apply([&](TableChanges& all) { all.insertedRows.insert(paths.begin(), paths.end()); },
               animation);
}

void UITableView::deleteRowsAtIndexPaths(const Paths& paths, Animation animation) {
  core_->apply([&](TableChanges& all) { all.deletedRows.insert(paths.begin(), paths.end()); },
               animation);
}

void UITableView::reloadRowsAtIndexPaths(const Paths& paths, Animation animation) {
  core_->apply([&](TableChanges& all) { all.reloadedRows.insert(paths.begin(), paths.end()); },
               animation);
}

void UITableView::insertSections(const Sections& sections, Animation animation) {
  core_->apply(
      [&](TableChanges& all) { all.insertedSections.insert(sections.begin(), sections.end()); },
      animation);
}

void UITableView::deleteSections(const Sections& sections, Animation animation) {
  core_->apply(
      [&](TableChanges& all) { all.deletedSections.insert(sections.begin(), sections.end()); },
      animation);
}

void UITableView::reloadSections(const Sections& sections, Animation animation) {
  core_->apply(
      [&](TableChanges& all) { all.reloadedSections.insert(sections.begin(), sections.end()); },
      animation);
}

void UITableView::_reloadSectionHeaderFooters(const Sections& sections, Animation animation) {
  core_->apply(
      [&](TableChanges& /*all*/) {
        core_->changes.headerFooters.insert(sections.begin(), sections.end());
      },
      animation);
}

}  // namespace zephyl
