// What Qt tells of the pointer, fingers, wheels and keys, as the view tree takes it. Coordinates of
// widgets are points of the phone's window times `zoom`. Main thread.

#pragma once

#include <QEvent>
#include <optional>

#include "platform/uikit/UITouch.h"

class QKeyEvent;
class QMouseEvent;
class QTouchEvent;
class QWheelEvent;

namespace zephyl {
class UIWindow;
}  // namespace zephyl

namespace zephyl::linux_host {

// Nothing for a press of a button that does nothing here.
[[nodiscard]] std::optional<UITouch> touchOfMouse(const QMouseEvent& event, double zoom,
                                                  double timestamp);

// Pixels where the device tells them, which scroll as far as the fingers moved; else a step of the
// wheel is three rows.
[[nodiscard]] UIScrollEvent scrollOfWheel(const QWheelEvent& event, double zoom);

// Nothing for keys that the view tree does not know and that type nothing.
[[nodiscard]] std::optional<UIKeyPress> pressOfKey(const QKeyEvent& event);

// Hands each finger of the event on, its identifier beyond that of the pointer.
void sendTouches(UIWindow& window, const QTouchEvent& event, double zoom, double timestamp);

}  // namespace zephyl::linux_host
