#include "hosts/linux/window/PhoneWindow.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QTouchEvent>
#include <QWheelEvent>
#include <utility>

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

PhoneWindow::PhoneWindow(LinuxUIKit& uikit, TextOverlay& typing, FilePicturePicker& pictures,
                         std::shared_ptr<UIWindow> window)
    : uikit_(uikit),
      typing_(typing),
      pictures_(pictures),
      window_(std::move(window)),
      picture_(std::make_unique<WindowPicture>(*window_, uikit.paintCaches())),
      accessible_(std::make_unique<AccessibleTree>(*this, *window_, kZoom)) {
  static const bool installed = (QAccessible::installFactory(makeAccessible), true);
  (void)installed;
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_AcceptTouchEvents);
  setFocusPolicy(Qt::StrongFocus);
  const CGRect bounds = uikit_.screen().bounds();
  resize(qRound(bounds.width()), qRound(bounds.height()));
  window_->setDamageHandler([this] { pictureWanted(); });
  uikit_.screen().setChangeHandler([this] { pictureWanted(); });
  typing_.showIn(this, kZoom);
  pictures_.showAbove(this);
  fitScreen();
  pictureWanted();
}

PhoneWindow::~PhoneWindow() {
  window_->setDamageHandler(nullptr);
  uikit_.screen().setChangeHandler(nullptr);
  typing_.showIn(nullptr, kZoom);
  pictures_.showAbove(nullptr);
}

void PhoneWindow::pictureWanted() {
  if (!std::exchange(updatePending_, true)) {
    // Everything that changes in one turn of the event loop is one picture.
    QTimer::singleShot(0, this, [this] { updateNow(); });
  }
}

void PhoneWindow::updateNow() {
  updatePending_ = false;
  const WindowPicture::Update done =
      picture_->update(devicePixelRatioF(), uikit_.screen().userInterfaceStyle());
  for (const QRect& rect : done.changed) {
    const double ratio = devicePixelRatioF();
    update(QRectF(rect.x() / ratio, rect.y() / ratio, rect.width() / ratio, rect.height() / ratio)
               .toAlignedRect());
  }
  accessible_->announceChanges();
}

void PhoneWindow::fitScreen() {
  uikit_.screen().setGeometry({static_cast<CGFloat>(width()), static_cast<CGFloat>(height())},
                              devicePixelRatioF());
  window_->setFrame(uikit_.screen().bounds());
}

bool PhoneWindow::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
      sendTouches(*window_, static_cast<const QTouchEvent&>(*event), kZoom,
                  uikit_.displayLink().now());
      return true;
    case QEvent::KeyPress: {
      // Before Qt takes Tab for itself.
      const auto& key = static_cast<const QKeyEvent&>(*event);
      if (const auto press = pressOfKey(key); press && window_->sendKey(*press)) {
        return true;
      }
      return QWidget::event(event);
    }
    case QEvent::ScreenChangeInternal:
    case QEvent::Show:
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
  const double ratio = devicePixelRatioF();
  for (const QRect& rect : event->region()) {
    painter.drawImage(
        QRectF(rect), picture_->image(),
        QRectF(rect.x() * ratio, rect.y() * ratio, rect.width() * ratio, rect.height() * ratio));
  }
}

void PhoneWindow::resizeEvent(QResizeEvent* /*event*/) {
  fitScreen();
}

void PhoneWindow::sendMouse(const QMouseEvent& event) {
  if (const auto touch = touchOfMouse(event, kZoom, uikit_.displayLink().now())) {
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
