// A fingerprint service that a test plays: one reader with a finger of everybody's, which says and
// refuses what the test wants and remembers what it was asked.

#pragma once

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "hosts/linux/fingerprint/ServiceOnBus_testing.h"

namespace zephyl::test {

// What it does other than well, by the names of its methods.
struct FprintMockScript {
  std::map<std::string, std::string> errors = {};  // their names, without what they all begin with
  std::set<std::string> hangs = {};
  std::set<std::string> nonsense = {};  // answered with a number
  std::vector<std::string> fingers = {"right-index-finger"};
  // Said when a method is called, before it is answered: texts that end in "!" end a check.
  std::map<std::string, std::vector<std::string>> results = {};
};

class FprintMock {
 public:
  using Script = FprintMockScript;

  explicit FprintMock(const std::string& busAddress, Script script = {});

  // Any thread, as all below. Counts from the next call on.
  void setScript(Script script);

  // Says a result now, as in the script.
  void say(const std::string& result);

  // As a service that crashes.
  void vanish() { service_.reset(); }

  // What it was asked to do so far: "Claim()", "VerifyStart(any)".
  [[nodiscard]] std::vector<std::string> calls() const;

  // Whether it was asked to do so by the end of a generous time.
  [[nodiscard]] bool waitForCall(const std::string& call);

 private:
  void handle(const QDBusMessage& call, const QDBusConnection& bus);
  void answer(const QDBusMessage& call, const QDBusConnection& bus, const Script& script);

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  Script script_;
  std::vector<std::string> calls_;
  std::unique_ptr<ServiceOnBus> service_;
};

// The signal with which a reader says how a check goes.
[[nodiscard]] QDBusMessage verifyStatus(const std::string& result);

}  // namespace zephyl::test
