// A window of the desktop that shows one of the phone's: paints its picture where that changed, and
// hands it the pointer, fingers, wheels, keys and screen readers. Main thread.
//
// A point of the phone is a pixel of Qt's, whatever the device's pixels are.

#pragma once

#include <memory>

#include <QWidget>

#include "platform/uikit/UIWindow.h"

namespace zephyl::linux_host {

class AccessibleTree;
class LinuxUIKit;
class WindowPicture;

class PhoneWindow : public QWidget {
 public:
  // Takes the place of the device's screen: the screen is as large as this window from now on, has
  // the window's pixels a point, and is typed into and asked for pictures through it. `uikit` and
  // `window` outlive the use of this one.
  PhoneWindow(LinuxUIKit& uikit, std::shared_ptr<UIWindow> window);
  ~PhoneWindow() override;
  PhoneWindow(const PhoneWindow&) = delete;
  PhoneWindow& operator=(const PhoneWindow&) = delete;

  [[nodiscard]] UIWindow& window() { return *window_; }
  [[nodiscard]] AccessibleTree& accessible() { return *accessible_; }

  // Lays out and paints at once what waits for that; for tests and before a first showing.
  void updateNow();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void pictureWanted();
  void fitScreen();
  void sendMouse(const QMouseEvent& event);

  LinuxUIKit& uikit_;
  std::shared_ptr<UIWindow> window_;
  std::unique_ptr<WindowPicture> picture_;
  std::unique_ptr<AccessibleTree> accessible_;
  bool updatePending_ = false;
};

}  // namespace zephyl::linux_host
