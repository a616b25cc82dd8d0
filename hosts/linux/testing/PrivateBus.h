// A message bus of a test's own: a dbus-daemon on a socket in a temporary folder, which everybody
// may use for everything. Used on the thread that made it.

#pragma once

#include <optional>
#include <string>

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/testing/ChildProcess.h"

namespace zephyl::test {

class PrivateBus {
 public:
  enum class Kind { kSession, kSystem };

  // Answers when this returns; throws std::runtime_error when it cannot be started. The services
  // described in `serviceFolder` can be started by their names; empty: none.
  explicit PrivateBus(Kind kind = Kind::kSession, const std::string& serviceFolder = "");

  [[nodiscard]] const std::string& address() const { return address_; }

  // As a bus that crashes: every connection is cut. There is no way back.
  void kill() { daemon_.reset(); }

  // As one that hangs: connections stay, and nothing is answered until it goes on.
  void freeze();
  void thaw();

 private:
  contract::TemporaryFolder folder_;
  std::string address_;
  std::optional<ChildProcess> daemon_;
};

}  // namespace zephyl::test
