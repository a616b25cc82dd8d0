// What a fingerprint check on this machine is made with: the bus, the clock, the limits, and what
// tells the owner to touch the reader.

#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace zephyl::linux_host {

// What the owner is to read while a check runs.
struct FprintPrompt {
  enum class Kind {
    kAsk,    // the reader waits; `text` is the reason of the check
    kRetry,  // the finger was not read well; `text` says how to do better, and the check goes on
    kEnd,    // the check is over, however it ended; no text
  };

  Kind kind = Kind::kAsk;
  std::string text;
};

struct FprintOptions {
  // A D-Bus address; empty: the system bus, where DBUS_SYSTEM_BUS_ADDRESS says it is.
  std::string busAddress;

  // Called on the thread of the check: once with kAsk, any number of times with kRetry, once with
  // kEnd, the reply after that. Not called for a check that fails before the reader waits. May be
  // empty.
  std::function<void(const FprintPrompt& prompt)> prompt;

  // How long the service may take to say whether there is a reader and a finger, how long to open
  // the reader, and how long a whole check may take with the owner's part in it.
  std::chrono::milliseconds answerLimit{2000};
  std::chrono::milliseconds startLimit{10000};
  std::chrono::milliseconds checkLimit{60000};

  // Any thread. Runs while the owner waits, whatever is done to the wall clock.
  std::function<std::chrono::steady_clock::time_point()> now = std::chrono::steady_clock::now;
};

}  // namespace zephyl::linux_host
