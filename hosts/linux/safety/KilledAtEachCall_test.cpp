#include <chrono>
#include <csignal>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hosts/linux/safety/Safety_testing.h"

namespace zephyl::linux_host {
namespace {

// A program that is held at every system call, at its beginning and its end.
class TracedProgram {
 public:
  explicit TracedProgram(const std::vector<std::string>& words) : process_(::fork()) {
    if (process_ == 0) {
      std::vector<char*> pointers;
      pointers.reserve(words.size() + 1);
      for (const std::string& word : words) {
        pointers.push_back(const_cast<char*>(word.c_str()));
      }
      pointers.push_back(nullptr);
      ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
      ::execv(pointers.front(), pointers.data());
      ::_exit(127);
    }
  }
  ~TracedProgram() {
    if (!ended_) {
      ::kill(process_, SIGKILL);
      ::waitpid(process_, nullptr, 0);
    }
  }
  TracedProgram(const TracedProgram&) = delete;
  TracedProgram& operator=(const TracedProgram&) = delete;

  // Lets it run until it stops itself. False when it ended.
  [[nodiscard]] bool runUntilItStops() {
    int signal = next();
    while (!ended_ && signal != SIGSTOP) {
      proceed(PTRACE_CONT);
      signal = next();
    }
    return !ended_;
  }
  // Lets it go to the next beginning or end of a system call. False when it ended.
  [[nodiscard]] bool step() {
    proceed(PTRACE_SYSCALL);
    static_cast<void>(next());
    return !ended_;
  }

 private:
  void proceed(decltype(PTRACE_CONT) how) {
    EXPECT_EQ(::ptrace(how, process_, nullptr, nullptr), 0) << "cannot watch a program";
  }
  // The signal that it is held by.
  int next() {
    constexpr auto kLongest = std::chrono::seconds(10);
    const auto start = std::chrono::steady_clock::now();
    int status = 0;
    while (::waitpid(process_, &status, WNOHANG) != process_) {
      if (std::chrono::steady_clock::now() - start > kLongest) {
        ADD_FAILURE() << "the program hangs";
        ended_ = ::kill(process_, SIGKILL) == 0 && ::waitpid(process_, nullptr, 0) == process_;
        return 0;
      }
      std::this_thread::yield();
    }
    ended_ = !WIFSTOPPED(status);
    return ended_ ? 0 : WSTOPSIG(status);
  }

  pid_t process_;
  bool ended_ = false;
};

class KilledAtEachCallTest : public SafetyFixture {
 protected:
  // A program saves a list of so many lines and is killed after `steps`, or else ends.
  [[nodiscard]] bool isKilledWhileSaving(long lines, int steps) {
    TracedProgram program(
        {ZEPHYLS_SAVER, real(), options().folder, options().notes, std::to_string(lines)});
    EXPECT_TRUE(program.runUntilItStops());
    for (int step = 0; step < steps; ++step) {
      if (!program.step()) {
        return false;
      }
    }
    return true;
  }
  [[nodiscard]] std::string saved(long lines) {
    EXPECT_FALSE(isKilledWhileSaving(lines, 100'000));
    return read().value_or("none");
  }
};

// The new list is shorter, so that for a moment the rest of the old one stands behind it.
TEST_F(KilledAtEachCallTest, TheOldOrTheNewContentIsWhole) {
  const std::string after = saved(2);
  const std::string before = saved(3);
  ASSERT_GT(before.size(), after.size());
  int olds = 0;
  int news = 0;
  for (int step = 0; isKilledWhileSaving(2, step) && !HasFailure(); ++step) {
    restart();
    const std::string left = read().value_or("none");
    ASSERT_TRUE(left == before || left == after) << "killed after " << step << " steps: " << left;
    ASSERT_FALSE(hasJournal());
    olds += left == before ? 1 : 0;
    if (left == after) {
      ++news;
      ASSERT_EQ(saved(3), before);
      restart();
    }
  }
  EXPECT_GT(olds, 10);
  EXPECT_GT(news, 2);
  // Some of them left a mixture.
  EXPECT_FALSE(asideContents().empty());
  for (const std::string& torn : asideContents()) {
    EXPECT_TRUE(torn.starts_with(after));
  }
}

}  // namespace
}  // namespace zephyl::linux_host
