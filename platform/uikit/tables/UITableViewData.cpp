// What the table asks for at a reload: counts and heights.

#include <algorithm>
#include <utility>

#include "platform/uikit/tables/TableSectionIndex.h"
#include "platform/uikit/tables/UIRefreshControl.h"
#include "platform/uikit/tables/UITableViewCore.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {
namespace {

constexpr CGFloat kPlainHeader = 28;
constexpr CGFloat kGroupedGap = 18;
constexpr CGFloat kGroupedFirst = 35;
// Around a title of a group.
constexpr CGFloat kAboveTitle = 14;
constexpr CGFloat kAboveFirstTitle = 31;
constexpr CGFloat kBesideTitle = 8;

class NoSource : public UITableViewDataSource {
 public:
  std::int64_t numberOfRowsInSection(UITableView& /*tableView*/,
                                     std::int64_t /*section*/) override {
    return 0;
  }
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(
      UITableView& /*tableView*/, const NSIndexPath& /*indexPath*/) override {
    return nullptr;
  }
};

CGFloat heightOf(const std::shared_ptr<UIView>& view) {
  return view == nullptr ? 0 : view->frame().height();
}

}  // namespace

std::shared_ptr<UITableViewDataSource> UITableView::Core::source() const {
  const auto present = dataSource.lock();
  return present != nullptr ? present : std::make_shared<NoSource>();
}

std::shared_ptr<UITableViewDelegate> UITableView::Core::rules() const {
  const auto present = delegate.lock();
  return present != nullptr ? present : std::make_shared<UITableViewDelegate>();
}

void UITableView::Core::loadIfNeeded() {
  if (!needsLoad || asking) {
    return;
  }
  if (std::exchange(needsCells, false)) {
    recycleAll();
  }
  load();
  std::erase_if(selected, [this](const NSIndexPath& path) { return !geometry.contains(path); });
  if (focusedRow && !geometry.contains(*focusedRow)) {
    focusedRow.reset();
  }
}

void UITableView::Core::load() {
  needsLoad = false;
  loadedWidth = table.bounds().width();
  asking = true;
  auto sections = askSections();
  loadIndex();
  asking = false;
  geometry = TableGeometry(heightOf(headerView), std::move(sections), heightOf(footerView));
  table.setContentSize({table.bounds().width(), geometry.height()});
}

std::vector<TableGeometry::Section> UITableView::Core::askSections() {
  const auto data = source();
  const auto rule = rules();
  const std::int64_t count = std::clamp<std::int64_t>(data->numberOfSectionsInTableView(table), 0,
                                                      TableGeometry::kMostSections);
  std::vector<TableGeometry::Section> sections(static_cast<std::size_t>(count));
  std::int64_t left = TableGeometry::kMostRows;
  bool haveHeights = true;
  for (std::int64_t section = 0; section < count; ++section) {
    TableGeometry::Section& each = sections[static_cast<std::size_t>(section)];
    each.rows = std::clamp<std::int64_t>(data->numberOfRowsInSection(table, section), 0, left);
    left -= each.rows;
    each.rowHeight = rowHeight;
    each.headerHeight = headerHeight(section);
    each.footerHeight = footerHeight(section);
    for (std::int64_t row = 0; haveHeights && row < each.rows; ++row) {
      const auto height = rule->heightForRowAtIndexPath(table, {section, row});
      // Kept: with the first that has none, all have none.
      haveHeights = height.has_value() || row > 0;
      if (haveHeights) {
        const bool automatic = !height || *height == UITableViewAutomaticDimension;
        each.rowHeights.push_back(automatic ? rowHeight : *height);
      }
    }
  }
  return sections;
}

CGFloat UITableView::Core::titleHeight(const std::string& title, bool isFooter) const {
  UITableViewHeaderFooterView sample;
  sample.setTableStyle(style, isFooter);
  sample.textLabel()->setText(title);
  return sample.titleHeight(table.bounds().width());
}

CGFloat UITableView::Core::headerHeight(std::int64_t section) {
  const auto own = rules()->heightForHeaderInSection(table, section);
  if (own && *own != UITableViewAutomaticDimension) {
    return *own;
  }
  if (sectionHeaderHeight >= 0) {
    return sectionHeaderHeight;
  }
  const std::string title = source()->titleForHeaderInSection(table, section);
  if (style == UITableViewStyle::kPlain) {
    return title.empty() ? 0 : kPlainHeader;
  }
  const bool first = section == 0 && headerView == nullptr;
  if (title.empty()) {
    return first ? kGroupedFirst : kGroupedGap;
  }
  return (first ? kAboveFirstTitle : kAboveTitle) + titleHeight(title, false) + kBesideTitle;
}

CGFloat UITableView::Core::footerHeight(std::int64_t section) {
  const auto own = rules()->heightForFooterInSection(table, section);
  if (own && *own != UITableViewAutomaticDimension) {
    return *own;
  }
  if (sectionFooterHeight >= 0) {
    return sectionFooterHeight;
  }
  const std::string title = source()->titleForFooterInSection(table, section);
  if (style == UITableViewStyle::kPlain) {
    return title.empty() ? 0 : kPlainHeader;
  }
  return title.empty() ? kGroupedGap : titleHeight(title, true) + 2 * kBesideTitle;
}

void UITableView::Core::heightsChanged() {
  needsLoad = true;
  table.setNeedsLayout();
}

void UITableView::setDataSource(std::weak_ptr<UITableViewDataSource> source) {
  core_->dataSource = std::move(source);
  reloadData();
}

void UITableView::setDelegate(const std::weak_ptr<UITableViewDelegate>& delegate) {
  core_->delegate = delegate;
  setScrollDelegate(delegate);
  core_->heightsChanged();
}

void UITableView::reloadData() {
  core_->needsLoad = true;
  core_->needsCells = true;
  core_->selected.clear();
  core_->changes = {};
  core_->endPress();
  setNeedsLayout();
}

std::int64_t UITableView::numberOfSections() {
  core_->loadIfNeeded();
  return core_->geometry.numberOfSections();
}

std::int64_t UITableView::numberOfRowsInSection(std::int64_t section) {
  core_->loadIfNeeded();
  return core_->geometry.numberOfRows(section);
}

}  // namespace zephyl
