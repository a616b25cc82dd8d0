#include "hosts/fake/uikit/FakeDisplayLink.h"

namespace zephyl::fake {
namespace {

constexpr double kFrame = 1.0 / 60;
constexpr int kTenMinutes = 36'000;
// What sums of sixtieths are off by.
constexpr double kTolerance = 1e-9;

}  // namespace

void FakeDisplayLink::advance(double seconds) {
  const double end = timestamp_ + seconds;
  while (isFrameRequested() && timestamp_ < end) {
    const double next = timestamp_ + kFrame;
    runAt(next < end - kTolerance ? next : end);
  }
  timestamp_ = end;
}

bool FakeDisplayLink::runFrame() {
  if (!isFrameRequested()) {
    return false;
  }
  runAt(timestamp_ + kFrame);
  return true;
}

int FakeDisplayLink::runUntilIdle() {
  int frames = 0;
  while (frames < kTenMinutes && runFrame()) {
    ++frames;
  }
  return frames;
}

void FakeDisplayLink::runAt(double time) {
  timestamp_ = time;
  // Taken first: the frame may ask for the next one.
  const auto frame = std::exchange(frame_, nullptr);
  frame();
}

}  // namespace zephyl::fake
