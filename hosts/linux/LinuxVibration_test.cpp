#include "hosts/linux/LinuxVibration.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/LinuxDispatch.h"

namespace zephyl::linux_host {
namespace {

using namespace std::chrono_literals;
using ::testing::SizeIs;

// A message bus of the test's own.
class PrivateBus {
 public:
  PrivateBus() {
    daemon_.start("dbus-daemon", {"--session", "--nofork", "--print-address=1"});
    EXPECT_TRUE(daemon_.waitForReadyRead()) << "dbus-daemon does not start";
    address_ = daemon_.readLine().trimmed();
  }
  ~PrivateBus() {
    daemon_.kill();
    daemon_.waitForFinished();
  }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  [[nodiscard]] const QString& address() const { return address_; }

 private:
  QProcess daemon_;
  QString address_;
};

// The feedback service, which writes down what it is asked.
class FeedbackService : public QDBusVirtualObject {
 public:
  explicit FeedbackService(const QString& address)
      : bus_(QDBusConnection::connectToBus(address, "feedback service")) {
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
  LinuxVibration vibration_{dispatch_, "com.example.app", bus_.address().toStdString()};
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
