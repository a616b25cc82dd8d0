#include "apps/zephyls/Interruption.h"

#include <QCoreApplication>
#include <csignal>

#include <gtest/gtest.h>

namespace zephyl::app {
namespace {

class InterruptionTest : public ::testing::Test {
 protected:
  ~InterruptionTest() override { std::signal(SIGINT, SIG_DFL); }

  static auto handler() {
    struct sigaction action {};
    sigaction(SIGINT, nullptr, &action);
    return action.sa_handler;
  }

  int interruptions_ = 0;
};

TEST_F(InterruptionTest, IsToldByTheEventLoop) {
  const Interruption interruption([this] { ++interruptions_; });
  std::raise(SIGINT);
  EXPECT_EQ(interruptions_, 0);
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
  EXPECT_EQ(interruptions_, 1);
}

TEST_F(InterruptionTest, LeavesTheSecondOneToTheSystem) {
  const Interruption interruption([] {});
  EXPECT_NE(handler(), SIG_DFL);
  std::raise(SIGINT);
  EXPECT_EQ(handler(), SIG_DFL);
}

TEST_F(InterruptionTest, PutsBackWhatWasThere) {
  {
    const Interruption interruption([] {});
  }
  EXPECT_EQ(handler(), SIG_DFL);
}

TEST_F(InterruptionTest, CanBeWaitedForAgain) {
  {
    const Interruption first([] {});
  }
  const Interruption second([this] { ++interruptions_; });
  std::raise(SIGINT);
  QCoreApplication::processEvents();
  EXPECT_EQ(interruptions_, 1);
}

TEST_F(InterruptionTest, AnIgnoredSignalStaysIgnored) {
  std::signal(SIGINT, SIG_IGN);
  const Interruption interruption([this] { ++interruptions_; });
  std::raise(SIGINT);
  QCoreApplication::processEvents();
  EXPECT_EQ(interruptions_, 0);
  EXPECT_EQ(handler(), SIG_IGN);
}

}  // namespace
}  // namespace zephyl::app
