#include "platform/uikit/tables/UILocalizedIndexedCollation.h"

#include "platform/Host.h"
#include "platform/foundation/Collation.h"

namespace zephyl {

std::shared_ptr<UILocalizedIndexedCollation> UILocalizedIndexedCollation::currentCollation() {
  return std::shared_ptr<UILocalizedIndexedCollation>(
      new UILocalizedIndexedCollation(host().collation().sectionTitles()));
}

std::int64_t UILocalizedIndexedCollation::sectionForSectionIndexTitleAtIndex(
    std::int64_t index) const {
  return index;
}

std::int64_t UILocalizedIndexedCollation::sectionForString(const std::string& text) {
  return static_cast<std::int64_t>(host().collation().sectionForString(text));
}

std::string UILocalizedIndexedCollation::sortKey(const std::string& text) {
  std::string key;
  host().collation().appendSortKey(text, key);
  return key;
}

}  // namespace zephyl
