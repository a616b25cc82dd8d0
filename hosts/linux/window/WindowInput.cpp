#include "hosts/linux/window/WindowInput.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTouchEvent>
#include <QWheelEvent>
#include <array>

#include "platform/uikit/UIWindow.h"

namespace zephyl::linux_host {
namespace {

// Of a notch of the wheel, which Qt counts as 120.
constexpr double kPointsANotch = 3 * 44;

struct NamedKey {
  int qt;
  UIKey key;
};

constexpr std::array<NamedKey, 16> kKeys = {{{Qt::Key_Up, UIKey::kUp},
                                             {Qt::Key_Down, UIKey::kDown},
                                             {Qt::Key_Left, UIKey::kLeft},
                                             {Qt::Key_Right, UIKey::kRight},
                                             {Qt::Key_Home, UIKey::kHome},
                                             {Qt::Key_End, UIKey::kEnd},
                                             {Qt::Key_PageUp, UIKey::kPageUp},
                                             {Qt::Key_PageDown, UIKey::kPageDown},
                                             {Qt::Key_Tab, UIKey::kTab},
                                             {Qt::Key_Backtab, UIKey::kTab},
                                             {Qt::Key_Return, UIKey::kReturn},
                                             {Qt::Key_Enter, UIKey::kReturn},
                                             {Qt::Key_Space, UIKey::kSpace},
                                             {Qt::Key_Escape, UIKey::kEscape},
                                             {Qt::Key_Delete, UIKey::kDelete},
                                             {Qt::Key_Backspace, UIKey::kBackspace}}};

CGPoint pointOf(QPointF position, double zoom) {
  return finite(CGPoint{position.x() / zoom, position.y() / zoom});
}

UITouchPhase phaseOf(QEventPoint::State state) {
  switch (state) {
    case QEventPoint::Pressed:
      return UITouchPhase::kBegan;
    case QEventPoint::Released:
      return UITouchPhase::kEnded;
    default:
      return UITouchPhase::kMoved;
  }
}

}  // namespace

std::optional<UITouch> touchOfMouse(const QMouseEvent& event, double zoom, double timestamp) {
  UITouch touch;
  touch.location = pointOf(event.position(), zoom);
  touch.timestamp = timestamp;
  if (event.type() == QEvent::MouseMove) {
    if ((event.buttons() & Qt::LeftButton) == 0U) {
      return std::nullopt;
    }
    touch.phase = UITouchPhase::kMoved;
    return touch;
  }
  if (event.button() != Qt::LeftButton && event.button() != Qt::RightButton) {
    return std::nullopt;
  }
  touch.secondary = event.button() == Qt::RightButton;
  touch.phase =
      event.type() == QEvent::MouseButtonRelease ? UITouchPhase::kEnded : UITouchPhase::kBegan;
  return touch;
}

UIScrollEvent scrollOfWheel(const QWheelEvent& event, double zoom) {
  UIScrollEvent scroll;
  scroll.location = pointOf(event.position(), zoom);
  if (!event.pixelDelta().isNull()) {
    scroll.dx = -event.pixelDelta().x() / zoom;
    scroll.dy = -event.pixelDelta().y() / zoom;
  } else {
    scroll.dx = -event.angleDelta().x() / 120.0 * kPointsANotch;
    scroll.dy = -event.angleDelta().y() / 120.0 * kPointsANotch;
  }
  return scroll;
}

std::optional<UIKeyPress> pressOfKey(const QKeyEvent& event) {
  UIKeyPress press;
  press.shift = event.modifiers().testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab;
  press.control = event.modifiers().testFlag(Qt::ControlModifier);
  for (const NamedKey& named : kKeys) {
    if (named.qt == event.key()) {
      press.key = named.key;
      press.characters = named.key == UIKey::kSpace ? " " : "";
      return press;
    }
  }
  const QString text = event.text();
  if (text.isEmpty() || !text.at(0).isPrint()) {
    return std::nullopt;
  }
  press.characters = text.toStdString();
  return press;
}

void sendTouches(UIWindow& window, const QTouchEvent& event, double zoom, double timestamp) {
  for (const QEventPoint& point : event.points()) {
    if (point.state() == QEventPoint::Stationary) {
      continue;
    }
    UITouch touch;
    touch.identifier = point.id() + 1;
    touch.location = pointOf(point.position(), zoom);
    touch.timestamp = timestamp;
    touch.phase =
        event.type() == QEvent::TouchCancel ? UITouchPhase::kCancelled : phaseOf(point.state());
    window.sendTouch(touch);
  }
}

}  // namespace zephyl::linux_host
