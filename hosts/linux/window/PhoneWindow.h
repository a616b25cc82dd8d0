// A window of the desktop that shows one of the phone's: paints its picture where that changed, and
// hands it the pointer, fingers, wheels, keys and screen readers. Main thread.
//
// A point of the phone is a pixel of Qt's, whatever the device's pixels are.

#pragma once

#include <QWidget>
#include <memory>

#include "platform/uikit/UIWindow.h"

namespace zephyl::linux_host {

class AccessibleTree;
class FilePicturePicker;
class LinuxUIKit;
class TextOverlay;
class WindowPicture;

class PhoneWindow : public QWidget {
 public:
  // From now on the device's screen is as large as this window, has its pixels a point, and is
  // typed into and asked for pictures through it. All outlive this one.
  PhoneWindow(LinuxUIKit& uikit, TextOverlay& typing, FilePicturePicker& pictures,
              std::shared_ptr<UIWindow> window);
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
  TextOverlay& typing_;
  FilePicturePicker& pictures_;
  std::shared_ptr<UIWindow> window_;
  std::unique_ptr<WindowPicture> picture_;
  std::unique_ptr<AccessibleTree> accessible_;
  bool updatePending_ = false;
};

}  // namespace zephyl::linux_host
