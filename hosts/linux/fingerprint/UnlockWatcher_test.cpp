#include "hosts/linux/fingerprint/UnlockWatcher.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDeadlineTimer>
#include <QStringList>
#include <QTimer>
#include <QVariantMap>
#include <algorithm>
#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/fingerprint/ServiceOnBus_testing.h"
#include "hosts/linux/testing/PrivateBus.h"

namespace zephyl::test {
namespace {

using linux_host::UnlockEnd;
using linux_host::UnlockWatcher;
using Ends = std::vector<UnlockEnd>;

constexpr const char* kOurs = "/org/freedesktop/login1/session/c2";
constexpr const char* kAnothers = "/org/freedesktop/login1/session/c3";

QDBusMessage sleepSignal(bool isBefore) {
  QDBusMessage signal = QDBusMessage::createSignal(
      "/org/freedesktop/login1", "org.freedesktop.login1.Manager", "PrepareForSleep");
  signal << isBefore;
  return signal;
}

QDBusMessage lockSignal(const char* session) {
  return QDBusMessage::createSignal(session, "org.freedesktop.login1.Session", "Lock");
}

QDBusMessage changeSignal(const char* session, const QVariantMap& changed,
                          const QStringList& invalidated = {}) {
  QDBusMessage signal =
      QDBusMessage::createSignal(session, "org.freedesktop.DBus.Properties", "PropertiesChanged");
  signal << QString("org.freedesktop.login1.Session") << changed << invalidated;
  return signal;
}

QDBusMessage saverSignal(const char* path, const char* interface, bool isOn) {
  QDBusMessage signal = QDBusMessage::createSignal(path, interface, "ActiveChanged");
  signal << isOn;
  return signal;
}

class UnlockWatcherTest : public ::testing::Test {
 protected:
  void startLogin() {
    login_ = std::make_unique<ServiceOnBus>(
        system_.address(), "org.freedesktop.login1", "/org/freedesktop/login1",
        [this](const QDBusMessage& call, const QDBusConnection& bus) {
          bus.send(call.createReply(QVariant::fromValue(QDBusObjectPath(kOurs))));
          sessionsTold_ = true;
        });
  }

  void watch(const std::string& system, const std::string& session) {
    watcher_ = std::make_unique<UnlockWatcher>([this](UnlockEnd why) { ends_.push_back(why); },
                                               system, session);
  }

  template <typename Condition>
  static void runUntil(Condition holds) {
    QTimer alarm;
    alarm.start(5);
    const QDeadlineTimer deadline(20000);
    while (!holds() && !deadline.hasExpired()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    ASSERT_TRUE(holds());
  }

  // What the signal of the login manager does, which knows our session.
  Ends endsByLogin(const QDBusMessage& signal) {
    startLogin();
    watch(system_.address(), "unix:path=/nonexistent/bus");
    runUntil([this] { return sessionsTold_.load(); });
    return endsBy(*login_, signal, system_);
  }

  // What the signal of a program of the desktop does.
  Ends endsByDesktop(const QDBusMessage& signal) {
    ServiceOnBus desktop(session_.address(), "", "/", [](const QDBusMessage&, const auto&) {});
    watch("unix:path=/nonexistent/bus", session_.address());
    return endsBy(desktop, signal, session_);
  }

  // Everything that was sent on a bus is heard before its end.
  Ends endsBy(ServiceOnBus& sender, const QDBusMessage& signal, PrivateBus& bus) {
    sender.send(signal);
    EXPECT_TRUE(sender.flush());
    bus.kill();
    runUntil([this] { return !ends_.empty() && ends_.back() == UnlockEnd::kBusLost; });
    ends_.pop_back();
    return ends_;
  }

  PrivateBus system_{PrivateBus::Kind::kSystem};
  PrivateBus session_{PrivateBus::Kind::kSession};
  Ends ends_;

 private:
  std::atomic<bool> sessionsTold_ = false;
  std::unique_ptr<ServiceOnBus> login_;
  std::unique_ptr<UnlockWatcher> watcher_;
};

TEST_F(UnlockWatcherTest, GoingToSleepEndsAnUnlock) {
  EXPECT_EQ(endsByLogin(sleepSignal(true)), Ends{UnlockEnd::kAsleep});
}

TEST_F(UnlockWatcherTest, WakingUpDoesNot) {
  EXPECT_EQ(endsByLogin(sleepSignal(false)), Ends());
}

TEST_F(UnlockWatcherTest, LockingTheSessionEndsAnUnlock) {
  EXPECT_EQ(endsByLogin(lockSignal(kOurs)), Ends{UnlockEnd::kLocked});
}

TEST_F(UnlockWatcherTest, LockingAnothersSessionDoesNot) {
  EXPECT_EQ(endsByLogin(lockSignal(kAnothers)), Ends());
}

TEST_F(UnlockWatcherTest, ASessionThatSaysItIsLockedEndsAnUnlock) {
  EXPECT_EQ(endsByLogin(changeSignal(kOurs, {{"LockedHint", true}})), Ends{UnlockEnd::kLocked});
}

TEST_F(UnlockWatcherTest, ASessionThatMayBeLockedEndsAnUnlock) {
  EXPECT_EQ(endsByLogin(changeSignal(kOurs, {}, {"LockedHint"})), Ends{UnlockEnd::kLocked});
}

TEST_F(UnlockWatcherTest, ASessionThatSaysItIsOpenDoesNot) {
  EXPECT_EQ(endsByLogin(changeSignal(kOurs, {{"LockedHint", false}, {"IdleHint", true}})), Ends());
}

TEST_F(UnlockWatcherTest, AnotherSessionThatSaysItIsLockedDoesNot) {
  EXPECT_EQ(endsByLogin(changeSignal(kAnothers, {{"LockedHint", true}})), Ends());
}

TEST_F(UnlockWatcherTest, WithoutALoginManagerEverySessionCounts) {
  ServiceOnBus sender(system_.address(), "", "/", [](const QDBusMessage&, const auto&) {});
  watch(system_.address(), "unix:path=/nonexistent/bus");
  EXPECT_EQ(endsBy(sender, lockSignal(kAnothers), system_), Ends{UnlockEnd::kLocked});
}

TEST_F(UnlockWatcherTest, AScreenSaverThatComesOnEndsAnUnlock) {
  EXPECT_EQ(endsByDesktop(saverSignal("/ScreenSaver", "org.freedesktop.ScreenSaver", true)),
            Ends{UnlockEnd::kLocked});
}

TEST_F(UnlockWatcherTest, TheScreenSaverOfAnotherDesktopDoesTheSame) {
  EXPECT_EQ(endsByDesktop(saverSignal("/org/gnome/ScreenSaver", "org.gnome.ScreenSaver", true)),
            Ends{UnlockEnd::kLocked});
}

TEST_F(UnlockWatcherTest, AScreenSaverThatGoesOffDoesNot) {
  EXPECT_EQ(endsByDesktop(saverSignal("/ScreenSaver", "org.freedesktop.ScreenSaver", false)),
            Ends());
}

TEST_F(UnlockWatcherTest, WithoutBusesNothingIsHeard) {
  watch("unix:path=/nonexistent/bus", "unix:path=/nonexistent/bus");
  QCoreApplication::processEvents();
  EXPECT_EQ(ends_, Ends());
}

}  // namespace
}  // namespace zephyl::test
