#include "hosts/linux/window/PhoneWindow.h"

#include <utility>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QTouchEvent>
#include <QWheelEvent>

#include "platform/uikit/CADisplayLink.h"
#include "platform/uikit/UIFocusSystem.h"

#include "hosts/linux/screen/LinuxScreen.h"
#include "hosts/linux/screen/LinuxUIKit.h"
#include "hosts/linux/screen/WindowPicture.h"
#include "hosts/linux/window/FilePicturePicker.h"
#include "hosts/linux/window/TextOverlay.h"
#include "hosts/linux/window/ViewAccessible.h"
#include "hosts/linux/window/WindowInput.h"

namespace zephyl::linux_host {
namespace {

constexpr double kZoom = 1;

// The interface of the widget that is being made for Qt; the factory has nothing else to go by.
QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
  auto* const phone = dynamic_cast<PhoneWindow*>(object);
  return phone == nullptr ? nullptr : new WindowAccessible(phone, phone->accessible());
}

}  // namespace

PhoneWindow::PhoneWindow(LinuxUIKit& uikit, std::shared_ptr<UIWindow> window)
    : uikit_(uikit),
      window_(std::move(window)),
      picture_(std::make_unique<WindowPicture>(*window_)),
      accessible_(std::make_unique<AccessibleTree>(*this, *window_, kZoom)) {
  static const bool installed = (QAccessible::installFactory(makeAccessible), true);
  (void)installed;
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_AcceptTouchEvents);
  setFocusPolicy(Qt::StrongFocus);
  const CGRect bounds = uikit_.screen().bounds();
  resize(qRound(bounds.width()), qRound(bounds.height()));
  window_->setDamageHandler([this] { pictureWanted(); });
  uikit_.textOverlay().showIn(this, kZoom);
  uikit_.picturePicker().showAbove(this);
  fitScreen();
}

PhoneWindow::~PhoneWindow() {
  window_->setDamageHandler(nullptr);
  uikit_.textOverlay().showIn(nullptr, kZoom);
  uikit_.picturePicker().showAbove(nullptr);
}

void PhoneWindow::pictureWanted() {
  if (!std::exchange(updatePending_, true)) {
    // Everything that changes in one turn of the event loop is one picture.
    QTimer::singleShot(0, this, [this] { updateNow(); });
  }
}

void PhoneWindow::updateNow() {
  updatePending_ = false;
  const QRegion changed = picture_->update();
  if (!changed.isEmpty()) {
    update(changed);
  }
  accessible_->announceChanges();
}

void PhoneWindow::fitScreen() {
  uikit_.screen().setSize({static_cast<CGFloat>(width()), static_cast<CGFloat>(height())});
  uikit_.screen().setScale(devicePixelRatioF());
  window_->setFrame(uikit_.screen().bounds());
}

bool PhoneWindow::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
      sendTouches(*window_, static_cast<const QTouchEvent&>(*event), kZoom,
                  uikit_.displayLink().timestamp());
      return true;
    case QEvent::KeyPress: {
      // Before Qt takes Tab for itself.
      const auto& key = static_cast<const QKeyEvent&>(*event);
      if (const auto press = pressOfKey(key); press && window_->sendKey(*press)) {
        return true;
      }
      return QWidget::event(event);
    }
    case QEvent::DevicePixelRatioChange:
    case QEvent::ScreenChangeInternal:
      fitScreen();
      return QWidget::event(event);
    default:
      return QWidget::event(event);
  }
}

void PhoneWindow::paintEvent(QPaintEvent* event) {
  if (updatePending_) {
    updateNow();
  }
  QPainter painter(this);
  const QImage& image = picture_->image();
  for (const QRect& rect : event->region()) {
    const QRectF source(rect.x() * image.devicePixelRatio(), rect.y() * image.devicePixelRatio(),
                        rect.width() * image.devicePixelRatio(),
                        rect.height() * image.devicePixelRatio());
    painter.drawImage(QRectF(rect), image, source);
  }
}

void PhoneWindow::resizeEvent(QResizeEvent* /*event*/) {
  fitScreen();
}

void PhoneWindow::sendMouse(const QMouseEvent& event) {
  if (const auto touch = touchOfMouse(event, kZoom, uikit_.displayLink().timestamp())) {
    window_->sendTouch(*touch);
  }
}

void PhoneWindow::mousePressEvent(QMouseEvent* event) {
  sendMouse(*event);
}

void PhoneWindow::mouseMoveEvent(QMouseEvent* event) {
  sendMouse(*event);
}

void PhoneWindow::mouseReleaseEvent(QMouseEvent* event) {
  sendMouse(*event);
}

void PhoneWindow::wheelEvent(QWheelEvent* event) {
  window_->sendScroll(scrollOfWheel(*event, kZoom));
}

void PhoneWindow::keyPressEvent(QKeyEvent* event) {
  event->ignore();
}

}  // namespace zephyl::linux_host
