// What one edit costs with 100 groups of 20 members over 100,000 conversations, part by part, and
// what a save costs.

#include <cstddef>
#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>

#include "platform/Host.h"
#include "platform/foundation/DarwinNotificationCenter.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/foundation/PropertyList.h"

#include "bench/BenchDevice.h"
#include "bench/Comparison.h"
#include "bench/Peers.h"
#include "model/ZephylKeys.h"

namespace zephyl::bench {
namespace {

constexpr std::size_t kConversations = 100'000;
constexpr std::size_t kGroups = 100;

ZephylVector groupsOf(BenchDevice& device) {
  ZephylVector groups = *BenchDevice::store()->allZephyls()->snapshot();
  device.settle();
  return groups;
}

std::size_t shownBy(const ZephylVector& groups) {
  std::size_t count = 0;
  for (const ZephylRef& group : groups) {
    count += group->conversations()->conversations().size();
  }
  return count;
}

// Every group's conversations anew, one after the other on this thread.
void BM_ConversationLoads(benchmark::State& state) {
  BenchDevice device(kConversations, kGroups);
  const ZephylVector groups = groupsOf(device);
  const InternedPeer interned(inventedConversations(kConversations),
                              inventedGroups(kGroups, kConversations + 1));
  if (shownBy(groups) != interned.filterAll()) {
    throw std::runtime_error("the peer shows other conversations");
  }
  compare(state,
          [&] {
            for (const ZephylRef& group : groups) {
              group->loadAffiliatedConversations(/*inBackground=*/false);
            }
          },
          {{"interned", [&] { benchmark::DoNotOptimize(interned.filterAll()); }}});
}
BENCHMARK(BM_ConversationLoads)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

// Until the caller goes on: the active group's conversations, the save, the notification.
void BM_EditReturns(benchmark::State& state) {
  BenchDevice device(kConversations, kGroups);
  const ZephylVector groups = groupsOf(device);
  for ([[maybe_unused]] auto turn : state) {
    const Seconds seconds =
        secondsOf([&] { BenchDevice::store()->updateZephyl(groups[50], nullptr, nullptr); });
    state.SetIterationTime(seconds.wall);
    device.settle();
  }
}
BENCHMARK(BM_EditReturns)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

// Until the conversations of the groups in the background are there, too.
void BM_EditIsDone(benchmark::State& state) {
  BenchDevice device(kConversations, kGroups);
  const ZephylVector groups = groupsOf(device);
  compare(state, [&] {
    BenchDevice::store()->updateZephyl(groups[50], nullptr, nullptr);
    device.settle();
  });
}
BENCHMARK(BM_EditIsDone)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

// The store's save of that many groups, to the file itself.
void BM_Save(benchmark::State& state) {
  BenchDevice device(/*conversations=*/0, static_cast<std::size_t>(state.range(0)));
  const auto save = [] {
    if (!BenchDevice::store()->saveAllGroupsToDisk(nullptr, /*postNotification=*/false, "")) {
      throw std::runtime_error("not saved");
    }
  };
  save();
  const std::string bytes = *host().files().contentsAtPath(kGroupsFilePath);
  const PlistPeer plist(bytes);
  compare(state, save,
          {{"libplist", [&] { writeBytes(device.peerFile(), plist.xml()); }},
           {"bytes", [&] { writeBytes(device.peerFile(), bytes); }}});
  state.counters["MB"] = static_cast<double>(bytes.size()) / 1e6;
}
BENCHMARK(BM_Save)->Arg(100)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);

// The store's list anew, from the file itself. The peer stops at a tree of values.
void BM_Load(benchmark::State& state) {
  BenchDevice device(/*conversations=*/0, static_cast<std::size_t>(state.range(0)));
  compare(state,
          [&] {
            BenchDevice::store()->reloadAllZephyls();
            device.settle();
          },
          {{"libplist", [&] { PlistPeer::read(device.groupsFile()); }}});
}
BENCHMARK(BM_Load)->Arg(100)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);

// One notification: its observer in this process, and its turn on the main queue system-wide.
void BM_Notification(benchmark::State& state) {
  BenchDevice device(/*conversations=*/0, /*groups=*/1);
  int seen = 0;
  NSNotificationCenter::defaultCenter()->addObserver(&seen, kZephylChangedNotification,
                                                     [&](const NSNotification&) { ++seen; });
  const auto observer =
      host().darwinNotifications().addObserver(kZephylChangedNotification, [&] { ++seen; });
  const ZephylRef group = BenchDevice::store()->allZephyls()->snapshot()->front();
  for ([[maybe_unused]] auto turn : state) {
    NSNotificationCenter::defaultCenter()->postNotificationName(kZephylChangedNotification,
                                                                {{kZephylsKey, group}});
    host().darwinNotifications().post(kZephylChangedNotification);
    device.settle();
  }
  host().darwinNotifications().removeObserver(observer);
  if (seen != 2 * static_cast<int>(state.iterations())) {
    throw std::runtime_error("a notification was lost");
  }
}
BENCHMARK(BM_Notification)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zephyl::bench
