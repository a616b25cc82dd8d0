#include "platform/uikit/gestures/TouchDispatcher.h"

#include <algorithm>
#include <utility>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/gestures/UIGestureRecognizer.h"

namespace zephyl {

struct TouchDispatcher::Finger {
  UITouch last;
  // The window itself need not be shared.
  bool onWindow = false;
  std::weak_ptr<UIView> view;
  // Whether the view still gets the touch.
  bool viewFollows = false;
  Recognizers recognizers;
};

namespace {

void sendToView(UIView& view, const UITouch& touch) {
  switch (touch.phase) {
    case UITouchPhase::kBegan:
      return view.touchesBegan(touch);
    case UITouchPhase::kMoved:
      return view.touchesMoved(touch);
    case UITouchPhase::kEnded:
      return view.touchesEnded(touch);
    case UITouchPhase::kCancelled:
      return view.touchesCancelled(touch);
  }
}

bool isOver(const UITouch& touch) {
  return touch.phase == UITouchPhase::kEnded || touch.phase == UITouchPhase::kCancelled;
}

template <class Recognizers>
bool contains(const Recognizers& recognizers, const UIGestureRecognizer& wanted) {
  return std::any_of(recognizers.begin(), recognizers.end(),
                     [&wanted](const auto& each) { return each.get() == &wanted; });
}

}  // namespace

TouchDispatcher::TouchDispatcher(UIWindow& window)
    : window_(window), self_(this, [](TouchDispatcher*) {}) {}

TouchDispatcher::~TouchDispatcher() {
  // Nobody is told any more; the recognizers may go on in another window.
  for (const auto& finger : fingers_) {
    for (const auto& recognizer : finger->recognizers) {
      recognizer->reset();
    }
  }
}

void TouchDispatcher::touch(const UITouch& touch) {
  const auto keptWindow = window_.weak_from_this().lock();
  UITouch seen = touch;
  seen.location = finite(touch.location);
  const auto known = finger(touch.identifier);
  if (seen.phase != UITouchPhase::kBegan) {
    if (known != nullptr) {
      proceed(known, seen);
    }
    return;
  }
  if (known != nullptr) {
    UITouch lost = seen;
    lost.phase = UITouchPhase::kCancelled;
    proceed(known, lost);
  }
  if (seen.secondary) {
    requestMenu(seen);
  } else {
    begin(seen);
  }
}

void TouchDispatcher::begin(const UITouch& touch) {
  UIView* const hit = window_.hitTest(touch.location);
  if (hit == nullptr) {
    return;
  }
  const auto finger = std::make_shared<Finger>();
  finger->last = touch;
  finger->onWindow = hit == &window_;
  finger->view = hit->weak_from_this();
  finger->viewFollows = !isFollowed(*hit);
  for (UIView* view = hit; view != nullptr; view = view->superview()) {
    for (const auto& recognizer : view->gestureRecognizers()) {
      if (recognizer->followsTouches()) {
        recognizer->setDispatcher(self_);
        auto& order = finger->recognizers;
        order.insert(recognizer->precedesInner() ? order.begin() : order.end(), recognizer);
      }
    }
  }
  fingers_.push_back(finger);
  proceed(finger, touch);
}

void TouchDispatcher::proceed(const std::shared_ptr<Finger>& finger, const UITouch& touch) {
  finger->last = touch;
  sendToRecognizers(*finger, touch);
  const auto view = touchedView(*finger);
  if (finger->viewFollows && view != nullptr) {
    finger->viewFollows = !isOver(touch);
    sendToView(*view, touch);
  }
  if (isOver(touch)) {
    remove(finger);
  }
}

void TouchDispatcher::sendToRecognizers(const Finger& finger, const UITouch& touch) {
  const Recognizers recognizers = finger.recognizers;
  for (const auto& recognizer : recognizers) {
    // Taken from its view, or cancelled by another, it sees no more.
    if (recognizer->view() != nullptr && contains(finger.recognizers, *recognizer)) {
      recognizer->receiveTouch(touch);
    }
  }
}

void TouchDispatcher::cancelView(Finger& finger) {
  if (!std::exchange(finger.viewFollows, false)) {
    return;
  }
  if (const auto view = touchedView(finger)) {
    UITouch lost = finger.last;
    lost.phase = UITouchPhase::kCancelled;
    view->touchesCancelled(lost);
  }
}

void TouchDispatcher::remove(const std::shared_ptr<Finger>& finger) {
  std::erase(fingers_, finger);
  resetFree(std::exchange(finger->recognizers, {}));
}

void TouchDispatcher::resetFree(const Recognizers& recognizers) {
  for (const auto& recognizer : recognizers) {
    const bool stillTouched = std::any_of(
        fingers_.begin(), fingers_.end(),
        [&recognizer](const auto& each) { return contains(each->recognizers, *recognizer); });
    if (stillTouched) {
      continue;
    }
    if (recognizer->isActive()) {
      recognizer->prevent();
    }
    // One that is possible may wait for the next tap.
    if (recognizer->state() != UIGestureRecognizerState::kPossible) {
      recognizer->reset();
    }
  }
}

void TouchDispatcher::scroll(const UIScrollEvent& scroll) {
  const auto keptWindow = window_.weak_from_this().lock();
  UIScrollEvent seen = scroll;
  seen.location = finite(scroll.location);
  seen.dx = finite(scroll.dx);
  seen.dy = finite(scroll.dy);
  for (UIView* view = window_.hitTest(seen.location); view != nullptr; view = view->superview()) {
    const auto kept = view->weak_from_this().lock();
    if (view->handleScroll(seen)) {
      return;
    }
  }
}

void TouchDispatcher::requestMenu(const UITouch& touch) {
  for (UIView* view = window_.hitTest(touch.location); view != nullptr; view = view->superview()) {
    const auto kept = view->weak_from_this().lock();
    if (view->contextMenuRequested(touch)) {
      return;
    }
  }
}

void TouchDispatcher::viewLeft(UIView& view) {
  const auto fingers = fingers_;
  for (const auto& finger : fingers) {
    const auto touched = touchedView(*finger);
    if (touched == nullptr || !touched->isDescendantOfView(&view)) {
      continue;
    }
    Recognizers gone;
    for (const auto& recognizer : Recognizers(finger->recognizers)) {
      if (recognizer->view() == nullptr || recognizer->view()->isDescendantOfView(&view)) {
        gone.push_back(recognizer);
        std::erase(finger->recognizers, recognizer);
      }
    }
    cancelView(*finger);
    for (const auto& recognizer : gone) {
      recognizer->prevent();
    }
    resetFree(gone);
  }
}

bool TouchDispatcher::mayBegin(const UIGestureRecognizer& recognizer) const {
  for (const auto& finger : fingers_) {
    if (!contains(finger->recognizers, recognizer)) {
      continue;
    }
    for (const auto& other : finger->recognizers) {
      if (other.get() != &recognizer && other->isActive()) {
        return false;
      }
    }
    const auto touched = touchedView(*finger);
    for (UIView* view = touched.get(); view != nullptr; view = view->superview()) {
      if (!view->gestureRecognizerShouldBegin(recognizer)) {
        return false;
      }
      if (view == recognizer.view()) {
        break;
      }
    }
  }
  return true;
}

void TouchDispatcher::didBegin(const UIGestureRecognizer& recognizer) {
  const auto fingers = fingers_;
  for (const auto& finger : fingers) {
    if (!contains(finger->recognizers, recognizer)) {
      continue;
    }
    for (const auto& other : Recognizers(finger->recognizers)) {
      if (other.get() != &recognizer) {
        other->prevent();
      }
    }
    if (recognizer.cancelsTouchesInView()) {
      cancelView(*finger);
    }
  }
}

std::shared_ptr<UIView> TouchDispatcher::touchedView(const Finger& finger) const {
  if (finger.onWindow) {
    return {std::shared_ptr<UIView>(), &window_};
  }
  return finger.view.lock();
}

std::shared_ptr<TouchDispatcher::Finger> TouchDispatcher::finger(int identifier) const {
  const auto found = std::find_if(fingers_.begin(), fingers_.end(), [identifier](const auto& each) {
    return each->last.identifier == identifier;
  });
  return found == fingers_.end() ? nullptr : *found;
}

bool TouchDispatcher::isFollowed(const UIView& view) const {
  return std::any_of(fingers_.begin(), fingers_.end(), [this, &view](const auto& each) {
    return each->viewFollows && touchedView(*each).get() == &view;
  });
}

}  // namespace zephyl
