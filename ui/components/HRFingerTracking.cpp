#include "ui/components/HRFingerTracking.h"

#include "platform/uikit/gestures/UIPanGestureRecognizer.h"
#include "platform/uikit/gestures/UITapGestureRecognizer.h"

namespace zephyl::detail {

void trackFinger(UIControl& control, const std::function<void(CGPoint)>& update,
                 const std::function<void(bool)>& setEditing) {
  using State = UIGestureRecognizerState;
  control.addGestureRecognizer(
      std::make_shared<UITapGestureRecognizer>([update](UIGestureRecognizer& tap) {
        if (tap.view() != nullptr && tap.state() == State::kEnded && tap.numberOfTouches() > 0) {
          update(tap.locationOfTouch(0, tap.view()));
        }
      }));
  control.addGestureRecognizer(
      std::make_shared<UIPanGestureRecognizer>([update, setEditing](UIGestureRecognizer& pan) {
        // A pan that is taken away has no fingers either.
        const bool counts = pan.state() == State::kChanged || pan.state() == State::kEnded ||
                            pan.state() == State::kCancelled;
        if (pan.view() == nullptr || !counts) {
          return;
        }
        if (pan.numberOfTouches() == 0 || pan.state() == State::kCancelled) {
          setEditing(false);
          return;
        }
        // Whoever is told of the change may end it.
        const auto kept = pan.view()->weak_from_this().lock();
        update(pan.locationOfTouch(0, pan.view()));
        setEditing(true);
      }));
}

}  // namespace zephyl::detail
