// The picture of a window, kept and brought up to date by what changed: pixels that only moved are
// moved, and the rest that changed is drawn anew. The same with a window on a display and without.
// Main thread.

#pragma once

#include <QImage>
#include <QRegion>
#include <cstdint>

#include "platform/uikit/CGBitmap.h"
#include "platform/uikit/LayerSurface.h"
#include "platform/uikit/UIColor.h"

namespace zephyl {
class UIWindow;
}

namespace zephyl::linux_host {

struct PaintCaches;

class WindowPicture {
 public:
  // Both outlive this.
  WindowPicture(UIWindow& window, PaintCaches& caches) : window_(window), caches_(caches) {}

  struct Update {
    // Pixels that may look otherwise than before.
    QRegion changed;
    std::int64_t painted = 0;
    std::int64_t moved = 0;
  };

  // Lays the window out and draws what changed; all of it when its size, the scale or the style
  // did. The window's size rounded up to whole pixels.
  Update update(CGFloat scale, UIUserInterfaceStyle style);

  // Draws all of it with the next update.
  void forget() { image_ = QImage(); }

  // Opaque: black where nothing is drawn.
  [[nodiscard]] const QImage& image() const { return image_; }
  [[nodiscard]] CGBitmapRef bitmap() const;

 private:
  void move(const Damage::Move& move, Update& update);
  [[nodiscard]] bool isCovered(const QRect& pixels) const;
  void paint(const QRect& pixels, Update& update);

  UIWindow& window_;
  PaintCaches& caches_;
  QImage image_;
  CGFloat scale_ = 0;
  UIUserInterfaceStyle style_ = UIUserInterfaceStyle::kLight;
};

}  // namespace zephyl::linux_host
