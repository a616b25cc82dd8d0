#include "hosts/fake/FakeAuthentication.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace zephyl::fake {
namespace {

constexpr LAPolicy kPolicy = LAPolicy::kDeviceOwnerAuthenticationWithBiometrics;

class FakeAuthenticationTest : public ::testing::Test {
 protected:
  void check(const std::string& reason) {
    context_.evaluatePolicy(kPolicy, reason, [this, reason](bool success, const NSError* error) {
      answers_ += reason + (success ? "+" : "-");
      code_ = error == nullptr ? std::nullopt : std::optional(error->code());
    });
  }

  FakeDispatch dispatch_;
  FakeAuthentication context_{dispatch_};
  std::string answers_;
  std::optional<std::int64_t> code_;
};

TEST_F(FakeAuthenticationTest, IsAvailableUntilATestTakesItAway) {
  NSError error;
  EXPECT_TRUE(context_.canEvaluatePolicy(kPolicy, &error));
  EXPECT_EQ(error, NSError());
  context_.setAvailable(false);
  EXPECT_FALSE(context_.canEvaluatePolicy(kPolicy, nullptr));
  EXPECT_FALSE(context_.canEvaluatePolicy(kPolicy, &error));
  EXPECT_EQ(error, NSError("com.apple.LocalAuthentication", -6));
  EXPECT_EQ(context_.questions(), 3);
}

TEST_F(FakeAuthenticationTest, RemembersWhatTheLastQuestionWas) {
  EXPECT_EQ(context_.questionedPolicy(), std::nullopt);
  NSError error;
  EXPECT_TRUE(context_.canEvaluatePolicy(kPolicy, &error));
  EXPECT_EQ(context_.questionedPolicy(), kPolicy);
  EXPECT_TRUE(context_.questionedForError());
  EXPECT_TRUE(context_.canEvaluatePolicy(kPolicy, nullptr));
  EXPECT_FALSE(context_.questionedForError());
}

TEST_F(FakeAuthenticationTest, ACheckWaitsForItsAnswer) {
  check("open");
  EXPECT_TRUE(context_.isWaiting());
  EXPECT_EQ(context_.reason(), "open");
  EXPECT_EQ(answers_, "");
  context_.answer(/*success=*/true);
  EXPECT_FALSE(context_.isWaiting());
  EXPECT_EQ(answers_, "open+");
}

TEST_F(FakeAuthenticationTest, ChecksAreAnsweredOldestFirst) {
  check("one");
  check("two");
  context_.answer(/*success=*/false);
  context_.answer(/*success=*/true);
  EXPECT_EQ(answers_, "one-two+");
}

TEST_F(FakeAuthenticationTest, AnErrorReachesTheReply) {
  check("open");
  const NSError canceled("com.apple.LocalAuthentication", -2);
  context_.answer(/*success=*/false, &canceled);
  EXPECT_EQ(code_, -2);
}

TEST_F(FakeAuthenticationTest, AReplyMayAskTheMainThread) {
  context_.evaluatePolicy(kPolicy, "open", [&](bool, const NSError*) {
    EXPECT_FALSE(dispatch_.isMainThread());
    dispatch_.mainSync([&] { answers_ += "main"; });
  });
  context_.answer(/*success=*/true);
  EXPECT_EQ(answers_, "main");
}

TEST_F(FakeAuthenticationTest, RemembersTheFallbackTitle) {
  context_.setLocalizedFallbackTitle("");
  EXPECT_EQ(context_.fallbackTitle(), "");
}

}  // namespace
}  // namespace zephyl::fake
