// Placing what is seen of a table. From back to front: background, rows, the table's header and
// footer, headers and footers of sections, section index, focus ring, scroll indicator.

#include <algorithm>

#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/tables/TableBlankRows.h"
#include "platform/uikit/tables/TableMetrics.h"
#include "platform/uikit/tables/TableSectionIndex.h"
#include "platform/uikit/tables/UIRefreshControl.h"
#include "platform/uikit/tables/UITableViewCore.h"

namespace zephyl {

void UITableView::Core::layout() {
  if (layingOut || asking) {
    return;
  }
  layingOut = true;
  loadIfNeeded();
  layoutBackdrop();
  table.UIScrollView::layoutSubviews();
  layoutRows();
  layoutBanners();
  layoutIndex();
  layoutFocusRing();
  layingOut = false;
}

CGRect UITableView::Core::frameOf(const TableSpan& span) const {
  return CGRectMake(0, span.top, table.bounds().width(), span.height());
}

CGRect UITableView::Core::rowFrame(const NSIndexPath& path) const {
  return frameOf(geometry.row(path));
}

void UITableView::Core::layoutBackdrop() {
  if (backgroundView != nullptr) {
    backgroundView->setFrame(table.bounds());
  }
  if (headerView != nullptr) {
    headerView->setFrame(CGRectMake(0, 0, table.bounds().width(), headerView->frame().height()));
  }
  if (footerView != nullptr) {
    footerView->setFrame(frameOf(geometry.tableFooter()));
  }
  if (refresh != nullptr) {
    refresh->setFrame(CGRectMake(0, -UIRefreshControl::kHeight, table.bounds().width(),
                                 UIRefreshControl::kHeight));
  }
  layoutBlankRows();
}

void UITableView::Core::layoutBlankRows() {
  const CGFloat bottom = table.bounds().maxY();
  const bool needed = style == UITableViewStyle::kPlain && footerView == nullptr &&
                      backgroundView == nullptr && geometry.height() < bottom &&
                      separatorStyle == UITableViewCellSeparatorStyle::kSingleLine;
  if (blankRows == nullptr) {
    if (!needed) {
      return;
    }
    blankRows = std::make_shared<TableBlankRows>();
    table.insertSubview(blankRows, 0);
  }
  blankRows->setHidden(!needed);
  if (needed) {
    const CGFloat width = table.bounds().width();
    blankRows->setRowHeight(rowHeight);
    blankRows->setInset(separatorInset.left < 0 ? marginOfRows(width) : separatorInset.left);
    blankRows->setFrame(CGRectMake(0, geometry.height(), width, bottom - geometry.height()));
  }
}

bool UITableView::Core::holdsFirstResponder(const UIView& view) const {
  const UIWindow* const window = table.window();
  const auto* const first =
      window == nullptr ? nullptr : dynamic_cast<const UIView*>(window->firstResponder());
  return first != nullptr && first->isDescendantOfView(&view);
}

void UITableView::Core::layoutRows() {
  const CGRect seen = table.bounds();
  const Paths rows = geometry.rowsBetween(seen.y(), seen.maxY());
  std::vector<Cell> gone;
  std::erase_if(cells, [&](const auto& entry) {
    const bool isSeen = std::binary_search(rows.begin(), rows.end(), entry.first);
    // What is typed into stays, wherever it is.
    if (isSeen || (geometry.contains(entry.first) && holdsFirstResponder(*entry.second))) {
      return false;
    }
    gone.push_back(entry.second);
    return true;
  });
  for (const Cell& cell : gone) {
    recycle(cell);
  }
  for (const NSIndexPath& path : rows) {
    placeRow(path);
    // Told to reload meanwhile: the next layout begins anew.
    if (needsCells) {
      return;
    }
  }
}

void UITableView::Core::placeRow(const NSIndexPath& path) {
  const auto present = cells.find(path);
  const CGRect frame = rowFrame(path);
  if (present != cells.end()) {
    const Cell cell = present->second;
    cell->setSurroundings(surroundingsOf(path, cell->surroundings()));
    cell->setFrame(frame);
    return;
  }
  const Cell cell = makeCell(path);
  CGRect from = frame;
  bool fades = false;
  if (running != nullptr) {
    const auto old = running->update.oldRow(path);
    fades = !old || running->update.isReloaded(*old);
    from = fades ? frame : frameOf(running->before.row(*old));
  }
  performWithoutAnimation([&] {
    cell->setFrame(from);
    cell->setAlpha(fades ? 0 : 1);
    table.insertSubview(cell, indexForCell(path));
    cell->layoutIfNeeded();
  });
  cell->setFrame(frame);
  cell->setAlpha(1);
}

// After the cell of the row before, so that the tree is in the order of the rows.
std::size_t UITableView::Core::indexForCell(const NSIndexPath& path) const {
  const auto& views = table.subviews();
  const auto here = cells.lower_bound(path);
  for (auto before = std::make_reverse_iterator(here); before != cells.rend(); ++before) {
    const auto at = std::find(views.begin(), views.end(), before->second);
    if (at != views.end()) {
      return static_cast<std::size_t>(at - views.begin()) + 1;
    }
  }
  return (backgroundView != nullptr ? 1U : 0U) + (blankRows != nullptr ? 1U : 0U);
}

TableCellSurroundings UITableView::Core::surroundingsOf(const NSIndexPath& path,
                                                        TableCellSurroundings present) const {
  const std::int64_t count = geometry.numberOfRows(path.section);
  const bool plain = style == UITableViewStyle::kPlain;
  const bool lines = separatorStyle == UITableViewCellSeparatorStyle::kSingleLine;
  present.background =
      plain ? UIColor::systemBackgroundColor() : UIColor::secondarySystemGroupedBackgroundColor();
  present.separatorInset = separatorInset;
  present.topSeparator = lines && !plain && path.row == 0;
  present.bottomSeparator = lines;
  present.endsGroup = !plain && path.row + 1 == count;
  present.trailingInset = index == nullptr ? 0 : TableSectionIndex::kWidth;
  present.position = path.row + 1;
  present.count = count;
  present.focused = focusShown && focusedRow == path;
  return present;
}

void UITableView::Core::layoutBanners() {
  const CGRect seen = table.bounds();
  const Sections sections = geometry.sectionsBetween(seen.y(), seen.maxY());
  for (auto* const banners : {&headers, &footers}) {
    std::erase_if(*banners, [&](const auto& entry) {
      const bool isSeen = std::binary_search(sections.begin(), sections.end(), entry.first);
      if (!isSeen) {
        recycle(entry.second);
      }
      return !isSeen;
    });
  }
  for (const std::int64_t section : sections) {
    layoutBanner(section, /*isFooter=*/false);
    layoutBanner(section, /*isFooter=*/true);
    if (needsCells) {
      return;
    }
  }
}

CGRect UITableView::Core::bannerFrame(std::int64_t section, bool isFooter) const {
  if (isFooter) {
    return frameOf(geometry.footer(section));
  }
  CGRect frame = frameOf(geometry.header(section));
  if (style == UITableViewStyle::kPlain) {
    // It stays at the top for as long as its rows are there.
    const CGFloat top = table.bounds().y() + table.adjustedContentInset().top;
    const CGFloat last = geometry.footer(section).top - frame.height();
    frame.origin.y = std::max(frame.y(), std::min(top, last));
  }
  return frame;
}

void UITableView::Core::layoutBanner(std::int64_t section, bool isFooter) {
  auto& banners = isFooter ? footers : headers;
  const CGRect frame = bannerFrame(section, isFooter);
  auto present = banners.find(section);
  if (frame.height() <= 0) {
    if (present != banners.end()) {
      recycle(present->second);
      banners.erase(present);
    }
    return;
  }
  if (present == banners.end()) {
    const Banner made = makeBanner(section, isFooter);
    present = banners.emplace(section, made).first;
    if (made.view != nullptr) {
      performWithoutAnimation([&] {
        made.view->setFrame(frame);
        table.insertSubview(made.view, frontIndex());
        made.view->layoutIfNeeded();
      });
    }
  }
  if (present->second.view != nullptr) {
    present->second.view->setFrame(frame);
  }
}

std::size_t UITableView::Core::frontIndex() const {
  const auto& views = table.subviews();
  const auto front = std::find_if(views.begin(), views.end(), [this](const auto& view) {
    return view == index || view == focusRing;
  });
  const std::size_t last = views.empty() ? 0 : views.size() - 1;
  return front == views.end() ? last : static_cast<std::size_t>(front - views.begin());
}

void UITableView::Core::layoutIndex() {
  if (index != nullptr) {
    UIEdgeInsets inset = table.adjustedContentInset();
    // It leaves the header's place free also when that is scrolled away, so that the letters stay.
    inset.top += headerView == nullptr ? 0 : headerView->frame().height();
    index->placeIn(UIEdgeInsetsInsetRect(table.bounds(), inset));
  }
}

void UITableView::Core::scrollTo(CGFloat y, bool animated) {
  table.setContentOffset({table.contentOffset().x, table.verticalRange().clamp(y)}, animated);
}

void UITableView::scrollToRowAtIndexPath(const NSIndexPath& indexPath,
                                         UITableViewScrollPosition position, bool animated) {
  core_->loadIfNeeded();
  if (!core_->geometry.contains(indexPath)) {
    return;
  }
  const UIEdgeInsets inset = adjustedContentInset();
  const TableSpan row = core_->geometry.row(indexPath);
  // What a pinned header covers is not seen.
  const CGFloat pinned = core_->style == UITableViewStyle::kPlain
                             ? core_->geometry.header(indexPath.section).height()
                             : 0;
  const CGFloat top = inset.top + pinned;
  const CGFloat height = bounds().height();
  switch (position) {
    case UITableViewScrollPosition::kNone:
      return scrollRectToVisible(
          CGRectMake(contentOffset().x, row.top - pinned, 1, row.height() + pinned), animated);
    case UITableViewScrollPosition::kTop:
      return core_->scrollTo(row.top - top, animated);
    case UITableViewScrollPosition::kMiddle:
      return core_->scrollTo((row.top + row.bottom - top - (height - inset.bottom)) / 2, animated);
    case UITableViewScrollPosition::kBottom:
      return core_->scrollTo(row.bottom - (height - inset.bottom), animated);
  }
}

}  // namespace zephyl
