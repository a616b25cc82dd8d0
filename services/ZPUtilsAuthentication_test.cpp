// When the owner of the device is asked, what an answer means, and how long it is remembered.

#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"
#include "model/ZPLocalizedText.h"
#include "model/ZPSettings.h"
#include "services/ZPUtils.h"

namespace zephyl {
namespace {

constexpr double kNow = 1'700'000'000.0;

class AuthenticationTest : public ::testing::Test {
 protected:
  struct Told {
    bool success;
    std::optional<NSError> error;
    std::thread::id thread;
  };

  AuthenticationTest() { device_.clock().set(kNow); }

  void request(const std::string& reason = "Why") {
    ZPUtils::requestForAuthentication(reason, [this](bool success, const NSError* error) {
      told_.push_back({success, error == nullptr ? std::nullopt : std::optional(*error),
                       std::this_thread::get_id()});
    });
  }
  void remember(double minutes) {
    ZPSettings::sharedSettings()->setRememberUnlcokSession(true);
    ZPSettings::sharedSettings()->setUnlockSessionTime(minutes);
  }
  // A check that is asked for and answered now.
  void check(bool success) {
    ZPUtils::requestForAuthentication("first", nullptr);
    device_.authentication().answer(success);
  }
  // Whether a request so many seconds after `kNow` passes silently.
  bool passesAfter(double seconds) {
    device_.clock().set(kNow + seconds);
    told_.clear();
    request();
    EXPECT_EQ(told_.empty(), device_.authentication().isWaiting());
    return !told_.empty();
  }
  // The only call of the completion, on this thread or not.
  const Told& told(bool here) {
    EXPECT_EQ(told_.size(), 1U);
    EXPECT_EQ(told_.at(0).thread == std::this_thread::get_id(), here);
    return told_.at(0);
  }

  fake::Device device_;
  std::vector<Told> told_;
};

TEST_F(AuthenticationTest, WithoutBiometricsARequestPassesAtOnce) {
  device_.authentication().setAvailable(false);
  request();
  EXPECT_TRUE(told(/*here=*/true).success);
  EXPECT_EQ(told_.at(0).error, std::nullopt);
  EXPECT_EQ(device_.authentication().questions(), 1);
  EXPECT_EQ(device_.authentication().fallbackTitle(), "Enter Password");
  remember(5);
  EXPECT_FALSE(ZPUtils::shouldContinueWithoutRequestingForTouchID());
}

TEST_F(AuthenticationTest, ACheckTellsTheReasonAndHidesThePasscodeButton) {
  request("Group 'A' is protected.");
  EXPECT_TRUE(told_.empty());
  EXPECT_TRUE(device_.authentication().isWaiting());
  EXPECT_EQ(device_.authentication().reason(), "Group 'A' is protected.");
  EXPECT_EQ(device_.authentication().fallbackTitle(), "");
  EXPECT_EQ(device_.authentication().questions(), 2);
  EXPECT_TRUE(device_.authentication().questionedForError());
  EXPECT_EQ(device_.authentication().questionedPolicy(),
            LAPolicy::kDeviceOwnerAuthenticationWithBiometrics);
}

TEST_F(AuthenticationTest, TheAnswerComesOnTheThreadOfTheReply) {
  request();
  device_.authentication().answer(true);
  EXPECT_TRUE(told(/*here=*/false).success);
  EXPECT_EQ(told_.at(0).error, std::nullopt);
}

TEST_F(AuthenticationTest, AFailedCheckPassesItsErrorOn) {
  const NSError cancelled("com.apple.LocalAuthentication", -2);
  request();
  device_.authentication().answer(false, &cancelled);
  EXPECT_FALSE(told(/*here=*/false).success);
  EXPECT_EQ(told_.at(0).error, cancelled);
}

TEST_F(AuthenticationTest, TheSessionIsOpenWhenTheCompletionRuns) {
  remember(5);
  bool open = false;
  ZPUtils::requestForAuthentication("Why", [&](bool, const NSError*) {
    open = ZPUtils::shouldContinueWithoutRequestingForTouchID();
  });
  device_.authentication().answer(true);
  EXPECT_TRUE(open);
}

TEST_F(AuthenticationTest, ASessionLastsForItsMinutesTheLastInstantIncluded) {
  remember(5);
  check(true);
  EXPECT_TRUE(passesAfter(0));
  EXPECT_TRUE(passesAfter(299));
  EXPECT_TRUE(passesAfter(300));
  EXPECT_TRUE(told(/*here=*/true).success);
  EXPECT_FALSE(passesAfter(300.001));
}

TEST_F(AuthenticationTest, ASessionOfNoMinutesLastsForTheInstant) {
  remember(0);
  check(true);
  EXPECT_TRUE(passesAfter(0));
  EXPECT_FALSE(passesAfter(0.001));
}

TEST_F(AuthenticationTest, FractionsOfMinutesCount) {
  remember(0.5);
  check(true);
  EXPECT_TRUE(passesAfter(30));
  EXPECT_FALSE(passesAfter(30.001));
}

// Kept: any answer opens a session.
TEST_F(AuthenticationTest, AFailedCheckOpensASessionToo) {
  remember(5);
  check(false);
  EXPECT_TRUE(passesAfter(10));
}

TEST_F(AuthenticationTest, AClockThatWasSetBackLeavesTheSessionOpen) {
  remember(5);
  check(true);
  EXPECT_TRUE(passesAfter(-86'400));
}

TEST_F(AuthenticationTest, WithoutASessionARequestAsks) {
  remember(5);
  EXPECT_FALSE(passesAfter(0));
}

// Kept: without a session nothing is compared with the clock, not even one that stands near 1970.
TEST_F(AuthenticationTest, NoSessionIsNoSessionAtAnyTime) {
  remember(5);
  device_.clock().set(10.0);
  EXPECT_FALSE(ZPUtils::shouldContinueWithoutRequestingForTouchID());
  device_.clock().set(-10.0);
  check(true);
  EXPECT_FALSE(ZPUtils::shouldContinueWithoutRequestingForTouchID());
}

TEST_F(AuthenticationTest, ASilentPassDoesNotProlongTheSession) {
  remember(5);
  check(true);
  EXPECT_TRUE(passesAfter(200));
  EXPECT_FALSE(passesAfter(400));
}

TEST_F(AuthenticationTest, WhatIsNotRememberedIsAskedForEachTimeButNotForgotten) {
  check(true);
  EXPECT_FALSE(ZPUtils::shouldContinueWithoutRequestingForTouchID());
  remember(5);
  EXPECT_TRUE(ZPUtils::shouldContinueWithoutRequestingForTouchID());
}

TEST_F(AuthenticationTest, ResettingEndsTheSession) {
  remember(5);
  check(true);
  ZPUtils::resetLastUnlockedTimestamp();
  EXPECT_FALSE(passesAfter(0));
}

TEST_F(AuthenticationTest, ANewProcessHasNoSession) {
  remember(5);
  check(true);
  device_.restartProcess();
  remember(5);
  EXPECT_FALSE(ZPUtils::shouldContinueWithoutRequestingForTouchID());
}

TEST_F(AuthenticationTest, AReplyAfterTheProcessEndedOpensNothing) {
  request();
  device_.restartProcess();
  remember(5);
  device_.authentication().answer(true);
  EXPECT_TRUE(told(/*here=*/false).success);
  EXPECT_FALSE(ZPUtils::shouldContinueWithoutRequestingForTouchID());
}

TEST_F(AuthenticationTest, AReplyWithoutAHostIsStillPassedOn) {
  request();
  uninstall();
  device_.authentication().answer(true);
  EXPECT_TRUE(told(/*here=*/false).success);
  install(device_);
}

TEST_F(AuthenticationTest, SeveralChecksMayWait) {
  request();
  request();
  device_.authentication().answer(false);
  device_.authentication().answer(true);
  ASSERT_EQ(told_.size(), 2U);
  EXPECT_FALSE(told_[0].success);
  EXPECT_TRUE(told_[1].success);
}

TEST_F(AuthenticationTest, ACheckNeedsNoCompletion) {
  remember(5);
  device_.authentication().setAvailable(false);
  ZPUtils::requestForAuthentication("Why", nullptr);
  device_.authentication().setAvailable(true);
  check(true);
  ZPUtils::requestForAuthentication("Why", nullptr);
  EXPECT_FALSE(device_.authentication().isWaiting());
}

// Answers that a check could be made, once, and that none can, ever after.
class LockedOut : public fake::FakeAuthentication {
 public:
  using FakeAuthentication::FakeAuthentication;

  bool canEvaluatePolicy(LAPolicy policy, NSError* error) override {
    const bool can = FakeAuthentication::canEvaluatePolicy(policy, error);
    setAvailable(false);
    return can;
  }
};

class LockedOutDevice : public fake::Device {
 public:
  std::shared_ptr<LAContext> makeLAContext() override { return context_; }
  LockedOut& context() { return *context_; }

 private:
  std::shared_ptr<LockedOut> context_ = std::make_shared<LockedOut>(dispatch());
};

class LockedOutTest : public ::testing::Test {
 protected:
  LockedOutDevice device_;
};

TEST_F(LockedOutTest, ADeviceThatTurnsOutUnableToCheckGivesAnErrorOfItsOwn) {
  std::vector<NSError> errors;
  ZPUtils::requestForAuthentication("Why", [&](bool success, const NSError* error) {
    EXPECT_FALSE(success);
    ASSERT_NE(error, nullptr);
    errors.push_back(*error);
  });
  EXPECT_EQ(errors,
            std::vector<NSError>{NSError(
                "com.vantor.zephyls", -1,
                {{"NSLocalizedDescription", "Your device cannot authenticate using TouchID."}})});
  EXPECT_FALSE(device_.context().isWaiting());
  EXPECT_EQ(device_.context().fallbackTitle(), "");
  ZPSettings::sharedSettings()->setRememberUnlcokSession(true);
  ZPSettings::sharedSettings()->setUnlockSessionTime(5);
  EXPECT_FALSE(ZPUtils::shouldContinueWithoutRequestingForTouchID());
}

TEST_F(LockedOutTest, ThatErrorIsTranslated) {
  device_.files().put(std::string(kZephylsSettingsBundlePath) + "/en.lproj/Localizable.strings",
                      "\"Your device cannot authenticate using TouchID.\" = \"No finger.\";");
  std::string description;
  ZPUtils::requestForAuthentication(
      "Why", [&](bool, const NSError* error) { description = error->localizedDescription(); });
  EXPECT_EQ(description, "No finger.");
}

TEST_F(LockedOutTest, NobodyIsToldWithoutACompletion) {
  ZPUtils::requestForAuthentication("Why", nullptr);
  EXPECT_EQ(device_.context().questions(), 2);
  EXPECT_FALSE(device_.context().isWaiting());
}

}  // namespace
}  // namespace zephyl
