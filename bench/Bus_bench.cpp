// What saves and notifications cost when they go over a message bus, to a service on a thread of
// its own.

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>

#include "platform/Host.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/PropertyList.h"

#include "apps/springboard/GroupsService.h"
#include "bench/BareBus.h"
#include "bench/BenchDevice.h"
#include "bench/Comparison.h"
#include "bench/Peers.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/bus/BusMessagingCenter.h"
#include "hosts/linux/bus/BusNotifications.h"
#include "hosts/linux/bus/SessionBus.h"
#include "hosts/linux/bus/TestServer.h"
#include "hosts/linux/testing/PrivateBus.h"
#include "model/ZephylKeys.h"

namespace zephyl::bench {
namespace {

const linux_host::MessageCenterAddress kAddress = {kZephylsMessageCenter, "com.example.groups",
                                                   "/com/example/groups"};

// Groups travel over `bus`.
linux_host::DeviceOptions messageMode(const test::PrivateBus& bus) {
  linux_host::DeviceOptions options;
  options.systemVersion = "14.0";
  options.makeMessagingCenter = [address = bus.address()](CPDistributedMessagingCenter& /*other*/,
                                                          SystemLog& log) {
    return std::make_unique<linux_host::BusMessagingCenter>(
        std::make_shared<linux_host::SessionBus>(address), kAddress, log);
  };
  return options;
}

QByteArray messageWith(const Array& groups) {
  const Data bytes = writeBinaryPropertyList(Dictionary{{kServiceMessageData, groups}});
  return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

void BM_SaveOverBus(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const test::PrivateBus bus;
  const BareBus bare(bus.address());
  BenchDevice device(/*conversations=*/0, count, messageMode(bus));
  linux_host::TestServer server(bus.address(), kAddress, host().systemLog());
  server.run([](linux_host::MessageCenterService& service) { app::serveGroups(service); });
  const auto save = [] {
    if (!BenchDevice::store()->saveAllGroupsToDisk(nullptr, /*postNotification=*/false, "")) {
      throw std::runtime_error("not saved");
    }
  };
  save();
  if (BenchDevice::store()->allZephyls()->size() != count) {
    throw std::runtime_error("the groups did not come over the bus");
  }
  const std::string bytes = *host().files().contentsAtPath(kGroupsFilePath);
  const QByteArray message = messageWith(*BenchDevice::store()->getAllGroups());
  compare(state, save,
          {{"bare_bus", [&] { bare.send(message); }},
           {"bytes", [&] { writeBytes(device.peerFile(), bytes); }}});
  state.counters["MB"] = static_cast<double>(message.size()) / 1e6;
}
BENCHMARK(BM_SaveOverBus)->Arg(100)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);

// Until an observer on another connection has had its turn on the main queue.
void BM_NotificationOverBus(benchmark::State& state) {
  const test::PrivateBus bus;
  const BareBus bare(bus.address());
  BenchDevice device(/*conversations=*/0, /*groups=*/0);
  linux_host::LinuxDispatch& queues = device.device().queues();
  const auto connect = [&] {
    return std::make_unique<linux_host::BusNotifications>(
        std::make_shared<linux_host::SessionBus>(bus.address()), "/com/example/groups", queues,
        host().systemLog());
  };
  const auto sender = connect();
  const auto receiver = connect();
  int seen = 0;
  static_cast<void>(receiver->addObserver(kZephylChangedNotification, [&] { ++seen; }));
  const auto post = [&] {
    const int before = seen;
    sender->post(kZephylChangedNotification);
    if (!queues.runMainUntil([&] { return seen > before; }, std::chrono::seconds(10))) {
      throw std::runtime_error("a notification was lost");
    }
  };
  compare(state, post, {{"bare_bus", [&] { bare.send({}); }}});
}
BENCHMARK(BM_NotificationOverBus)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zephyl::bench
