// Ctrl-C while something runs that can be cancelled. The second one ends the program, as does one
// when nothing of the kind runs.
//
// One at a time, made and let go of on the thread of the event loop that tells of it.

#pragma once

#include <functional>
#include <memory>

namespace zephyl::app {

class Interruption {
 public:
  // `interrupted` is called by the event loop. Where the signal is ignored, as in a background job,
  // it stays so.
  explicit Interruption(std::function<void()> interrupted);
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

 private:
  struct Pipe;

  std::unique_ptr<Pipe> pipe_;
};

}  // namespace zephyl::app
