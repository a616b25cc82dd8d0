// By what a list of objects is sorted. A value.

#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace zephyl {

template <class T>
struct NSSortDescriptor {
  // Below 0, 0 or above, as the first comes before, beside or after the second.
  std::function<int(const T&, const T&)> comparator;
  bool ascending = true;

  // By what `key` gives of an object, a member or a function, in that type's own order: texts by
  // their bytes, what is absent first.
  template <class Key>
  [[nodiscard]] static NSSortDescriptor sortDescriptorWithKey(Key key, bool ascending) {
    return {[key](const T& left, const T& right) {
              const auto& first = std::invoke(key, left);
              const auto& second = std::invoke(key, right);
              return first < second ? -1 : second < first ? 1 : 0;
            },
            ascending};
  }
};

// By the first of the descriptors, what is equal by it by the next; what is equal by all keeps its
// order.
template <class T>
void sortUsingDescriptors(
    std::vector<std::shared_ptr<T>>& objects,
    const std::vector<NSSortDescriptor<std::remove_const_t<T>>>& descriptors) {
  if (descriptors.empty()) {
    return;
  }
  std::stable_sort(objects.begin(), objects.end(), [&](const auto& left, const auto& right) {
    for (const auto& descriptor : descriptors) {
      const int order = descriptor.comparator(*left, *right);
      if (order != 0) {
        return descriptor.ascending ? order < 0 : order > 0;
      }
    }
    return false;
  });
}

}  // namespace zephyl
