// What a change asks before it is made: the fingerprint, and a yes.

#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "apps/zephyls/EditingTest.h"

namespace zephyl::app::test {
namespace {

constexpr char kGroups[] =
    "<dict><key>identifier</key><integer>7</integer><key>title</key><string>Secret</string>"
    "<key>enabled</key><true/><key>passwordProtected</key><true/>"
    "<key>contacts</key><array><integer>1000001</integer></array></dict>"
    "<dict><key>identifier</key><integer>8</integer><key>title</key><string>Diary</string>"
    "<key>enabled</key><true/><key>passwordProtected</key><true/></dict>"
    "<dict><key>identifier</key><integer>9</integer><key>title</key><string>Work</string>"
    "<key>enabled</key><true/></dict>";

// With a reader on which every check fails.
class FingerprintTest : public EditingTest {
 protected:
  FingerprintTest() {
    writeGroups(kGroups);
    EXPECT_EQ(reading({"list"}).status, 0);
  }

  [[nodiscard]] ProgramResult reading(Texts words) const {
    words.insert(words.begin(), {"--biometrics", "on"});
    return groups(std::move(words));
  }
};

constexpr char kSecretReason[] =
    "Group 'Secret' is protected. Please authenticate uisng your finger print.";

TEST_F(FingerprintTest, EveryChangeOfAProtectedGroupAsks) {
  const std::string file = (folder_ / "out.json").string();
  for (const Texts& words :
       {Texts{"edit", "Secret", "--no-protect"}, Texts{"delete", "Secret", "--yes"},
        Texts{"enable", "Secret"}, Texts{"disable", "Secret"}, Texts{"activate", "Secret"},
        Texts{"add-member", "Secret", "Eve Sjö"}, Texts{"remove-member", "Secret", "1000001"},
        Texts{"export", file, "Secret"}}) {
    Texts all = words;
    all.insert(all.begin() + 1, {"--biometrics", "on"});
    expectRefused(all, kSecretReason);
    expectRefused(all, "Unable to verify your identity");
  }
  EXPECT_FALSE(std::filesystem::exists(file));
}

// Counts are no secret.
TEST_F(FingerprintTest, OpeningAProtectedGroupAsks) {
  for (const Texts& words :
       {Texts{"groups", "show", "Secret"}, Texts{"groups", "show", "Secret", "--json"},
        Texts{"conversations", "--group", "Secret"},
        Texts{"conversations", "--group", "Secret", "--json"}}) {
    Texts all = words;
    all.insert(all.begin(), {"--biometrics", "on"});
    const ProgramResult result = runOwn(all);
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find(kSecretReason), std::string::npos) << result.errors;
    EXPECT_NE(result.errors.find("Unable to verify your identity"), std::string::npos);
    EXPECT_EQ(result.out, "");
  }
  EXPECT_EQ(reading({"show", "Work"}).status, 0);
  EXPECT_EQ(runOwn({"--biometrics", "on", "unread"}).errors, "");
}

TEST_F(FingerprintTest, TheOverviewTellsOnlyThatAProtectedGroupIsThere) {
  const ProgramResult locked = runOwn({"--biometrics", "on"});
  EXPECT_EQ(locked.status, 0);
  EXPECT_EQ(locked.errors, "");
  EXPECT_NE(locked.out.find("Secret  2 conversations"), std::string::npos) << locked.out;
  EXPECT_NE(locked.out.find("protected"), std::string::npos);
  EXPECT_EQ(locked.out.find("Ann Larkspur"), std::string::npos) << locked.out;
  // What is hidden there is there.
  const ProgramResult open = runOwn({"--biometrics", "off"});
  EXPECT_NE(open.out.find("Ann Larkspur"), std::string::npos) << open.out;
}

TEST_F(FingerprintTest, SeveralProtectedGroupsAskOnce) {
  const std::string reason =
      "Groups 'Secret and Diary' are protected. Please authenticate uisng your finger print.";
  expectRefused({"delete", "--biometrics", "on", "--yes", "Secret", "Work", "Diary"}, reason);
  expectRefused({"export", "--biometrics", "on", (folder_ / "out.json").string()}, reason);
  expectRefused({"delete", "--biometrics", "on", "--yes", "Work", "Secret"}, kSecretReason);
}

TEST_F(FingerprintTest, OtherGroupsAskNothing) {
  EXPECT_EQ(reading({"edit", "Work", "--hide"}).status, 0);
  EXPECT_EQ(reading({"delete", "--yes", "Work"}).status, 0);
  EXPECT_EQ(reading({"disable", "All"}).status, 0);
  EXPECT_EQ(reading({"list", "--json"}).objects().front()["passwordProtected"], true);
}

TEST_F(FingerprintTest, AGroupIsProtectedWhereThereIsAReader) {
  EXPECT_EQ(reading({"edit", "Work", "--protect"}).status, 0);
  expectRefused({"edit", "--biometrics", "on", "Work", "--hide"}, "Group 'Work' is protected.");
}

TEST_F(FingerprintTest, WithoutAReaderNothingIsAskedOrProtected) {
  expectRefused({"edit", "--biometrics", "off", "Work", "--protect"}, "no fingerprint reader");
  expectRefused({"create", "--biometrics", "off", "Home", "--protect"}, "no fingerprint reader");
  EXPECT_EQ(change({"show", "--biometrics", "off", "Secret"}).errors, "");
}

TEST_F(FingerprintTest, ASaveWithoutAReaderTellsWhatLosesItsProtection) {
  const auto lost = [](const std::string& title) {
    return "zephyls: the protection of \"" + title +
           "\" is lost: this machine has no fingerprint reader\n";
  };
  const std::string off = "--biometrics=off";
  EXPECT_EQ(change({"enable", off, "Work"}).errors, "");
  EXPECT_EQ(change({"delete", off, "--yes", "Diary"}).errors, lost("Secret"));
  EXPECT_EQ(change({"edit", off, "Work", "--hide"}).errors, "");
  writeGroups(kGroups);
  EXPECT_EQ(reading({"list"}).status, 0);
  EXPECT_EQ(change({"edit", off, "Work", "--hide"}).errors, lost("Secret") + lost("Diary"));
}

TEST_F(EditingTest, WithoutATerminalADeletionNeedsYes) {
  change({"create", "Work"});
  expectRefused({"delete", "Work"}, "say --yes", 2);
  EXPECT_EQ(titles(), Texts{"Work"});
}

// A terminal on which the user has typed already.
class TerminalTest : public EditingTest {
 protected:
  TerminalTest() : terminal_(posix_openpt(O_RDWR | O_NOCTTY)) {
    EXPECT_GE(terminal_, 0);
    EXPECT_EQ(grantpt(terminal_), 0);
    EXPECT_EQ(unlockpt(terminal_), 0);
    change({"create", "Work"});
    input_ = ptsname(terminal_);
    // Held open, so that what is typed waits for the program.
    other_ = open(input_.c_str(), O_RDWR | O_NOCTTY);
    EXPECT_GE(other_, 0);
  }
  ~TerminalTest() override {
    close(other_);
    close(terminal_);
  }
  void type(const std::string& text) const {
    EXPECT_EQ(::write(terminal_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }

 private:
  int terminal_;
  int other_ = -1;
};

TEST_F(TerminalTest, ADeletionAsksAndGoesOnAfterAYes) {
  type("y\n");
  const ProgramResult result = change({"delete", "Work"});
  EXPECT_NE(result.errors.find("Delete the group \"Work\"? [y/N]"), std::string::npos);
  EXPECT_EQ(titles(), Texts());
}

TEST_F(TerminalTest, AnythingElseDeletesNothing) {
  for (const char* answer : {"n\n", "\n", "yess\n", "\x04"}) {
    type(answer);
    expectRefused({"delete", "Work"}, "nothing was changed");
  }
}

TEST_F(TerminalTest, SeveralGroupsAreNamedInOneQuestion) {
  change({"create", "Home"});
  type("n\n");
  expectRefused({"delete", "Work", "Home"}, "Delete the groups \"Work\" and \"Home\"?");
}

}  // namespace
}  // namespace zephyl::app::test
