#include "hosts/linux/window/WindowInput.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace zephyl::linux_host {
namespace {

QMouseEvent mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons down) {
  return {type, QPointF(30, 60), QPointF(30, 60), button, down, Qt::NoModifier};
}

QWheelEvent wheel(QPoint pixels, QPoint angle) {
  return {QPointF(10, 20), QPointF(10, 20), pixels,           angle,
          Qt::NoButton,    Qt::NoModifier,  Qt::ScrollUpdate, false};
}

QKeyEvent key(int code, const QString& text = {}, Qt::KeyboardModifiers with = Qt::NoModifier) {
  return {QEvent::KeyPress, code, with, text};
}

TEST(WindowInput, APressOfTheLeftButtonIsAFingerInPoints) {
  const auto touch =
      touchOfMouse(mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton), 2, 7);
  ASSERT_TRUE(touch);
  EXPECT_EQ(touch->phase, UITouchPhase::kBegan);
  EXPECT_EQ(touch->location, (CGPoint{15, 30}));
  EXPECT_EQ(touch->timestamp, 7);
  EXPECT_FALSE(touch->secondary);
}

TEST(WindowInput, TheRightButtonAsksForAMenu) {
  const auto touch =
      touchOfMouse(mouse(QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton), 1, 0);
  ASSERT_TRUE(touch);
  EXPECT_TRUE(touch->secondary);
}

TEST(WindowInput, TheMiddleButtonAndAPointerThatHoversAreNoFingers) {
  EXPECT_FALSE(
      touchOfMouse(mouse(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton), 1, 0));
  EXPECT_FALSE(touchOfMouse(mouse(QEvent::MouseMove, Qt::NoButton, Qt::NoButton), 1, 0));
  EXPECT_EQ(touchOfMouse(mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton), 1, 0)->phase,
            UITouchPhase::kMoved);
  EXPECT_EQ(
      touchOfMouse(mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton), 1, 0)->phase,
      UITouchPhase::kEnded);
}

TEST(WindowInput, ANotchOfTheWheelScrollsThreeRowsAndFingersAsFarAsTheyMoved) {
  EXPECT_EQ(scrollOfWheel(wheel({}, {0, -120}), 1).dy, 3 * 44);
  const UIScrollEvent fingers = scrollOfWheel(wheel({-8, 30}, {-100, 400}), 2);
  EXPECT_EQ(fingers.dx, 4);
  EXPECT_EQ(fingers.dy, -15);
  EXPECT_EQ(fingers.location, (CGPoint{5, 10}));
}

TEST(WindowInput, NamedKeysAreNamedAndOthersType) {
  EXPECT_EQ(pressOfKey(key(Qt::Key_PageDown))->key, UIKey::kPageDown);
  EXPECT_EQ(pressOfKey(key(Qt::Key_Enter))->key, UIKey::kReturn);
  const auto typed = pressOfKey(key(Qt::Key_Adiaeresis, QStringLiteral("\u00e4")));
  ASSERT_TRUE(typed);
  EXPECT_EQ(typed->key, UIKey::kCharacter);
  EXPECT_EQ(typed->characters, "\u00e4");
}

TEST(WindowInput, ShiftTabGoesBack) {
  const auto back = pressOfKey(key(Qt::Key_Backtab, {}, Qt::ShiftModifier));
  ASSERT_TRUE(back);
  EXPECT_EQ(back->key, UIKey::kTab);
  EXPECT_TRUE(back->shift);
}

TEST(WindowInput, KeysThatTypeNothingAreNone) {
  EXPECT_FALSE(pressOfKey(key(Qt::Key_F7)));
  EXPECT_FALSE(pressOfKey(key(Qt::Key_A, QStringLiteral("\x01"), Qt::ControlModifier)));
}

}  // namespace
}  // namespace zephyl::linux_host
