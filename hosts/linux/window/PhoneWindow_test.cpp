#include "hosts/linux/window/PhoneWindow.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include "platform/uikit/UIFocusSystem.h"
#include "platform/uikit/controls/UIControl.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/linux/screen/WindowPicture.h"
#include "hosts/linux/window/WindowTest.h"

namespace zephyl::linux_host {
namespace {

class PhoneWindowTest : public WindowTest {
 protected:
  std::shared_ptr<UIControl> addControl() {
    auto control = std::make_shared<UIControl>(CGRectMake(20, 30, 60, 40));
    control->setBackgroundColor(UIColor::redColor());
    control->addAction([this](UIControl& /*sender*/) { ++taps_; }, kTouchUpInside);
    window_->addSubview(control);
    return control;
  }

  void click(QPointF at) {
    for (const auto& [type, down] : {std::pair{QEvent::MouseButtonPress, Qt::LeftButton},
                                     std::pair{QEvent::MouseButtonRelease, Qt::NoButton}}) {
      QMouseEvent event(type, at, at, Qt::LeftButton, down, Qt::NoModifier);
      QCoreApplication::sendEvent(phone_.get(), &event);
    }
  }

  void press(int key, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(phone_.get(), &event);
  }

  QImage seen() {
    settle();
    return phone_->grab().toImage().convertToFormat(QImage::Format_RGB32);
  }

  int taps_ = 0;
};

TEST_F(PhoneWindowTest, ShowsTheSamePixelsAsAPictureWithoutAWindow) {
  addControl();
  show();
  WindowPicture alone(*window_, uikit_->paintCaches());
  window_->setNeedsDisplay();
  (void)alone.update(phone_->devicePixelRatioF(), UIUserInterfaceStyle::kLight);
  EXPECT_EQ(seen(), alone.image().convertToFormat(QImage::Format_RGB32));
}

TEST_F(PhoneWindowTest, AChangeIsSeenOnceTheEventLoopHasTurned) {
  const auto control = addControl();
  show();
  EXPECT_EQ(seen().pixelColor(40, 50), QColor(255, 0, 0));
  control->setBackgroundColor(UIColor::blueColor());
  EXPECT_EQ(seen().pixelColor(40, 50), QColor(0, 0, 255));
}

TEST_F(PhoneWindowTest, AClickTapsWhatIsThere) {
  addControl();
  show();
  click({50, 50});
  EXPECT_EQ(taps_, 1);
  click({150, 250});
  EXPECT_EQ(taps_, 1);
}

TEST_F(PhoneWindowTest, TabAndSpaceUseAControlWithoutThePointer) {
  addControl();
  show();
  press(Qt::Key_Tab);
  EXPECT_NE(window_->focusSystem().ring(), nullptr);
  press(Qt::Key_Space, QStringLiteral(" "));
  EXPECT_EQ(taps_, 1);
}

TEST_F(PhoneWindowTest, TheScreenIsAsLargeAsTheWindow) {
  show();
  phone_->resize(320, 500);
  settle();
  EXPECT_EQ(uikit_->screen().bounds(), CGRectMake(0, 0, 320, 500));
  EXPECT_EQ(window_->frame(), CGRectMake(0, 0, 320, 500));
}

TEST_F(PhoneWindowTest, AnotherAppearanceIsSeenAtOnce) {
  window_->setBackgroundColor(UIColor::systemBackgroundColor());
  show();
  EXPECT_EQ(seen().pixelColor(5, 5), QColor(255, 255, 255));
  uikit_->screen().setStyle(UIUserInterfaceStyle::kDark);
  EXPECT_EQ(seen().pixelColor(5, 5), QColor(0, 0, 0));
}

TEST_F(PhoneWindowTest, TheViewTreeOutlivesTheWindow) {
  const auto control = addControl();
  show();
  phone_.reset();
  control->setBackgroundColor(UIColor::greenColor());
  test::tap(*window_, *control);
  EXPECT_EQ(taps_, 1);
}

}  // namespace
}  // namespace zephyl::linux_host
