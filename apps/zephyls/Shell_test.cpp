// The program and the system shell together: started on demand, asked over the bus, and done
// without where there is none.

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "apps/common/ShellAddress.h"
#include "apps/zephyls/EditingTest.h"
#include "hosts/fake/FakeSystem.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/bus/BusMessagingCenter.h"
#include "hosts/linux/bus/BusNotifications.h"
#include "hosts/linux/bus/SessionBus.h"
#include "hosts/linux/bus/TestServer.h"
#include "hosts/linux/testing/ChildProcess.h"
#include "hosts/linux/testing/PrivateBus.h"

namespace zephyl::app::test {
namespace {

using namespace std::chrono_literals;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using zephyl::test::ChildProcess;

constexpr auto kLong = 10s;

// Every shell that is started ends with the bus of its test.
class WithShellTest : public EditingTest {
 protected:
  WithShellTest() { useBus(bus_.address()); }

  void useBus(const std::string& address) { environment_["DBUS_SESSION_BUS_ADDRESS"] = address; }
  void useNoBus() { environment_.erase("DBUS_SESSION_BUS_ADDRESS"); }
  void useRelease(const std::string& release) { release_ = release; }

  [[nodiscard]] ShellAddress address() const { return shellAddressOf(device_); }
  [[nodiscard]] bool isServed() {
    return linux_host::BusMessagingCenter(connection_, address().center, log_)
        .servedDevice(kLong)
        .has_value();
  }
  // The shell that serves the device; 0 without one.
  [[nodiscard]] pid_t shell() {
    const QDBusMessage answer = connection_->callBus(
        "GetConnectionUnixProcessID", {QString::fromStdString(address().center.service)}, kLong);
    return answer.type() == QDBusMessage::ReplyMessage
               ? static_cast<pid_t>(answer.arguments().at(0).toUInt())
               : 0;
  }
  void endShell() {
    const auto start = std::chrono::steady_clock::now();
    kill(shell(), SIGTERM);
    while (isServed()) {
      ASSERT_LT(std::chrono::steady_clock::now() - start, kLong);
    }
  }

  // Beside others, what it says to the user under a name of its own.
  [[nodiscard]] std::unique_ptr<ChildProcess> start(const std::filesystem::path& program,
                                                    std::vector<std::string> words,
                                                    const std::string& name) const {
    words.insert(words.begin(), {program.string(), "--messages", messages_.string(), "--contacts",
                                 contacts_.string(), "--device", device_.string()});
    zephyl::test::ChildOptions options;
    options.inheritsEnvironment = false;
    options.environment = environment_;
    options.errorFile = folder_ / ("errors of " + name);
    return std::make_unique<ChildProcess>(words, options);
  }
  [[nodiscard]] std::string linesOf(const std::string& name) const {
    return read(folder_ / ("errors of " + name));
  }

  linux_host::LinuxDispatch dispatch_;
  zephyl::test::PrivateBus bus_;
  fake::FakeSystemLog log_;
  const std::shared_ptr<linux_host::SessionBus> connection_ =
      std::make_shared<linux_host::SessionBus>(bus_.address());
};

TEST_F(WithShellTest, TheShellIsStartedWhenItIsNeeded) {
  const ProgramResult result = groups({"list"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.errors, IsEmpty());
  EXPECT_THAT(result.out, HasSubstr("All Groups"));
  EXPECT_TRUE(isServed());
  const pid_t first = shell();
  EXPECT_EQ(groups({"list"}).status, 0);
  EXPECT_EQ(shell(), first);
}

TEST_F(WithShellTest, TheShellKeepsNothingOfTheProgramThatStartsIt) {
  EXPECT_EQ(groups({"list"}).status, 0);
  const std::string process = "/proc/" + std::to_string(shell());
  EXPECT_EQ(std::filesystem::read_symlink(process + "/cwd"), "/");
  for (const char* descriptor : {"0", "1", "2"}) {
    EXPECT_EQ(std::filesystem::read_symlink(process + "/fd/" + descriptor), "/dev/null");
  }
  EXPECT_EQ(getsid(shell()), shell());
}

TEST_F(WithShellTest, GroupsAreTheSameWithAndWithoutIt) {
  change({"create", "Work", "--member", "+15555550199"});
  change({"edit", "Work", "--colour", "336699ff", "--subtitle", "nine to five"});
  const std::string withShell = change({"list", "--json"}).out;
  const std::string members = change({"show", "Work", "--json"}).out;
  EXPECT_TRUE(isServed());
  useNoBus();
  EXPECT_EQ(change({"list", "--json"}).out, withShell);
  EXPECT_EQ(change({"show", "Work", "--json"}).out, members);
  useRelease("11");
  EXPECT_EQ(change({"list", "--json"}).out, withShell);
}

TEST_F(WithShellTest, PicturesGoThroughIt) {
  write(folder_ / "one.png", onePixelPng());
  change({"create", "Work", "--picture", (folder_ / "one.png").string()});
  const std::string name = identifierOf("Work") + ".png";
  EXPECT_EQ(read(groups_.parent_path() / "Zephyls" / name), onePixelPng());
}

TEST_F(WithShellTest, BelowVersion12TheFileIsUsed) {
  useRelease("11");
  change({"create", "Work"});
  EXPECT_FALSE(isServed());
  EXPECT_THAT(read(groups_), HasSubstr("Work"));
}

TEST_F(WithShellTest, EveryChangeIsHeardByOtherPrograms) {
  std::vector<std::string> heard;
  linux_host::BusNotifications notifications(connection_, address().notifications, dispatch_, log_);
  for (const char* name :
       {"com.vantor.ZephylAddedNotification", "com.vantor.ZephylChangedNotification",
        "com.vantor.ZephylDeletedNotification"}) {
    notifications.addObserver(name, [&heard, name] { heard.emplace_back(name); });
  }
  for (const char* release : {"14", "11"}) {
    useRelease(release);
    heard.clear();
    change({"create", "Work"});
    change({"edit", "Work", "--subtitle", "nine to five"});
    change({"delete", "Work", "--yes"});
    EXPECT_TRUE(dispatch_.runMainUntil([&] { return heard.size() >= 3; }, kLong)) << release;
    EXPECT_THAT(heard, ::testing::IsSupersetOf({"com.vantor.ZephylAddedNotification",
                                                "com.vantor.ZephylChangedNotification",
                                                "com.vantor.ZephylDeletedNotification"}));
  }
}

TEST_F(WithShellTest, AShellThatHasEndedIsStartedAgain) {
  change({"create", "Work"});
  const pid_t first = shell();
  endShell();
  change({"create", "Home"});
  EXPECT_NE(shell(), first);
  EXPECT_THAT(titles(), ::testing::ElementsAre("Work", "Home"));
}

TEST_F(WithShellTest, ProgramsThatStartAtOnceShareOneShell) {
  const std::vector<std::string> titlesOfAll = {"One", "Two", "Three", "Four"};
  std::vector<std::unique_ptr<ChildProcess>> programs;
  programs.reserve(titlesOfAll.size());
  for (const std::string& title : titlesOfAll) {
    programs.push_back(start(ZEPHYLS_PROGRAM, {"groups", "create", title}, title));
  }
  for (std::size_t i = 0; i < programs.size(); ++i) {
    EXPECT_EQ(programs[i]->wait(1min), 0);
    EXPECT_THAT(linesOf(titlesOfAll[i]), IsEmpty());
  }
  EXPECT_THAT(titles(), ::testing::UnorderedElementsAreArray(titlesOfAll));
}

TEST_F(WithShellTest, ABusThatIsNotThereIsDoneWithoutSilently) {
  useBus("unix:path=/nonexistent/bus");
  const ProgramResult result = groups({"create", "Work"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.errors, IsEmpty());
  EXPECT_THAT(read(groups_), HasSubstr("Work"));
}

TEST_F(WithShellTest, AShellOfAnotherDeviceIsNotAsked) {
  linux_host::MessageCenterService::Options options;
  options.device = "/elsewhere";
  const linux_host::TestServer other(bus_.address(), address().center, log_, std::move(options));
  const ProgramResult result = groups({"create", "Work"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.errors, HasSubstr("serves another device"));
  EXPECT_THAT(read(groups_), HasSubstr("Work"));
}

TEST_F(WithShellTest, AServiceThatAnswersNonsenseIsAnError) {
  linux_host::MessageCenterService::Options options;
  options.device = device_.string();
  linux_host::TestServer strange(bus_.address(), address().center, log_, std::move(options));
  strange.answer("com.vantor.zephyls", "com.vantor.zephyls.groups.get", [](const Dictionary*) {
    return Dictionary{{"ZephylsServiceMessageData", "no groups"}};
  });
  const ProgramResult result = groups({"list"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.errors, HasSubstr("cannot"));
}

// As when the shell ends between two messages: what was not read must not count as no groups.
TEST_F(WithShellTest, GroupsThatWereNotReadAreNotSavedOver) {
  linux_host::MessageCenterService::Options options;
  options.device = device_.string();
  linux_host::TestServer shaky(bus_.address(), address().center, log_, std::move(options));
  std::atomic<int> asked = 0;
  std::atomic<int> saved = 0;
  shaky.answer("com.vantor.zephyls", "com.vantor.zephyls.groups.get", [&](const Dictionary*) {
    const Array groups{Dictionary{{"identifier", 7}, {"title", "Work"}, {"enabled", true}}};
    return ++asked == 2 ? std::nullopt
                        : std::optional(Dictionary{{"ZephylsServiceMessageData", groups}});
  });
  shaky.answer("com.vantor.zephyls", "com.vantor.zephyls.groups.save", [&](const Dictionary*) {
    ++saved;
    return Dictionary{{"ZephylsServiceMessageData", true}};
  });
  const ProgramResult result = groups({"list"});
  EXPECT_GE(asked, 2);
  EXPECT_EQ(saved, 0);
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.errors, HasSubstr("could not be read before"));
  EXPECT_THAT(result.out, HasSubstr("Work"));
}

TEST_F(WithShellTest, WithoutTheShellsProgramTheGroupsAreUsedWithALine) {
  const std::filesystem::path alone = folder_ / "bin/zephyls";
  std::filesystem::create_directories(alone.parent_path());
  std::filesystem::copy_file(ZEPHYLS_PROGRAM, alone);
  EXPECT_EQ(start(alone, {"groups", "create", "Work"}, "alone")->wait(1min), 0);
  const std::string lines = linesOf("alone");
  EXPECT_THAT(lines, HasSubstr("zephyls-springboard"));
  EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 1) << lines;
  EXPECT_THAT(read(groups_), HasSubstr("Work"));
}

}  // namespace
}  // namespace zephyl::app::test
