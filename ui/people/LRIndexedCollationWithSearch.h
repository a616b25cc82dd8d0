// The sections of the system's collation with an entry for searching in front of their index. Main
// thread.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/tables/UILocalizedIndexedCollation.h"

namespace zephyl {

class ZP_EXPORT LRIndexedCollationWithSearch {
 public:
  // Around the system's current one.
  [[nodiscard]] static std::shared_ptr<LRIndexedCollationWithSearch> currentCollation();
  explicit LRIndexedCollationWithSearch(std::shared_ptr<UILocalizedIndexedCollation> collation)
      : collation_(std::move(collation)) {}

  [[nodiscard]] const std::vector<std::string>& sectionTitles() const {
    return collation_->sectionTitles();
  }
  // The magnifying glass, then those of the collation.
  [[nodiscard]] std::vector<std::string> sectionIndexTitles() const;
  // NSNotFound for the magnifying glass.
  [[nodiscard]] std::int64_t sectionForSectionIndexTitleAtIndex(std::int64_t index) const;

  template <class Object, class Selector>
  [[nodiscard]] std::int64_t sectionForObject(const Object& object, Selector selector) const {
    return collation_->sectionForObject(object, selector);
  }
  template <class Object, class Selector>
  [[nodiscard]] std::vector<std::shared_ptr<Object>> sortedArrayFromArray(
      const std::vector<std::shared_ptr<Object>>& array, Selector selector) const {
    return collation_->sortedArrayFromArray(array, selector);
  }

 private:
  std::shared_ptr<UILocalizedIndexedCollation> collation_;
};

}  // namespace zephyl
