// Times a piece of work beside a peer: the two by turns, so that both meet the same machine.

#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace zephyl::bench {

// What a piece of work took, by the wall clock and of the processor's time of this process.
struct Seconds {
  double wall = 0.0;
  double processor = 0.0;
};

template <class Work>
[[nodiscard]] Seconds secondsOf(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  const std::clock_t processor = std::clock();
  work();
  return {std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(),
          static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC};
}

[[nodiscard]] inline double medianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

struct Peer {
  const char* name;
  std::function<void()> work;
};

class Timings {
 public:
  void add(const Seconds& seconds) {
    wall_.push_back(seconds.wall);
    processor_.push_back(seconds.processor);
  }
  [[nodiscard]] Seconds median() const { return {medianOf(wall_), medianOf(processor_)}; }

 private:
  std::vector<double> wall_;
  std::vector<double> processor_;
};

// For a benchmark of manual time. Gives the medians in milliseconds of the work ("ms" by the wall
// clock, "cpu_ms" of the processor) and of each peer ("NAME_ms"), and how often the peer fits into
// the work ("x_NAME", "cpu_x_NAME"): on a busy machine only the processor's ratio tells.
template <class Work>
void compare(benchmark::State& state, const Work& work, const std::vector<Peer>& peers = {}) {
  Timings own;
  std::vector<Timings> others(peers.size());
  work();  // what is done only the first time is left out
  for ([[maybe_unused]] auto turn : state) {
    const Seconds seconds = secondsOf(work);
    state.SetIterationTime(seconds.wall);
    own.add(seconds);
    for (std::size_t peer = 0; peer < peers.size(); ++peer) {
      others[peer].add(secondsOf(peers[peer].work));
    }
  }
  state.counters["ms"] = own.median().wall * 1e3;
  state.counters["cpu_ms"] = own.median().processor * 1e3;
  for (std::size_t peer = 0; peer < peers.size(); ++peer) {
    const std::string name = peers[peer].name;
    const Seconds other = others[peer].median();
    state.counters[name + "_ms"] = other.wall * 1e3;
    state.counters["x_" + name] = own.median().wall / other.wall;
    state.counters["cpu_x_" + name] = own.median().processor / other.processor;
  }
}

}  // namespace zephyl::bench
