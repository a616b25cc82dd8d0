// Sixty beats a second of a clock that never goes back. Main thread; beats come with the event
// loop, and only those that were asked for.

#pragma once

#include <QTimer>
#include <functional>

#include "platform/uikit/CADisplayLink.h"

namespace zephyl::linux_host {

class LinuxDisplayLink : public CADisplayLink {
 public:
  // Seconds from a fixed point in the past; never less than before.
  using Clock = std::function<double()>;

  LinuxDisplayLink();
  // With another clock, whose beats still come by real time.
  explicit LinuxDisplayLink(Clock clock);

  [[nodiscard]] double timestamp() override;
  void requestFrame(std::function<void()> frame) override;

  // The same clock, between beats too: when a finger moved.
  [[nodiscard]] double now() const { return clock_(); }

 private:
  void beat();

  const Clock clock_;
  QTimer timer_;
  std::function<void()> frame_;
  double timestamp_ = 0;
  bool running_ = false;
};

}  // namespace zephyl::linux_host
