// A message bus on which the messages and notifications of a device under test go: what answers the
// messages is on another thread with a connection of its own, as if it were another process.

#pragma once

#include <mutex>
#include <string>

#include "hosts/fake/FakeSystem.h"
#include "hosts/linux/InProcessMessagingCenter.h"
#include "hosts/linux/bus/TestServer.h"
#include "hosts/linux/testing/PrivateBus.h"

namespace zephyl::linux_host {
struct DeviceOptions;
}

namespace zephyl::contract {

class BusUnderTest {
 public:
  BusUnderTest();

  // The device goes over the bus. It must not outlive this.
  void serve(linux_host::DeviceOptions& options);

  // What one handler writes is there for whoever has its reply.
  void answer(const std::string& center, const std::string& name,
              const linux_host::MessageHandler& handler);

 private:
  class Center;

  // Threads that come here and handlers have an order, which the bus between them hides.
  void meet();

  test::PrivateBus bus_;
  fake::FakeSystemLog serverLog_;
  std::mutex oneAtATime_;
  // What the server's own process would answer itself with.
  linux_host::InProcessMessagingCenter ofServer_{serverLog_};
  linux_host::TestServer server_;
};

}  // namespace zephyl::contract
