// Runs the animations of all layers by the screen's beat, one for a process. Main thread.

#pragma once

#include <memory>
#include <vector>

#include "platform/uikit/LayerAnimations.h"

namespace zephyl {

class Animator : public std::enable_shared_from_this<Animator> {
 public:
  // The installed host's.
  [[nodiscard]] static std::shared_ptr<Animator> shared();

  // The run whose changes are being made now; null outside `animateWithDuration`.
  [[nodiscard]] static std::shared_ptr<AnimationRun>& current();

  // The time of what is on the screen: the last frame's while anything runs.
  [[nodiscard]] double time() const;

  // Its completion comes with a later frame.
  void add(const std::shared_ptr<AnimationRun>& run);

  // From layers: a layer with animations, until it has none.
  void add(CALayer& layer);
  void remove(CALayer& layer);

  void finishAll();

 private:
  void schedule();
  bool frame(double time);
  // Everything that changes by `time` is drawn anew, where it was and where it is.
  void advanceLayers(double time);
  void complete(double time);

  // Null where a layer left while they are gone through.
  std::vector<CALayer*> layers_;
  std::vector<std::shared_ptr<AnimationRun>> runs_;
  double time_ = 0;
  bool scheduled_ = false;
};

}  // namespace zephyl
