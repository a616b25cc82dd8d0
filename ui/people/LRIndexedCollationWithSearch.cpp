#include "ui/people/LRIndexedCollationWithSearch.h"

#include "platform/uikit/tables/UITableViewProtocols.h"

namespace zephyl {

std::shared_ptr<LRIndexedCollationWithSearch> LRIndexedCollationWithSearch::currentCollation() {
  return std::make_shared<LRIndexedCollationWithSearch>(
      UILocalizedIndexedCollation::currentCollation());
}

std::vector<std::string> LRIndexedCollationWithSearch::sectionIndexTitles() const {
  const auto& letters = collation_->sectionIndexTitles();
  std::vector<std::string> titles{UITableViewIndexSearch};
  titles.insert(titles.end(), letters.begin(), letters.end());
  return titles;
}

std::int64_t LRIndexedCollationWithSearch::sectionForSectionIndexTitleAtIndex(
    std::int64_t index) const {
  return index == 0 ? NSNotFound : collation_->sectionForSectionIndexTitleAtIndex(index - 1);
}

}  // namespace zephyl
