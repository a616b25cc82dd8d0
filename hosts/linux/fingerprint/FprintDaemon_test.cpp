#include <memory>

#include "hosts/linux/fingerprint/FprintDaemon_testing.h"
#include "hosts/linux/fingerprint/FprintTest.h"

namespace zephyl::test {
namespace {

using linux_host::FprintAuthentication;
using linux_host::FprintOptions;
using linux_host::FprintPrompt;

// With the real service, which starts once; each test finds one enrolled finger.
class FprintDaemonTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    daemon_ = std::make_unique<FprintDaemon>();
    ASSERT_TRUE(daemon_->enrol("mine"));
  }
  static void TearDownTestSuite() { daemon_.reset(); }

  static FprintOptions options() {
    FprintOptions options;
    options.busAddress = daemon_->busAddress();
    return options;
  }

  // For one check.
  FprintOptions waitingOptions() {
    FprintOptions waiting = options();
    waiting.prompt = [this](const FprintPrompt& prompt) {
      if (prompt.kind == FprintPrompt::Kind::kAsk) {
        question_.set_value();
      }
    };
    return waiting;
  }
  bool waitForQuestion() {
    return question_.get_future().wait_for(std::chrono::seconds(20)) == std::future_status::ready;
  }

  static std::unique_ptr<FprintDaemon> daemon_;

 private:
  std::promise<void> question_;
};

std::unique_ptr<FprintDaemon> FprintDaemonTest::daemon_;

TEST_F(FprintDaemonTest, AnEnrolledFingerMakesChecksPossible) {
  FprintAuthentication reader(options());
  EXPECT_TRUE(reader.canEvaluatePolicy(kPolicy, nullptr));
}

TEST_F(FprintDaemonTest, TheEnrolledFingerIsRecognized) {
  FprintAuthentication reader(options());
  const AskedCheck check(reader, "Open");
  ASSERT_TRUE(daemon_->tellReader("SCAN mine"));
  EXPECT_EQ(check.answer().code, 0);
}

TEST_F(FprintDaemonTest, AnotherFingerIsNot) {
  FprintAuthentication reader(options());
  const AskedCheck check(reader, "Open");
  ASSERT_TRUE(daemon_->tellReader("SCAN another"));
  EXPECT_EQ(check.answer().code, -1);
}

TEST_F(FprintDaemonTest, ABadReadingIsToldAndTheCheckGoesOn) {
  std::promise<std::string> hint;
  FprintOptions listening = options();
  listening.prompt = [&hint](const FprintPrompt& prompt) {
    if (prompt.kind == FprintPrompt::Kind::kRetry) {
      hint.set_value(prompt.text);
    }
  };
  FprintAuthentication reader(listening);
  const AskedCheck check(reader, "Open");
  ASSERT_TRUE(daemon_->tellReader("RETRY 1"));
  auto told = hint.get_future();
  ASSERT_EQ(told.wait_for(std::chrono::seconds(20)), std::future_status::ready);
  EXPECT_EQ(told.get(), "That was too short. Swipe your finger again.");
  ASSERT_TRUE(daemon_->tellReader("SCAN mine"));
  EXPECT_EQ(check.answer().code, 0);
}

TEST_F(FprintDaemonTest, AReaderThatFailsEndsTheCheck) {
  FprintAuthentication reader(options());
  const AskedCheck check(reader, "Open");
  ASSERT_TRUE(daemon_->tellReader("ERROR 0"));
  EXPECT_EQ(check.answer().code, -4);
}

TEST_F(FprintDaemonTest, AReaderThatAnotherProgramHoldsIsNotAvailable) {
  ASSERT_TRUE(daemon_->claim());
  FprintAuthentication reader(options());
  EXPECT_TRUE(reader.canEvaluatePolicy(kPolicy, nullptr));
  EXPECT_EQ(AskedCheck(reader, "Open").answer().code, -6);
  daemon_->release();
}

TEST_F(FprintDaemonTest, ACancelledCheckLeavesTheReaderFree) {
  FprintAuthentication reader(waitingOptions());
  const AskedCheck check(reader, "Open");
  ASSERT_TRUE(waitForQuestion());
  reader.cancel();
  EXPECT_EQ(check.answer().code, -2);
  ASSERT_TRUE(daemon_->claim());
  daemon_->release();
}

TEST_F(FprintDaemonTest, WithoutPrintsNoneIsEnrolled) {
  daemon_->forgetFingers();
  FprintAuthentication reader(options());
  NSError error;
  EXPECT_FALSE(reader.canEvaluatePolicy(kPolicy, &error));
  EXPECT_EQ(error.code(), -7);
  EXPECT_EQ(AskedCheck(reader, "Open").answer().code, -7);
  EXPECT_TRUE(daemon_->enrol("mine"));
}

TEST_F(FprintDaemonTest, AServiceThatDiesEndsTheCheck) {
  FprintDaemon mortal;
  ASSERT_TRUE(mortal.enrol("mine"));
  FprintOptions listening = waitingOptions();
  listening.busAddress = mortal.busAddress();
  FprintAuthentication reader(listening);
  const AskedCheck check(reader, "Open");
  ASSERT_TRUE(waitForQuestion());
  mortal.kill();
  EXPECT_EQ(check.answer().code, -4);
}

}  // namespace
}  // namespace zephyl::test
