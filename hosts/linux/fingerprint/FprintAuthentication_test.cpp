#include <set>

#include "hosts/linux/fingerprint/FprintTest.h"

namespace zephyl::test {
namespace {

using linux_host::FprintAuthentication;
using linux_host::FprintOptions;

class FprintAuthenticationTest : public FprintTest {
 protected:
  // A reader that says these results as soon as a check starts.
  void setResults(std::vector<std::string> results) {
    mock_.setScript({.results = {{"VerifyStart", std::move(results)}}});
  }

  std::int64_t codeOfCheck() { return AskedCheck(reader_, "Open").answer().code; }

  FprintMock mock_{bus_.address()};
  FprintAuthentication reader_{options()};
};

TEST_F(FprintAuthenticationTest, AMatchIsASuccess) {
  setResults({"verify-match!"});
  const CheckAnswer answer = AskedCheck(reader_, "Open Work").answer();
  EXPECT_EQ(answer.code, 0);
  EXPECT_EQ(answer.domain, "");
  EXPECT_EQ(prompts(), (Prompts{{Kind::kAsk, "Open Work"}, {Kind::kEnd, ""}}));
}

TEST_F(FprintAuthenticationTest, TheReaderIsClaimedStoppedAndReleased) {
  setResults({"verify-match!"});
  EXPECT_EQ(codeOfCheck(), 0);
  EXPECT_EQ(mock_.calls(), (Calls{"GetDefaultDevice()", "Claim()", "VerifyStart(any)",
                                  "VerifyStop()", "Release()"}));
}

TEST_F(FprintAuthenticationTest, AStrangersFingerIsAFailure) {
  setResults({"verify-no-match!"});
  const CheckAnswer answer = AskedCheck(reader_, "Open").answer();
  EXPECT_EQ(answer.code, -1);
  EXPECT_EQ(answer.domain, "com.apple.LocalAuthentication");
  EXPECT_EQ(answer.sentence, "That finger is not one of yours.");
  EXPECT_TRUE(mock_.waitForCall("Release()"));
}

TEST_F(FprintAuthenticationTest, ABadReadingIsToldAndTheCheckGoesOn) {
  setResults({"verify-retry-scan", "verify-swipe-too-short", "verify-finger-not-centered",
              "verify-remove-and-retry", "verify-too-fast", "verify-never-heard-of",
              "verify-match!"});
  EXPECT_EQ(codeOfCheck(), 0);
  EXPECT_EQ(prompts(), (Prompts{{Kind::kAsk, "Open"},
                                {Kind::kRetry, "Your finger was not read. Try again."},
                                {Kind::kRetry, "That was too short. Swipe your finger again."},
                                {Kind::kRetry, "Put the middle of your finger on the reader."},
                                {Kind::kRetry, "Lift your finger and put it on the reader again."},
                                {Kind::kRetry, "That was too fast. Try again more slowly."},
                                {Kind::kRetry, "Your finger was not read. Try again."},
                                {Kind::kEnd, ""}}));
}

TEST_F(FprintAuthenticationTest, AMatchThatIsNotDoneIsNone) {
  setResults({"verify-match", "verify-no-match!"});
  EXPECT_EQ(codeOfCheck(), -1);
}

TEST_F(FprintAuthenticationTest, ChecksRunInOrderOnOneThreadOfTheReaders) {
  setResults({"verify-match!"});
  std::vector<AskedCheck> checks;
  checks.reserve(3);
  for (const char* reason : {"one", "two", "three"}) {
    checks.emplace_back(reader_, reason);
  }
  std::set<std::thread::id> threads;
  for (const AskedCheck& check : checks) {
    const CheckAnswer answer = check.answer();
    EXPECT_EQ(answer.code, 0);
    threads.insert(answer.thread);
  }
  EXPECT_EQ(threads.size(), 1U);
  EXPECT_FALSE(threads.contains(std::this_thread::get_id()));
  EXPECT_EQ(prompts(), (Prompts{{Kind::kAsk, "one"},
                                {Kind::kEnd, ""},
                                {Kind::kAsk, "two"},
                                {Kind::kEnd, ""},
                                {Kind::kAsk, "three"},
                                {Kind::kEnd, ""}}));
}

TEST_F(FprintAuthenticationTest, ACheckWaitsForTheFinger) {
  const AskedCheck check(reader_, "Open");
  ASSERT_TRUE(mock_.waitForCall("VerifyStart(any)"));
  EXPECT_FALSE(check.isAnswered());
  mock_.say("verify-match!");
  EXPECT_EQ(check.answer().code, 0);
}

TEST_F(FprintAuthenticationTest, CancellingEndsACheckAndFreesTheReader) {
  const AskedCheck check(reader_, "Open");
  ASSERT_TRUE(waitForQuestion());
  reader_.cancel();
  EXPECT_EQ(check.answer().code, -2);
  const Calls calls = mock_.calls();
  EXPECT_EQ(Calls(calls.end() - 2, calls.end()), (Calls{"VerifyStop()", "Release()"}));
  ASSERT_FALSE(prompts().empty());
  EXPECT_EQ(prompts().back().first, Kind::kEnd);
}

TEST_F(FprintAuthenticationTest, CancellingEndsTheChecksThatWaitToo) {
  const AskedCheck running(reader_, "one");
  const AskedCheck waiting(reader_, "two");
  ASSERT_TRUE(mock_.waitForCall("VerifyStart(any)"));
  reader_.cancel();
  EXPECT_EQ(running.answer().code, -2);
  EXPECT_EQ(waiting.answer().code, -2);
  setResults({"verify-match!"});
  EXPECT_EQ(codeOfCheck(), 0);
}

TEST_F(FprintAuthenticationTest, CancellingWithoutACheckDoesNothing) {
  setResults({"verify-match!"});
  reader_.cancel();
  EXPECT_EQ(codeOfCheck(), 0);
}

TEST_F(FprintAuthenticationTest, ACheckTakesNoLongerThanItsLimit) {
  FprintOptions hurried = options();
  hurried.checkLimit = std::chrono::milliseconds(50);
  FprintAuthentication reader(hurried);
  EXPECT_EQ(AskedCheck(reader, "Open").answer().code, -4);
  EXPECT_TRUE(mock_.waitForCall("Release()"));
}

TEST_F(FprintAuthenticationTest, LettingGoOfTheContextEndsItsChecks) {
  auto reader = std::make_unique<FprintAuthentication>(options());
  const AskedCheck running(*reader, "one");
  const AskedCheck waiting(*reader, "two");
  ASSERT_TRUE(mock_.waitForCall("VerifyStart(any)"));
  reader.reset();
  ASSERT_TRUE(running.isAnswered());
  ASSERT_TRUE(waiting.isAnswered());
  EXPECT_EQ(running.answer().code, -4);
  EXPECT_EQ(waiting.answer().code, -4);
  EXPECT_EQ(running.replies() + waiting.replies(), 2);
  EXPECT_TRUE(mock_.waitForCall("Release()"));
}

TEST_F(FprintAuthenticationTest, AReplyMayLetGoOfTheContext) {
  setResults({"verify-match!"});
  auto reader = std::make_shared<FprintAuthentication>(options());
  FprintAuthentication* context = reader.get();
  std::promise<bool> gone;
  context->evaluatePolicy(kPolicy, "Open", [&gone, held = std::move(reader)](bool, auto*) mutable {
    held.reset();
    gone.set_value(true);
  });
  EXPECT_EQ(gone.get_future().wait_for(std::chrono::seconds(20)), std::future_status::ready);
}

TEST_F(FprintAuthenticationTest, AfterFiveStrangersNoFingerIsTriedForAWhile) {
  setResults({"verify-no-match!"});
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(codeOfCheck(), -1);
  }
  setResults({"verify-match!"});
  const std::size_t calls = mock_.calls().size();
  passSeconds(12);
  const CheckAnswer refused = AskedCheck(reader_, "Open").answer();
  EXPECT_EQ(refused.code, -8);
  EXPECT_EQ(refused.sentence, "Too many fingers did not match. Try again in 18 seconds.");
  EXPECT_EQ(mock_.calls().size(), calls);
  passSeconds(18);
  EXPECT_EQ(codeOfCheck(), 0);
}

// Else what is protected would be open to whoever shows five wrong fingers.
TEST_F(FprintAuthenticationTest, ALockedOutReaderIsStillAReader) {
  setResults({"verify-no-match!"});
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(codeOfCheck(), -1);
  }
  EXPECT_TRUE(reader_.canEvaluatePolicy(kPolicy, nullptr));
}

TEST_F(FprintAuthenticationTest, OnlyStrangersLockTheReader) {
  setResults({"verify-unknown-error!"});
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(codeOfCheck(), -4);
  }
}

}  // namespace
}  // namespace zephyl::test
