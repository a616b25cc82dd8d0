// Kills a program that saves again and again, at random moments, and lets a test look at what each
// one left behind.

#pragma once

#include <chrono>
#include <csignal>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/testing/ChildProcess.h"

namespace zephyl::test {

struct KillPlan {
  // Prints a number, greater each time, and a line feed after each save that was acknowledged.
  std::vector<std::string> words;
  // Looks at what is left; the last number printed by any of the programs so far, or 0.
  std::function<void(long acknowledged)> check;
  int kills = 300;
  // Counted for one program from its start, for the next from its first save, which a slow machine
  // may see late.
  std::chrono::milliseconds longestLife{40};
  std::chrono::seconds limit{60};  // no further program is started after that
};

// Whether the program saved before long.
inline bool hasSaved(ChildProcess& program, const std::string& output, const std::string& before) {
  constexpr std::chrono::milliseconds kBeat{1};
  for (int beats = 0; beats < 20'000; ++beats) {
    const std::string now = contentOf(output);
    if (now != before && now.ends_with('\n')) {
      return true;
    }
    if (program.wait(kBeat)) {
      return false;
    }
  }
  return false;
}

// The number of programs killed.
inline int killAtRandom(const KillPlan& plan) {
  const contract::TemporaryFolder folder;
  ChildOptions options;
  options.outputFile = folder.path() + "/acknowledged";
  std::mt19937 random(20'200'913);  // NOLINT: the same moments each time
  std::uniform_int_distribution<long> life(0, plan.longestLife.count());
  const auto start = std::chrono::steady_clock::now();
  long acknowledged = 0;
  int killed = 0;
  while (killed < plan.kills && !::testing::Test::HasFailure() &&
         std::chrono::steady_clock::now() - start < plan.limit) {
    const std::string earlier = contentOf(options.outputFile);
    ChildProcess program(plan.words, options);
    if (killed % 2 == 1) {
      EXPECT_TRUE(hasSaved(program, options.outputFile, earlier));
    }
    const auto ended = program.wait(std::chrono::milliseconds(life(random)));
    EXPECT_FALSE(ended) << "it ended by itself with status " << *ended;
    program.signal(SIGKILL);
    EXPECT_TRUE(program.wait(std::chrono::seconds(10)));
    ++killed;
    const std::string output = contentOf(options.outputFile);
    // The last line may have been cut.
    const std::size_t end = output.rfind('\n');
    if (end != std::string::npos && end > 0) {
      const std::size_t before = output.rfind('\n', end - 1);
      acknowledged = std::stol(output.substr(before == std::string::npos ? 0 : before + 1));
    }
    plan.check(acknowledged);
  }
  return killed;
}

}  // namespace zephyl::test
