#include "hosts/linux/ScriptedAuthentication.h"

#include <atomic>
#include <future>
#include <memory>
#include <optional>
#include <thread>

#include <gtest/gtest.h>

namespace zephyl::linux_host {
namespace {

constexpr LAPolicy kPolicy = LAPolicy::kDeviceOwnerAuthenticationWithBiometrics;

TEST(ScriptedAuthentication, TheFunctionSeesReasonAndFallbackTitle) {
  ScriptedAuthentication::Question seen;
  std::promise<bool> answered;
  {
    ScriptedAuthentication context([&](const ScriptedAuthentication::Question& question) {
      seen = question;
      return std::nullopt;
    });
    context.setLocalizedFallbackTitle("");
    context.evaluatePolicy(kPolicy, "Open Work", [&](bool success, const NSError* error) {
      answered.set_value(success && error == nullptr);
    });
  }
  EXPECT_TRUE(answered.get_future().get());
  EXPECT_EQ(seen.localizedReason, "Open Work");
  EXPECT_EQ(seen.fallbackTitle, "");
}

TEST(ScriptedAuthentication, WhatWasAskedIsAnsweredBeforeTheContextIsGone) {
  std::promise<void> go;
  std::atomic<int> answers = 0;
  std::thread opener;
  {
    ScriptedAuthentication context([&, wait = std::make_shared<std::future<void>>(go.get_future())](
                                       const ScriptedAuthentication::Question& question) {
      if (question.localizedReason == "first") {
        wait->wait();
      }
      return std::nullopt;
    });
    for (const char* reason : {"first", "second", "third"}) {
      context.evaluatePolicy(kPolicy, reason, [&](bool, const NSError*) { ++answers; });
    }
    opener = std::thread([&] { go.set_value(); });
  }
  EXPECT_EQ(answers, 3);
  opener.join();
}

TEST(ScriptedAuthentication, AReplyMayBeTheLastToLetGoOfTheContext) {
  std::promise<void> isLast;
  std::promise<bool> answered;
  auto context =
      std::make_shared<ScriptedAuthentication>([&isLast](const ScriptedAuthentication::Question&) {
        isLast.get_future().wait();
        return std::optional(NSError("com.example", 5));
      });
  context->evaluatePolicy(kPolicy, "Open",
                          [&answered, last = context](bool, const NSError* error) mutable {
                            last.reset();
                            answered.set_value(*error == NSError("com.example", 5));
                          });
  context.reset();
  isLast.set_value();
  EXPECT_TRUE(answered.get_future().get());
}

TEST(NoAuthentication, ACheckMadeAllTheSameFails) {
  std::promise<NSError> answer;
  NoAuthentication context;
  context.evaluatePolicy(kPolicy, "Open", [&](bool success, const NSError* error) {
    EXPECT_FALSE(success);
    answer.set_value(*error);
  });
  EXPECT_EQ(answer.get_future().get(), NSError(kAuthenticationErrorDomain, kBiometryNotAvailable));
}

}  // namespace
}  // namespace zephyl::linux_host
