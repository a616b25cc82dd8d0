#include "hosts/linux/bus/BusNotifications.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <atomic>
#include <future>
#include <memory>
#include <string>
#include <thread>

#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/bus/BusTest.h"

namespace zephyl::linux_host {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr char kPath[] = "/com/example/notify";

// Two programs of one user.
class BusNotificationsTest : public BusTest {
 protected:
  std::unique_ptr<BusNotifications> program(const std::string& path = kPath) {
    return std::make_unique<BusNotifications>(connect(), path, dispatch_, log_);
  }

  void observe(BusNotifications& notifications, const std::string& text) {
    notifications.addObserver("changed", [this, text] { heard_ += text; });
  }

  // Everything that was posted before has come once this has.
  void settle(BusNotifications& poster, BusNotifications& observer) {
    bool done = false;
    const auto number = observer.addObserver("done", [&] { done = true; });
    poster.post("done");
    EXPECT_TRUE(dispatch_.runMainUntil([&] { return done; }, 10s));
    observer.removeObserver(number);
  }

  LinuxDispatch dispatch_;
  std::string heard_;
};

TEST_F(BusNotificationsTest, APostReachesOtherProgramsOnTheMainQueue) {
  const auto poster = program();
  const auto observer = program();
  bool onMain = false;
  observer->addObserver("changed", [&] { onMain = dispatch_.isMainThread(); });
  observe(*observer, "x");
  poster->post("changed");
  poster->post("other");
  EXPECT_EQ(heard_, "");
  settle(*poster, *observer);
  EXPECT_EQ(heard_, "x");
  EXPECT_TRUE(onMain);
}

TEST_F(BusNotificationsTest, APostReachesItsOwnProgramOnce) {
  const auto poster = program();
  const auto observer = program();
  observe(*poster, "own ");
  observe(*observer, "other ");
  poster->post("changed");
  settle(*poster, *observer);
  settle(*observer, *poster);
  EXPECT_EQ(heard_, "own other ");
}

TEST_F(BusNotificationsTest, ProgramsOfAnotherDeviceHearNothing) {
  const auto poster = program();
  const auto observer = program("/com/example/second/notify");
  const auto neighbour = program("/com/example/second/notify");
  observe(*observer, "x");
  poster->post("changed");
  settle(*neighbour, *observer);
  EXPECT_EQ(heard_, "");
}

TEST_F(BusNotificationsTest, WhatIsPostedGoesOutBeforeTheProgramEnds) {
  const auto observer = program();
  observe(*observer, "x");
  program()->post("changed");
  EXPECT_TRUE(dispatch_.runMainUntil([&] { return heard_ == "x"; }, 10s));
}

TEST_F(BusNotificationsTest, TheEndWaitsUntilTheBusHasWhatWasPosted) {
  auto poster = program();
  poster->post("first");
  bus_.freeze();
  poster->post("changed");
  std::atomic<bool> isFrozen = true;
  std::promise<void> ended;
  std::thread thawing([&] {
    EXPECT_EQ(ended.get_future().wait_for(50ms), std::future_status::timeout);
    isFrozen = false;
    bus_.thaw();
  });
  poster.reset();
  EXPECT_FALSE(isFrozen);
  ended.set_value();
  thawing.join();
}

TEST_F(BusNotificationsTest, SignalsOfAnotherFormAreNotHeard) {
  const auto observer = program();
  observe(*observer, "x");
  const auto other = connect();
  for (const QVariantList& arguments :
       {QVariantList{}, QVariantList{5}, QVariantList{"changed", "changed"}}) {
    QDBusMessage signal = QDBusMessage::createSignal(kPath, kNotifyInterface, kPostedSignal);
    signal.setArguments(arguments);
    EXPECT_TRUE(other->connection().send(signal));
  }
  EXPECT_TRUE(other->flush(10s));
  settle(*program(), *observer);
  EXPECT_EQ(heard_, "");
}

TEST_F(BusNotificationsTest, TheFormOnTheBusIsASignalWithTheName) {
  const auto observer = program();
  const std::string name = "com.apple.springboard.ring-vibrate.changed";
  observer->addObserver(name, [this] { heard_ += "x"; });
  QDBusMessage signal =
      QDBusMessage::createSignal(kPath, "com.vantor.zephyls.DarwinNotify", "Posted");
  signal << QString::fromStdString(name);
  const auto other = connect();
  EXPECT_TRUE(other->connection().send(signal));
  EXPECT_TRUE(other->flush(10s));
  EXPECT_TRUE(dispatch_.runMainUntil([&] { return heard_ == "x"; }, 10s));
}

TEST_F(BusNotificationsTest, WithoutABusNotificationsStayInTheProgram) {
  BusNotifications alone(std::make_shared<SessionBus>("unix:path=/nonexistent/bus"), kPath,
                         dispatch_, log_);
  observe(alone, "x");
  alone.post("changed");
  EXPECT_TRUE(dispatch_.runMainUntilIdle());
  EXPECT_EQ(heard_, "x");
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(BusNotificationsTest, ABusThatGoesAwayLeavesTheProgramItsOwnAndALine) {
  const auto poster = program();
  observe(*poster, "x");
  poster->post("changed");
  EXPECT_TRUE(dispatch_.runMainUntilIdle());
  bus_.kill();
  const auto bus = connect();
  EXPECT_TRUE(dispatch_.runMainUntil(
      [&] {
        poster->post("changed");
        return !log_.lines().empty();
      },
      10s));
  heard_.clear();
  poster->post("changed");
  poster->post("changed");
  EXPECT_TRUE(dispatch_.runMainUntilIdle());
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("this program only")));
  EXPECT_THAT(heard_, HasSubstr("xx"));
}

}  // namespace
}  // namespace zephyl::linux_host
