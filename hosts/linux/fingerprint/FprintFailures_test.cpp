#include "hosts/linux/fingerprint/FprintTest.h"

namespace zephyl::test {
namespace {

using linux_host::FprintAuthentication;
using linux_host::FprintOptions;

// Checks that go wrong on the side of the service or of the bus.
class FprintFailuresTest : public FprintTest {
 protected:
  struct Failed {
    std::int64_t code = kNever;
    bool wasReleased = false;
  };

  Failed failureWith(FprintMock::Script script) {
    FprintMock mock(bus_.address(), std::move(script));
    FprintOptions hurried = options();
    hurried.startLimit = std::chrono::milliseconds(100);
    FprintAuthentication reader(hurried);
    const std::int64_t code = AskedCheck(reader, "Open").answer().code;
    const Calls calls = mock.calls();
    return {code, !calls.empty() && calls.back() == "Release()"};
  }

  static FprintMock::Script saying(const std::string& result) {
    return {.results = {{"VerifyStart", {result}}}};
  }
};

TEST_F(FprintFailuresTest, AReaderInUseIsNotAvailable) {
  EXPECT_EQ(failureWith({.errors = {{"Claim", "AlreadyInUse"}}}).code, -6);
  EXPECT_EQ(prompts(), Prompts());
}

TEST_F(FprintFailuresTest, AForbiddenReaderIsNotAvailable) {
  EXPECT_EQ(failureWith({.errors = {{"Claim", "PermissionDenied"}}}).code, -6);
}

TEST_F(FprintFailuresTest, AReaderThatDoesNotStartIsReleased) {
  const Failed failed = failureWith({.errors = {{"VerifyStart", "Internal"}}});
  EXPECT_EQ(failed.code, -6);
  EXPECT_TRUE(failed.wasReleased);
  EXPECT_EQ(prompts(), Prompts());
}

TEST_F(FprintFailuresTest, PrintsDeletedMeanwhileAreNotEnrolled) {
  const Failed failed = failureWith({.errors = {{"VerifyStart", "NoEnrolledPrints"}}});
  EXPECT_EQ(failed.code, -7);
  EXPECT_TRUE(failed.wasReleased);
}

TEST_F(FprintFailuresTest, AServiceThatHangsEndsTheCheck) {
  EXPECT_EQ(failureWith({.hangs = {"GetDefaultDevice"}}).code, -4);
  EXPECT_EQ(failureWith({.hangs = {"Claim"}}).code, -4);
  const Failed failed = failureWith({.hangs = {"VerifyStart"}});
  EXPECT_EQ(failed.code, -4);
  EXPECT_TRUE(failed.wasReleased);
}

TEST_F(FprintFailuresTest, NonsenseEndsTheCheck) {
  EXPECT_EQ(failureWith({.nonsense = {"GetDefaultDevice"}}).code, -6);
  const Failed failed = failureWith(saying("verify-what!"));
  EXPECT_EQ(failed.code, -4);
  EXPECT_TRUE(failed.wasReleased);
}

TEST_F(FprintFailuresTest, AReaderThatFailsEndsTheCheck) {
  const Failed failed = failureWith(saying("verify-unknown-error!"));
  EXPECT_EQ(failed.code, -4);
  EXPECT_TRUE(failed.wasReleased);
}

TEST_F(FprintFailuresTest, AnUnpluggedReaderIsNotAvailable) {
  const Failed failed = failureWith(saying("verify-disconnected!"));
  EXPECT_EQ(failed.code, -6);
  EXPECT_TRUE(failed.wasReleased);
}

TEST_F(FprintFailuresTest, AReaderThatDoesNotStopChangesNoOutcome) {
  FprintMock::Script script = saying("verify-match!");
  script.hangs = {"VerifyStop"};
  EXPECT_EQ(failureWith(script).code, 0);
}

TEST_F(FprintFailuresTest, AReaderThatDoesNotStopIsReleasedAllTheSame) {
  FprintMock::Script script = saying("verify-no-match!");
  script.errors = {{"VerifyStop", "Internal"}};
  EXPECT_TRUE(failureWith(script).wasReleased);
}

TEST_F(FprintFailuresTest, AServiceThatGoesAwayEndsTheCheck) {
  FprintMock mock(bus_.address());
  FprintAuthentication reader(options());
  const AskedCheck check(reader, "Open");
  ASSERT_TRUE(waitForQuestion());
  mock.vanish();
  EXPECT_EQ(check.answer().code, -4);
}

TEST_F(FprintFailuresTest, ABusThatGoesAwayEndsTheCheck) {
  FprintMock mock(bus_.address());
  FprintAuthentication reader(options());
  const AskedCheck check(reader, "Open");
  ASSERT_TRUE(waitForQuestion());
  bus_.kill();
  EXPECT_EQ(check.answer().code, -4);
}

TEST_F(FprintFailuresTest, WithoutABusThereIsNoCheck) {
  FprintOptions nowhere = options();
  nowhere.busAddress = "unix:path=/nonexistent/bus";
  FprintAuthentication reader(nowhere);
  EXPECT_EQ(AskedCheck(reader, "Open").answer().code, -6);
}

TEST_F(FprintFailuresTest, WithoutAServiceThereIsNoCheck) {
  FprintAuthentication reader(options());
  EXPECT_EQ(AskedCheck(reader, "Open").answer().code, -6);
}

TEST_F(FprintFailuresTest, ACheckCanBeCancelledWhileTheServiceHangs) {
  FprintMock mock(bus_.address(), {.hangs = {"Claim"}});
  FprintAuthentication reader(options());
  const AskedCheck check(reader, "Open");
  ASSERT_TRUE(mock.waitForCall("Claim()"));
  reader.cancel();
  EXPECT_EQ(check.answer().code, -2);
  EXPECT_TRUE(mock.waitForCall("Release()"));
}

TEST_F(FprintFailuresTest, AMatchThatAnotherProgramSendsIsIgnored) {
  FprintMock mock(bus_.address());
  FprintAuthentication reader(options());
  ServiceOnBus stranger(bus_.address(), "", "/", [](const QDBusMessage&, const auto&) {});
  const AskedCheck check(reader, "Open");
  ASSERT_TRUE(mock.waitForCall("VerifyStart(any)"));
  stranger.send(verifyStatus("verify-match!"));
  ASSERT_TRUE(stranger.flush());
  mock.say("verify-no-match!");
  EXPECT_EQ(check.answer().code, -1);
}

// It was the finger of whoever had the reader before.
TEST_F(FprintFailuresTest, AMatchBeforeTheReaderIsOursIsIgnored) {
  FprintMock mock(bus_.address(), {.results = {{"Claim", {"verify-match!"}},
                                               {"VerifyStart", {"verify-no-match!"}}}});
  FprintAuthentication reader(options());
  EXPECT_EQ(AskedCheck(reader, "Open").answer().code, -1);
}

}  // namespace
}  // namespace zephyl::test
