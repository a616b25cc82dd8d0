#include "hosts/linux/screen/LinuxDisplayLink.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace zephyl::linux_host {

namespace {

constexpr double kBeatsASecond = 60;

double steadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double lastBeat(double time) {
  return std::floor(time * kBeatsASecond) / kBeatsASecond;
}

}  // namespace

LinuxDisplayLink::LinuxDisplayLink() : LinuxDisplayLink(steadySeconds) {}

LinuxDisplayLink::LinuxDisplayLink(Clock clock)
    : clock_(std::move(clock)), timestamp_(lastBeat(clock_())) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { beat(); });
}

double LinuxDisplayLink::timestamp() {
  // While no beat is asked for, they go on unseen.
  if (frame_ == nullptr && !running_) {
    timestamp_ = std::max(timestamp_, lastBeat(clock_()));
  }
  return timestamp_;
}

void LinuxDisplayLink::requestFrame(std::function<void()> frame) {
  timestamp();
  frame_ = std::move(frame);
  if (!timer_.isActive()) {
    const double now = clock_();
    const double next = lastBeat(now) + 1 / kBeatsASecond;
    timer_.start(std::chrono::milliseconds(std::max(1L, std::lround(1000 * (next - now)))));
  }
}

void LinuxDisplayLink::beat() {
  timestamp_ = std::max(timestamp_, clock_());
  running_ = true;
  if (const auto frame = std::exchange(frame_, nullptr)) {
    frame();
  }
  running_ = false;
}

}  // namespace zephyl::linux_host
