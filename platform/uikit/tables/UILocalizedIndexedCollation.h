// The lettered sections of a long list, and the order within them, in the user's languages. Main
// thread.

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "platform/Export.h"

namespace zephyl {

class ZP_EXPORT UILocalizedIndexedCollation {
 public:
  // That of the installed host.
  [[nodiscard]] static std::shared_ptr<UILocalizedIndexedCollation> currentCollation();

  // "#", for what begins with no letter, is the last.
  [[nodiscard]] const std::vector<std::string>& sectionTitles() const { return titles_; }
  // Of the index beside the list; each leads to the section of its own number.
  [[nodiscard]] const std::vector<std::string>& sectionIndexTitles() const { return titles_; }
  [[nodiscard]] std::int64_t sectionForSectionIndexTitleAtIndex(std::int64_t index) const;

  // A selector is a function, or a member function, that gives an object's text.
  template <class Object, class Selector>
  [[nodiscard]] std::int64_t sectionForObject(const Object& object, Selector selector) const {
    return sectionForString(std::invoke(selector, object));
  }
  // Those that sort alike keep their order.
  template <class Object, class Selector>
  [[nodiscard]] std::vector<std::shared_ptr<Object>> sortedArrayFromArray(
      const std::vector<std::shared_ptr<Object>>& array, Selector selector) const {
    std::vector<std::string> keys;
    keys.reserve(array.size());
    for (const auto& object : array) {
      keys.push_back(sortKey(std::invoke(selector, *object)));
    }
    std::vector<std::size_t> order(array.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t left, std::size_t right) { return keys[left] < keys[right]; });
    std::vector<std::shared_ptr<Object>> sorted;
    sorted.reserve(array.size());
    for (const std::size_t at : order) {
      sorted.push_back(array[at]);
    }
    return sorted;
  }

 private:
  explicit UILocalizedIndexedCollation(std::vector<std::string> titles)
      : titles_(std::move(titles)) {}

  [[nodiscard]] static std::int64_t sectionForString(const std::string& text);
  [[nodiscard]] static std::string sortKey(const std::string& text);

  std::vector<std::string> titles_;
};

}  // namespace zephyl
