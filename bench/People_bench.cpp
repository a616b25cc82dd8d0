// What the picker of people costs with an address book of 10,000 and of 100,000: its sections, the
// sections of what it knows already, and a keystroke in its search.

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/Comparison.h"
#include "bench/PeopleData.h"
#include "bench/PeoplePeers.h"
#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/LinuxDevice.h"
#include "ui/people/ContactPartition.h"
#include "ui/people/ContactSearch.h"

namespace zephyl::bench {
namespace {

constexpr auto kByLast = ABPersonSortOrdering::kByLastName;

const std::vector<std::string>& languages() {
  static const std::vector<std::string> all = {"en", "ru", "el", "ar", "he", "ja", "ko", "zh-Hans"};
  return all;
}

class PeopleDevice {
 public:
  PeopleDevice() {
    linux_host::DeviceOptions options;
    options.deviceRoot = folder_.path();
    options.languages = languages();
    device_.emplace(std::move(options));
    install(*device_);
  }
  ~PeopleDevice() { uninstall(); }
  PeopleDevice(const PeopleDevice&) = delete;
  PeopleDevice& operator=(const PeopleDevice&) = delete;

 private:
  contract::TemporaryFolder folder_;
  std::optional<linux_host::LinuxDevice> device_;
};

APContactArray flat(const ContactSections& sections) {
  APContactArray all;
  for (const APContactArray& section : sections) {
    all.insert(all.end(), section.begin(), section.end());
  }
  return all;
}

void comparePartition(benchmark::State& state, bool isKnown) {
  const PeopleDevice device;
  const auto contacts = inventedContacts(static_cast<std::size_t>(state.range(0)));
  const IcuPartitionPeer peer(languages());
  std::optional<ContactPartition> partition(std::in_place);
  if (flat(partition->sections(contacts, kByLast)) != peer.partition(contacts)) {
    throw std::runtime_error("the peer has another order");
  }
  compare(state,
          [&] {
            if (!isKnown) {
              partition.emplace();
            }
            benchmark::DoNotOptimize(partition->sections(contacts, kByLast));
          },
          {{"icu", [&] { benchmark::DoNotOptimize(peer.partition(contacts)); }}});
}

void BM_PeopleSections(benchmark::State& state) {
  comparePartition(state, /*isKnown=*/false);
}
BENCHMARK(BM_PeopleSections)
    ->Arg(10'000)
    ->Arg(100'000)
    ->UseManualTime()
    ->Iterations(9)
    ->Unit(benchmark::kMillisecond);

void BM_PeopleSectionsAgain(benchmark::State& state) {
  comparePartition(state, /*isKnown=*/true);
}
BENCHMARK(BM_PeopleSectionsAgain)
    ->Arg(10'000)
    ->Arg(100'000)
    ->UseManualTime()
    ->Iterations(9)
    ->Unit(benchmark::kMillisecond);

using Strokes = std::vector<std::vector<std::string>>;

Strokes searches() {
  Strokes strokes;
  for (const std::string& text : inventedSearches()) {
    strokes.push_back(searchWords(text));
  }
  return strokes;
}

Strokes typing(const std::string& text) {
  Strokes strokes;
  for (std::size_t length = 1; length <= text.size(); ++length) {
    strokes.push_back(searchWords(text.substr(0, length)));
  }
  return strokes;
}

// All strokes, one after the other.
void compareSearch(benchmark::State& state, const Strokes& strokes) {
  const auto contacts = inventedContacts(static_cast<std::size_t>(state.range(0)));
  ContactSearch search(contacts);
  LikePeer like(contacts);
  const MemmemPeer memmem(contacts);
  for (const auto& words : strokes) {
    if (search.find(words).size() != memmem.count(words)) {
      throw std::runtime_error("the peer finds others");
    }
  }
  const auto all = [&](auto count) {
    return [&strokes, count] {
      for (const auto& words : strokes) {
        benchmark::DoNotOptimize(count(words));
      }
    };
  };
  compare(state, all([&](const auto& words) { return search.find(words).size(); }),
          {{"like", all([&](const auto& words) { return like.count(words); })},
           {"memmem", all([&](const auto& words) { return memmem.count(words); })}});
}

void BM_PeopleSearch(benchmark::State& state) {
  compareSearch(state, searches());
}
BENCHMARK(BM_PeopleSearch)
    ->Arg(10'000)
    ->Arg(100'000)
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

void BM_PeopleSearchTyping(benchmark::State& state) {
  compareSearch(state, typing("anna bol"));
}
BENCHMARK(BM_PeopleSearchTyping)
    ->Arg(100'000)
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zephyl::bench
