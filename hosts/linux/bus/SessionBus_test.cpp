#include "hosts/linux/bus/SessionBus.h"

#include <QTimer>
#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/bus/BusProbe.h"
#include "hosts/linux/bus/BusTest.h"

namespace zephyl::linux_host {
namespace {

using namespace std::chrono_literals;

using SessionBusTest = BusTest;

TEST_F(SessionBusTest, ConnectsWhenItIsFirstNeeded) {
  SessionBus bus(bus_.address());
  EXPECT_TRUE(bus.wasConnected());
  EXPECT_TRUE(bus.isConnected());
  EXPECT_TRUE(bus.flush(10s));
}

TEST_F(SessionBusTest, EachIsAConnectionOfItsOwn) {
  const auto one = connect();
  const auto two = connect();
  EXPECT_NE(one->connection().baseService(), two->connection().baseService());
  EXPECT_EQ(one->connection().baseService(), one->connection().baseService());
}

TEST_F(SessionBusTest, WithoutABusThereIsNoConnection) {
  for (const char* address : {"", "unix:path=/nonexistent/bus", "nonsense", "unix:", ";;"}) {
    SessionBus bus(address);
    EXPECT_FALSE(bus.wasConnected()) << address;
    EXPECT_FALSE(bus.flush(10s)) << address;
  }
}

TEST_F(SessionBusTest, ABusThatGoesAwayIsSeen) {
  SessionBus bus(bus_.address());
  QTimer target;  // any object with a slot that takes nothing
  target.setSingleShot(true);
  LinuxDispatch dispatch;
  bool seen = false;
  QObject::connect(&target, &QTimer::timeout, &target, [&] { seen = true; });
  bus.notifyOfLoss(&target, SLOT(start()));
  EXPECT_TRUE(bus.flush(10s));
  bus_.kill();
  EXPECT_TRUE(dispatch.runMainUntil([&] { return seen; }, 10s));
  EXPECT_FALSE(bus.isConnected());
  EXPECT_TRUE(bus.wasConnected());
  EXPECT_FALSE(bus.flush(10s));
}

TEST_F(SessionBusTest, ABusThatHangsIsNotTakenForOne) {
  EXPECT_TRUE(busAnswers(bus_.address(), 10s));
  bus_.freeze();
  EXPECT_FALSE(busAnswers(bus_.address(), 100ms));
  bus_.thaw();
  EXPECT_TRUE(busAnswers(bus_.address(), 10s));
  bus_.kill();
  EXPECT_FALSE(busAnswers(bus_.address(), 10s));
}

TEST_F(SessionBusTest, OneOfSeveralAddressesIsEnough) {
  EXPECT_TRUE(busAnswers("unix:path=/nonexistent/bus;" + bus_.address() + ",guid=12", 10s));
  EXPECT_FALSE(busAnswers("unix:path=/nonexistent/a;unix:path=/nonexistent/b", 10s));
}

TEST_F(SessionBusTest, APathMayBeEscaped) {
  std::string escaped = bus_.address();
  escaped.replace(escaped.rfind("/bus"), 4, "%2fb%75s");
  EXPECT_TRUE(busAnswers(escaped, 10s));
}

TEST_F(SessionBusTest, OtherWaysToABusAreNotTried) {
  EXPECT_TRUE(busAnswers("tcp:host=localhost,port=1", 10s));
}

}  // namespace
}  // namespace zephyl::linux_host
