// The beat of the screen, by hand: nothing is drawn until a test lets time pass.

#pragma once

#include <functional>
#include <utility>

#include "platform/uikit/CADisplayLink.h"

namespace zephyl::fake {

class FakeDisplayLink : public CADisplayLink {
 public:
  double timestamp() override { return timestamp_; }
  void requestFrame(std::function<void()> frame) override { frame_ = std::move(frame); }

  [[nodiscard]] bool isFrameRequested() const { return frame_ != nullptr; }

  // Frames of a sixtieth of a second for as long as they are asked for, and then the rest of
  // `seconds`. The last frame falls on the end exactly.
  void advance(double seconds);

  // One frame, a sixtieth of a second later. False when none was asked for.
  bool runFrame();

  // Until no more frames are asked for: how many ran. Gives up after ten minutes' worth.
  int runUntilIdle();

 private:
  void runAt(double time);

  double timestamp_ = 100;
  std::function<void()> frame_;
};

}  // namespace zephyl::fake
