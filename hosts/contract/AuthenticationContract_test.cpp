#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "platform/localauthentication/LAContext.h"

#include "hosts/contract/DeviceUnderTest.h"

namespace zephyl::contract {
namespace {

constexpr LAPolicy kPolicy = LAPolicy::kDeviceOwnerAuthenticationWithBiometrics;

class AuthenticationContract : public ContractTest {
 protected:
  struct Answer {
    bool success = false;
    std::optional<NSError> error;
    std::thread::id thread;
  };

  // The answers to `checks` checks asked one right after another.
  std::vector<Answer> answersTo(Biometrics biometrics, std::size_t checks) {
    device().setBiometrics(biometrics);
    const std::shared_ptr<LAContext> context = host().makeLAContext();
    context->setLocalizedFallbackTitle("");
    std::mutex mutex;
    std::vector<Answer> answers;
    for (std::size_t i = 0; i < checks; ++i) {
      context->evaluatePolicy(kPolicy, "Open the group", [&](bool success, const NSError* error) {
        const std::lock_guard lock(mutex);
        answers.push_back({success, error == nullptr ? std::nullopt : std::optional(*error),
                           std::this_thread::get_id()});
      });
    }
    device().endChecks();
    EXPECT_TRUE(device().passTimeUntil([&] {
      const std::lock_guard lock(mutex);
      return answers.size() >= checks;
    }));
    device().settle();
    const std::lock_guard lock(mutex);
    return answers;
  }
};
ZEPHYLS_CONTRACT(AuthenticationContract);

TEST_P(AuthenticationContract, WithoutAReaderNoCheckCanBeMade) {
  device().setBiometrics(Biometrics::kNone);
  const auto context = host().makeLAContext();
  NSError error;
  EXPECT_FALSE(context->canEvaluatePolicy(kPolicy, &error));
  EXPECT_EQ(error.domain(), "com.apple.LocalAuthentication");
  EXPECT_EQ(error.code(), -6);
  EXPECT_FALSE(context->canEvaluatePolicy(kPolicy, nullptr));
}

TEST_P(AuthenticationContract, WithAReaderACheckCanBeMade) {
  device().setBiometrics(Biometrics::kDenies);
  const auto context = host().makeLAContext();
  NSError error;
  EXPECT_TRUE(context->canEvaluatePolicy(kPolicy, &error));
  EXPECT_EQ(error, NSError());
  EXPECT_TRUE(context->canEvaluatePolicy(kPolicy, nullptr));
}

TEST_P(AuthenticationContract, ARecognizedOwnerIsASuccessWithoutAnError) {
  const auto answers = answersTo(Biometrics::kRecognizes, 1);
  ASSERT_EQ(answers.size(), 1U);
  EXPECT_TRUE(answers[0].success);
  EXPECT_EQ(answers[0].error, std::nullopt);
}

TEST_P(AuthenticationContract, AStrangerIsAFailureWithItsError) {
  const auto answers = answersTo(Biometrics::kDenies, 1);
  ASSERT_EQ(answers.size(), 1U);
  EXPECT_FALSE(answers[0].success);
  EXPECT_EQ(answers[0].error, NSError("com.apple.LocalAuthentication", -1));
}

TEST_P(AuthenticationContract, EveryCheckIsAnsweredOnceOnAThreadOfTheServices) {
  const auto answers = answersTo(Biometrics::kRecognizes, 3);
  ASSERT_EQ(answers.size(), 3U);
  for (const auto& answer : answers) {
    EXPECT_NE(answer.thread, std::this_thread::get_id());
  }
}

}  // namespace
}  // namespace zephyl::contract
