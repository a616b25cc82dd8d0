// Changing views over time. Main thread.

#pragma once

#include <functional>

#include "platform/Export.h"
#include "platform/uikit/UIViewEnumerations.h"

namespace zephyl {

// `finished` is false when another animation of the same values, or the end of the layer, cut it
// short.
using AnimationCompletion = std::function<void(bool finished)>;

// Runs `animations` at once; the changes that it makes to layers are shown over `duration` seconds
// from `delay` seconds on. `completion` runs on a later frame, once, also when nothing changed.
// With a duration of 0, or reduced motion, the changes show at once, and `completion` still comes
// later.
ZP_EXPORT void animateWithDuration(double duration, double delay, unsigned options,
                                   const std::function<void()>& animations,
                                   AnimationCompletion completion = nullptr);
ZP_EXPORT void animateWithDuration(double duration, const std::function<void()>& animations,
                                   AnimationCompletion completion = nullptr);

// Runs `changes` without animating them, inside an animation too.
ZP_EXPORT void performWithoutAnimation(const std::function<void()>& changes);

// Ends every running animation as if its time had passed; completions run.
ZP_EXPORT void finishAllAnimations();

}  // namespace zephyl
