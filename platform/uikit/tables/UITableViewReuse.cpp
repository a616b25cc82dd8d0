// Making cells and headers, and using them again.

#include <algorithm>
#include <utility>

#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/tables/UITableViewCore.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {
namespace {

// Of one kind; more are not kept.
constexpr std::size_t kMostSpare = 64;
const char* const kTitleIdentifier = "UITableViewTitle";

}  // namespace

UITableView::Cell UITableView::Core::makeCell(const NSIndexPath& path) {
  const bool wasAsking = std::exchange(asking, true);
  Cell cell = source()->cellForRowAtIndexPath(table, path);
  asking = wasAsking;
  if (cell == nullptr) {
    cell = std::make_shared<UITableViewCell>();
  }
  // One that is given out for two rows is the second's.
  std::erase_if(cells, [&cell](const auto& entry) { return entry.second == cell; });
  prepare(cell, path);
  cells[path] = cell;
  return cell;
}

void UITableView::Core::prepare(const Cell& cell, const NSIndexPath& path) {
  const auto weak = std::weak_ptr<UIView>(table.weak_from_this());
  UITableViewCell* const made = cell.get();
  const auto withTable = [weak](const auto& act) {
    const auto view = weak.lock();
    return view != nullptr && act(static_cast<UITableView&>(*view));
  };
  TableCellActions actions;
  actions.activate = [withTable, made] {
    return withTable([made](UITableView& owner) {
      const auto row = owner.indexPathForCell(*made);
      return row && owner.core_->tap(*row);
    });
  };
  actions.editControlTapped = [withTable, made] {
    withTable([made](UITableView& owner) {
      owner.core_->editControlTapped(*made);
      return true;
    });
  };
  actions.deleteTapped = [withTable, made] {
    withTable([made](UITableView& owner) {
      owner.core_->commit(*made, UITableViewCellEditingStyle::kDelete);
      return true;
    });
  };
  cell->setActions(std::move(actions));
  performWithoutAnimation([&] {
    TableCellSurroundings surroundings = surroundingsOf(path, {});
    const Editing how = editing ? editingOf(path) : Editing{};
    surroundings.canEdit = how.canEdit;
    surroundings.editingStyle = how.style;
    surroundings.indentsWhileEditing = how.indents;
    cell->setSurroundings(surroundings);
    cell->setEditing(editing, /*animated=*/false);
    cell->setSelected(selected.contains(path), /*animated=*/false);
  });
}

void UITableView::Core::recycle(const Cell& cell) {
  if (swipe && swipe->cell == cell) {
    swipe.reset();
  }
  cell->setActions({});
  performWithoutAnimation([&cell] {
    cell->closeDeletion();
    cell->hideDeleteButton();
    cell->setAlpha(1);
  });
  if (cell->superview() == &table) {
    cell->removeFromSuperview();
  }
  auto& spare = spareCells[cell->reuseIdentifier()];
  const bool known = std::find(spare.begin(), spare.end(), cell) != spare.end();
  if (!cell->reuseIdentifier().empty() && !known && spare.size() < kMostSpare) {
    spare.push_back(cell);
  }
}

void UITableView::Core::recycle(const Banner& banner) {
  if (banner.view == nullptr) {
    return;
  }
  banner.view->setAlpha(1);
  if (banner.view->superview() == &table) {
    banner.view->removeFromSuperview();
  }
  if (banner.reusable == nullptr || banner.reusable->reuseIdentifier().empty()) {
    return;
  }
  auto& spare = spareBanners[banner.reusable->reuseIdentifier()];
  if (spare.size() < kMostSpare) {
    spare.push_back(banner.reusable);
  }
}

void UITableView::Core::recycleAll() {
  for (const auto& entry : std::exchange(cells, {})) {
    recycle(entry.second);
  }
  for (auto* const banners : {&headers, &footers}) {
    for (const auto& entry : std::exchange(*banners, {})) {
      recycle(entry.second);
    }
  }
}

UITableView::Core::Banner UITableView::Core::makeBanner(std::int64_t section, bool isFooter) {
  const bool wasAsking = std::exchange(asking, true);
  const auto rule = rules();
  auto view = isFooter ? rule->viewForFooterInSection(table, section)
                       : rule->viewForHeaderInSection(table, section);
  std::string title;
  if (view == nullptr) {
    title = isFooter ? source()->titleForFooterInSection(table, section)
                     : source()->titleForHeaderInSection(table, section);
  }
  asking = wasAsking;
  if (view != nullptr || title.empty()) {
    const auto reusable = std::dynamic_pointer_cast<UITableViewHeaderFooterView>(view);
    if (reusable != nullptr) {
      reusable->setTableStyle(style, isFooter);
    }
    return {view, reusable};
  }
  auto made = table.dequeueReusableHeaderFooterViewWithIdentifier(kTitleIdentifier);
  if (made == nullptr) {
    made = std::make_shared<UITableViewHeaderFooterView>(kTitleIdentifier);
  }
  made->setTableStyle(style, isFooter);
  made->textLabel()->setText(title);
  return {made, made};
}

void UITableView::registerClass(CellMaker maker, const std::string& identifier) {
  core_->cellMakers[identifier] = std::move(maker);
}

void UITableView::registerHeaderFooterClass(HeaderFooterMaker maker,
                                            const std::string& identifier) {
  core_->bannerMakers[identifier] = std::move(maker);
}

UITableView::Cell UITableView::dequeueReusableCellWithIdentifier(const std::string& identifier) {
  auto& spare = core_->spareCells[identifier];
  if (!spare.empty()) {
    Cell cell = spare.back();
    spare.pop_back();
    cell->prepareForReuse();
    return cell;
  }
  const auto maker = core_->cellMakers.find(identifier);
  return maker == core_->cellMakers.end() || !maker->second ? nullptr : maker->second(identifier);
}

std::shared_ptr<UITableViewHeaderFooterView>
UITableView::dequeueReusableHeaderFooterViewWithIdentifier(const std::string& identifier) {
  auto& spare = core_->spareBanners[identifier];
  if (!spare.empty()) {
    auto view = spare.back();
    spare.pop_back();
    view->prepareForReuse();
    return view;
  }
  const auto maker = core_->bannerMakers.find(identifier);
  return maker == core_->bannerMakers.end() || !maker->second ? nullptr : maker->second(identifier);
}

UITableView::Cell UITableView::cellForRowAtIndexPath(const NSIndexPath& indexPath) {
  if (!core_->asking && !core_->layingOut) {
    layoutIfNeeded();
  }
  const auto found = core_->cells.find(indexPath);
  return found == core_->cells.end() ? nullptr : found->second;
}

std::optional<NSIndexPath> UITableView::indexPathForCell(const UITableViewCell& cell) const {
  for (const auto& [path, each] : core_->cells) {
    if (each.get() == &cell) {
      return path;
    }
  }
  return std::nullopt;
}

std::optional<NSIndexPath> UITableView::indexPathForRowAtPoint(CGPoint point) {
  core_->loadIfNeeded();
  for (const auto* const banners : {&core_->headers, &core_->footers}) {
    for (const auto& entry : *banners) {
      if (entry.second.view != nullptr && CGRectContainsPoint(entry.second.view->frame(), point)) {
        return std::nullopt;
      }
    }
  }
  return core_->geometry.rowAt(point.y);
}

UITableView::Paths UITableView::indexPathsForVisibleRows() {
  core_->loadIfNeeded();
  return core_->geometry.rowsBetween(bounds().y(), bounds().maxY());
}

std::shared_ptr<UIView> UITableView::headerViewForSection(std::int64_t section) const {
  const auto found = core_->headers.find(section);
  return found == core_->headers.end() ? nullptr : found->second.view;
}

std::shared_ptr<UIView> UITableView::footerViewForSection(std::int64_t section) const {
  const auto found = core_->footers.find(section);
  return found == core_->footers.end() ? nullptr : found->second.view;
}

CGRect UITableView::rectForRowAtIndexPath(const NSIndexPath& indexPath) {
  core_->loadIfNeeded();
  return core_->rowFrame(indexPath);
}

CGRect UITableView::rectForSection(std::int64_t section) {
  core_->loadIfNeeded();
  return core_->frameOf(core_->geometry.section(section));
}

CGRect UITableView::rectForHeaderInSection(std::int64_t section) {
  core_->loadIfNeeded();
  return core_->frameOf(core_->geometry.header(section));
}

CGRect UITableView::rectForFooterInSection(std::int64_t section) {
  core_->loadIfNeeded();
  return core_->frameOf(core_->geometry.footer(section));
}

}  // namespace zephyl
