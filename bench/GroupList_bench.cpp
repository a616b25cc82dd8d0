// What making the list of groups costs with 10,000 groups, beside bare sorts of the same titles.

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "platform/foundation/CaseFolding.h"

#include "bench/BenchDevice.h"
#include "bench/Comparison.h"
#include "ui/groups/GroupSections.h"

namespace zephyl::bench {
namespace {

constexpr std::size_t kGroups = 10'000;

// Titles whose order is not that of the store.
ZephylVector groupsInDisorder() {
  ZephylVector groups = *BenchDevice::store()->allZephyls()->snapshot();
  std::size_t number = 1;
  for (const ZephylRef& group : groups) {
    number = number * 48'271 % 2'147'483'647;
    group->setTitle((number % 2 == 0 ? "group " : "Group ") + std::to_string(number));
  }
  return groups;
}

std::vector<std::string> titlesOf(const ZephylVector& groups, bool folded) {
  std::vector<std::string> titles;
  titles.reserve(groups.size());
  for (const ZephylRef& group : groups) {
    titles.push_back(folded ? caseFolded(group->title()) : group->title());
  }
  return titles;
}

// `bytes` sorts the titles as they are, `folded` without regard to case.
void BM_GroupListRebuild(benchmark::State& state) {
  BenchDevice device(/*conversations=*/0, kGroups);
  const ZephylVector groups = groupsInDisorder();
  device.settle();
  const auto sorted = [&groups](bool folded) {
    std::vector<std::string> titles = titlesOf(groups, folded);
    std::stable_sort(titles.begin(), titles.end());
    return titles;
  };
  const GroupSections check(groups, /*withSystemGroups=*/true, {});
  if (titlesOf(check.groupsIn(0), /*folded=*/true) != sorted(/*folded=*/true)) {
    throw std::runtime_error("the list is in another order");
  }
  compare(state,
          [&] {
            const GroupSections sections(groups, /*withSystemGroups=*/true, {});
            benchmark::DoNotOptimize(sections.groupAt({0, 0}));
          },
          {{"bytes", [&] { benchmark::DoNotOptimize(sorted(/*folded=*/false)); }},
           {"folded", [&] { benchmark::DoNotOptimize(sorted(/*folded=*/true)); }}});
}
BENCHMARK(BM_GroupListRebuild)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zephyl::bench
