// The program with a fingerprint service on a bus of the test's own.

#include <csignal>
#include <string>
#include <thread>
#include <vector>

#include "apps/zephyls/ProgramTest.h"
#include "hosts/linux/fingerprint/FprintMock_testing.h"
#include "hosts/linux/testing/ChildProcess.h"
#include "hosts/linux/testing/PrivateBus.h"

namespace zephyl::app::test {
namespace {

using zephyl::test::ChildOptions;
using zephyl::test::ChildProcess;
using zephyl::test::FprintMock;
using zephyl::test::PrivateBus;

constexpr char kGroups[] =
    "<dict><key>identifier</key><integer>7</integer><key>title</key><string>Secret</string>"
    "<key>enabled</key><true/><key>passwordProtected</key><true/></dict>";

constexpr auto kLongest = std::chrono::seconds(20);

class FingerprintTest : public ProgramTest {
 protected:
  FingerprintTest() {
    environment_["DBUS_SYSTEM_BUS_ADDRESS"] = bus_.address();
    writeOwnSources();
    writeGroups(kGroups);
    EXPECT_EQ(runOwn({"groups", "list"}).status, 0);
  }

  // A finger is read as soon as the reader waits for one.
  void setResults(std::vector<std::string> results) {
    mock_.setScript({.results = {{"VerifyStart", std::move(results)}}});
  }

  [[nodiscard]] ProgramResult hideGroup() const {
    return runOwn({"groups", "edit", "Secret", "--hide"});
  }

  // The same while the test goes on.
  [[nodiscard]] ChildProcess startToHideGroup() const {
    ChildOptions options;
    options.environment = environment_;
    options.inheritsEnvironment = false;
    options.outputFile = options.errorFile = log();
    return ChildProcess({ZEPHYLS_PROGRAM, "--messages", messages_, "--contacts", contacts_,
                         "--device", device_, "groups", "edit", "Secret", "--hide"},
                        options);
  }
  [[nodiscard]] std::string log() const { return folder_ / "log"; }

  // Whether the running program says so by the end of a generous time.
  [[nodiscard]] bool says(const std::string& text) const {
    const auto end = std::chrono::steady_clock::now() + kLongest;
    while (zephyl::test::contentOf(log()).find(text) == std::string::npos) {
      if (std::chrono::steady_clock::now() > end) {
        return false;
      }
      std::this_thread::yield();
    }
    return true;
  }

  [[nodiscard]] bool isHidden() const {
    return runOwn({"groups", "list", "--json"})
        .objects()
        .front()["shouldHideConversationsInDefaultGroups"];
  }

  PrivateBus bus_{PrivateBus::Kind::kSystem};
  FprintMock mock_{bus_.address()};
};

TEST_F(FingerprintTest, TheReaderOfTheMachineIsUsed) {
  EXPECT_EQ(runOwn({"groups", "list", "--json"}).objects().front()["passwordProtected"], true);
  EXPECT_EQ(runOwn({"--biometrics", "auto", "groups", "list", "--json"})
                .objects()
                .front()["passwordProtected"],
            true);
}

TEST_F(FingerprintTest, WithoutABusThereIsNoReader) {
  environment_["DBUS_SYSTEM_BUS_ADDRESS"] = "unix:path=/nonexistent/bus";
  EXPECT_EQ(runOwn({"groups", "list", "--json"}).objects().front()["passwordProtected"], false);
}

TEST_F(FingerprintTest, TheReaderIsNotTouchedWhenTheUserSaysSo) {
  const std::size_t calls = mock_.calls().size();
  EXPECT_EQ(runOwn({"--biometrics", "off", "groups", "list"}).status, 0);
  EXPECT_EQ(runOwn({"--biometrics", "on", "groups", "list"}).status, 0);
  EXPECT_EQ(mock_.calls().size(), calls);
}

TEST_F(FingerprintTest, TheOwnersFingerLetsAChangeThrough) {
  setResults({"verify-match!"});
  EXPECT_EQ(hideGroup().status, 0);
  EXPECT_TRUE(isHidden());
}

TEST_F(FingerprintTest, AStrangersFingerDoesNot) {
  setResults({"verify-no-match!"});
  const ProgramResult refused = hideGroup();
  EXPECT_NE(refused.status, 0);
  EXPECT_NE(refused.errors.find("That finger is not one of yours."), std::string::npos)
      << refused.errors;
  EXPECT_FALSE(isHidden());
}

TEST_F(FingerprintTest, ABadReadingIsToldAndTheCheckGoesOn) {
  ChildProcess program = startToHideGroup();
  ASSERT_TRUE(says("Group 'Secret' is protected."));
  ASSERT_TRUE(mock_.waitForCall("VerifyStart(any)"));
  mock_.say("verify-swipe-too-short");
  EXPECT_TRUE(says("That was too short. Swipe your finger again."));
  mock_.say("verify-match!");
  EXPECT_EQ(program.wait(kLongest), 0);
  EXPECT_TRUE(isHidden());
}

TEST_F(FingerprintTest, CtrlCCancelsTheCheckAndFreesTheReader) {
  ChildProcess program = startToHideGroup();
  ASSERT_TRUE(mock_.waitForCall("VerifyStart(any)"));
  program.signal(SIGINT);
  const std::optional<int> status = program.wait(kLongest);
  ASSERT_TRUE(status);
  EXPECT_GT(*status, 0);
  EXPECT_LT(*status, 128);
  EXPECT_TRUE(says("cancelled; nothing was changed"));
  EXPECT_EQ(mock_.calls().back(), "Release()");
  EXPECT_FALSE(isHidden());
}

}  // namespace
}  // namespace zephyl::app::test
