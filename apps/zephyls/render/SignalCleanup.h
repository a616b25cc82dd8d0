// Something that must be done before SIGINT, SIGTERM or SIGHUP ends the program: afterwards the
// signal ends it as if nothing had caught it. A signal that is ignored, as in a background job,
// stays so.
//
// One at a time. Where another handler is put before it for a while, such as for Ctrl-C, that one
// counts.

#pragma once

#include <functional>
#include <memory>

namespace zephyl::app::render {

class SignalCleanup {
 public:
  // `clean` is called on a thread of its own while the others go on; it must not throw.
  explicit SignalCleanup(std::function<void()> clean);
  ~SignalCleanup();
  SignalCleanup(const SignalCleanup&) = delete;
  SignalCleanup& operator=(const SignalCleanup&) = delete;

 private:
  struct Parts;

  std::unique_ptr<Parts> parts_;
};

}  // namespace zephyl::app::render
