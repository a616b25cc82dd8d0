// The section index of a table.

#include <utility>

#include "platform/uikit/tables/TableSectionIndex.h"
#include "platform/uikit/tables/UITableViewCore.h"

namespace zephyl {

void UITableView::Core::loadIndex() {
  indexTitles = source()->sectionIndexTitlesForTableView(table);
  if (indexTitles.empty()) {
    if (index != nullptr) {
      index->removeFromSuperview();
      index = nullptr;
    }
    return;
  }
  if (index == nullptr) {
    index = std::make_shared<TableSectionIndex>([this](std::int64_t entry) { pickIndex(entry); });
    table.insertBelowIndicator(index);
  }
  index->setTitles(indexTitles);
}

void UITableView::Core::pickIndex(std::int64_t entry) {
  loadIfNeeded();
  if (entry < 0 || entry >= std::ssize(indexTitles)) {
    return;
  }
  const auto kept = table.weak_from_this().lock();
  table.stopScrolling();
  const std::string title = indexTitles[static_cast<std::size_t>(entry)];
  const std::int64_t section = source()->sectionForSectionIndexTitle(table, title, entry);
  if (section < 0 || section >= geometry.numberOfSections()) {
    return;
  }
  scrollTo(geometry.section(section).top - table.adjustedContentInset().top, /*animated=*/false);
}

}  // namespace zephyl
