// How a program fares with a system shell that hangs: a real one, stopped in its tracks.

#include <chrono>
#include <csignal>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/springboard/ShellTest.h"
#include "apps/zephyls/ShellMessagingCenter.h"

namespace zephyl::app::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Counts what the process would have answered itself.
class InProcess : public CPDistributedMessagingCenter {
 public:
  std::optional<Dictionary> sendMessageAndReceiveReplyName(const std::string&, const std::string&,
                                                           const Dictionary*) override {
    ++asked;
    return std::nullopt;
  }
  int asked = 0;
};

class HangingShellTest : public ShellTest {
 protected:
  std::optional<Dictionary> get() {
    return reaching_.sendMessageAndReceiveReplyName(kZephylsMessageCenter, kGetGroupsMessage,
                                                    nullptr);
  }

  InProcess inProcess_;
  std::vector<std::string> told_;
  ShellMessagingCenter reaching_{
      connection_,    address_, {.program = ZEPHYLS_SHELL, .iosVersion = "14.0"},
      inProcess_,     log_,     [this](const std::string& line) { told_.push_back(line); },
      {.wait = 200ms}};
};

TEST_F(HangingShellTest, AShellThatHangsIsAskedOnceAndTheUserIsTold) {
  const auto shell = start();
  ASSERT_EQ(get(), Dictionary());
  shell->signal(SIGSTOP);
  EXPECT_EQ(get(), std::nullopt);
  EXPECT_THAT(told_, ElementsAre(HasSubstr("does not answer")));
  // It would answer again by now: whoever still hears nothing has not asked.
  shell->signal(SIGCONT);
  ASSERT_TRUE(isServed());
  EXPECT_EQ(get(), std::nullopt);
  EXPECT_THAT(told_, ElementsAre(HasSubstr("does not answer")));
  EXPECT_EQ(inProcess_.asked, 0);
}

}  // namespace
}  // namespace zephyl::app::test
