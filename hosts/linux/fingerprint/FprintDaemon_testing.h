// The real fingerprint service on a bus of a test's own, with the reader that its library can
// pretend to have, and an authority that allows everything.

#pragma once

#include <optional>
#include <string>

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/fingerprint/FprintProtocol.h"
#include "hosts/linux/fingerprint/ServiceOnBus_testing.h"
#include "hosts/linux/testing/ChildProcess.h"
#include "hosts/linux/testing/PrivateBus.h"

namespace zephyl::test {

// Where the service is installed; the tests that need it fail without it.
inline constexpr const char* kFprintDaemon = "/usr/libexec/fprintd";

class FprintDaemon {
 public:
  // Throws std::runtime_error when it does not come up.
  FprintDaemon();

  [[nodiscard]] const std::string& busAddress() const { return bus_.address(); }

  // Enrols the finger of that name as one of the caller's; false when that does not succeed.
  [[nodiscard]] bool enrol(const std::string& finger);

  // Forgets all fingers of the caller's.
  void forgetFingers();

  // Holds the reader as another program does; false when it is not free.
  [[nodiscard]] bool claim();
  void release();

  // Tells the reader something, when it waits for it by the end of a generous time: "SCAN name",
  // "RETRY number", "ERROR number".
  [[nodiscard]] bool tellReader(const std::string& command) const;

  void kill() { process_.reset(); }

 private:
  QDBusMessage call(const char* method, const char* text = nullptr);

  contract::TemporaryFolder folder_;
  PrivateBus bus_{PrivateBus::Kind::kSystem};
  ServiceOnBus authority_;
  linux_host::BusConnection client_;
  std::string readerPath_;
  std::optional<ChildProcess> process_;
};

}  // namespace zephyl::test
