// The beat of the screen, by which animations run. A seam; main thread.

#pragma once

#include <functional>

namespace zephyl {

class CADisplayLink {
 public:
  virtual ~CADisplayLink() = default;

  // Seconds of a clock that never goes back; the same between two frames.
  [[nodiscard]] virtual double timestamp() = 0;

  // Calls `frame` once, on the main thread, before the next picture is drawn, never inside this
  // call. A second request before that replaces the first.
  virtual void requestFrame(std::function<void()> frame) = 0;
};

}  // namespace zephyl
