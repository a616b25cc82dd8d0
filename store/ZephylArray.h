// The store's list of groups: one live, shared object. Changes are published whole, so that
// background work may walk what it took while the list changes.

#pragma once

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "platform/Published.h"

#include "model/Zephyl.h"

namespace zephyl {

using ZephylVector = std::vector<ZephylRef>;

class ZephylArray {
 public:
  // What the list holds now; later changes do not reach it. Any thread.
  [[nodiscard]] std::shared_ptr<const ZephylVector> snapshot() const { return groups_.load(); }
  [[nodiscard]] bool empty() const { return snapshot()->empty(); }
  [[nodiscard]] std::size_t size() const { return snapshot()->size(); }

  void append(const ZephylVector& groups) {
    change([&](ZephylVector& all) { all.insert(all.end(), groups.begin(), groups.end()); });
  }
  void replaceAt(std::size_t index, const ZephylRef& group) {
    change([&](ZephylVector& all) { all.at(index) = group; });
  }
  void removeAt(std::size_t index) {
    change([&](ZephylVector& all) { all.erase(all.begin() + static_cast<std::ptrdiff_t>(index)); });
  }
  template <class Predicate>
  void removeWhere(const Predicate& matches) {
    change([&](ZephylVector& all) { std::erase_if(all, matches); });
  }
  void removeAll() {
    change([](ZephylVector& all) { all.clear(); });
  }

 private:
  template <class Change>
  void change(const Change& apply) {
    auto next = std::make_shared<ZephylVector>(*groups_.load());
    apply(*next);
    groups_.store(std::move(next));
  }

  Published<const ZephylVector> groups_{std::make_shared<const ZephylVector>()};
};

}  // namespace zephyl
