#include "hosts/linux/LinuxVibration.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <array>
#include <csignal>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hosts/linux/LinuxDispatch.h"

namespace zephyl::linux_host {
namespace {

using namespace std::chrono_literals;
using ::testing::SizeIs;

// A message bus of the test's own. Started without Qt, whose way to start programs confuses
// ThreadSanitizer.
class PrivateBus {
 public:
  PrivateBus() {
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::array<std::string, 4> words = {"dbus-daemon", "--session", "--nofork",
                                        "--print-address=1"};
    std::array<char*, 5> arguments = {words[0].data(), words[1].data(), words[2].data(),
                                      words[3].data(), nullptr};
    EXPECT_EQ(
        ::posix_spawnp(&process_, "dbus-daemon", &actions, nullptr, arguments.data(), environ), 0)
        << "dbus-daemon does not start";
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    address_ = lineFrom(ends[0]);
    ::close(ends[0]);
  }
  ~PrivateBus() {
    if (process_ > 0) {
      ::kill(process_, SIGKILL);
      ::waitpid(process_, nullptr, 0);
    }
  }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  [[nodiscard]] const std::string& address() const { return address_; }

 private:
  static std::string lineFrom(int descriptor) {
    std::string line;
    char c = '\0';
    while (::read(descriptor, &c, 1) == 1 && c != '\n') {
      line.push_back(c);
    }
    return line;
  }

  pid_t process_ = 0;
  std::string address_;
};

// The feedback service, which writes down what it is asked.
class FeedbackService : public QDBusVirtualObject {
 public:
  explicit FeedbackService(const std::string& address)
      : bus_(QDBusConnection::connectToBus(QString::fromStdString(address), "feedback service")) {
    EXPECT_TRUE(bus_.registerVirtualObject("/org/sigxcpu/Feedback", this));
    EXPECT_TRUE(bus_.registerService("org.sigxcpu.Feedback"));
  }
  ~FeedbackService() override { QDBusConnection::disconnectFromBus("feedback service"); }

  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*bus*/) override {
    calls_.push_back(message);
    return true;
  }

  [[nodiscard]] const std::vector<QDBusMessage>& calls() const { return calls_; }

 private:
  QDBusConnection bus_;
  std::vector<QDBusMessage> calls_;
};

class LinuxVibrationTest : public ::testing::Test {
 protected:
  static Dictionary vibration(const Value& pattern, double intensity) {
    return Dictionary{{"VibePattern", pattern}, {"Intensity", intensity}};
  }
  static Dictionary buzz() { return vibration(Array{Value(true), Value(300.0)}, 1.0); }

  PrivateBus bus_;
  LinuxDispatch dispatch_;
  LinuxVibration vibration_{dispatch_, "com.example.app", bus_.address()};
};

TEST_F(LinuxVibrationTest, AsksTheFeedbackService) {
  const FeedbackService service(bus_.address());
  vibration_.playSystemSoundWithVibration(4095, buzz());
  ASSERT_TRUE(dispatch_.runMainUntil([&] { return !service.calls().empty(); }, 10s));
  const QDBusMessage& call = service.calls().front();
  EXPECT_EQ(call.member().toStdString(), "TriggerFeedback");
  EXPECT_EQ(call.interface().toStdString(), "org.sigxcpu.Feedback");
  EXPECT_EQ(call.signature().toStdString(), "ssa{sv}i");
  EXPECT_EQ(call.arguments().at(0).toString().toStdString(), "com.example.app");
}

TEST_F(LinuxVibrationTest, NothingIsAskedForAVibrationThatIsNowhereOn) {
  const FeedbackService service(bus_.address());
  for (const Dictionary& silent :
       {vibration(Array{Value(true), Value(300.0)}, 0.0),
        vibration(Array{Value(false), Value(300.0)}, 1.0),
        vibration(Array{Value(true), Value(0.0)}, 1.0), vibration(Array{Value(true)}, 1.0),
        vibration("no array", 1.0), Dictionary()}) {
    vibration_.playSystemSoundWithVibration(4095, silent);
  }
  vibration_.playSystemSoundWithVibration(
      4095, vibration(Array{Value(false), Value(5.0), Value(1), Value(5)}, 0.5));
  ASSERT_TRUE(dispatch_.runMainUntil([&] { return !service.calls().empty(); }, 10s));
  EXPECT_TRUE(dispatch_.runMainUntilIdle());
  EXPECT_THAT(service.calls(), SizeIs(1));
}

TEST_F(LinuxVibrationTest, WithoutTheServiceNothingHappens) {
  vibration_.playSystemSoundWithVibration(4095, buzz());
  EXPECT_TRUE(dispatch_.runMainUntilIdle());
  const FeedbackService service(bus_.address());
  vibration_.playSystemSoundWithVibration(4095, buzz());
  ASSERT_TRUE(dispatch_.runMainUntil([&] { return !service.calls().empty(); }, 10s));
  EXPECT_THAT(service.calls(), SizeIs(1));
}

}  // namespace
}  // namespace zephyl::linux_host
