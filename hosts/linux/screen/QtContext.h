// Draws views with a QPainter of Qt's raster engine. Lives where the painter does.
//
// Upright shapes are moved to whole pixels, so that edges and hairlines are sharp at any scale and
// neighbours leave no seam: an edge goes to the nearest pixel, what would vanish keeps one. Discs,
// and what is turned, are drawn where they are.

#pragma once

#include <QImage>
#include <QPainter>
#include <QRect>
#include <memory>
#include <optional>
#include <vector>

#include "platform/uikit/CGContext.h"

class QColor;
class QPainterPath;

namespace zephyl::linux_host {

struct PaintCaches;

class QtContext final : public CGContext {
 public:
  // `painter` paints on a picture of `pixels`; its transform, which is that from points to pixels,
  // and its clip are where this begins. The painter and the caches outlive this.
  QtContext(QPainter& painter, QRect pixels, UIUserInterfaceStyle style, PaintCaches& caches);

  // Ends the layers and restores the states that are still open.
  ~QtContext() override;
  QtContext(const QtContext&) = delete;
  QtContext& operator=(const QtContext&) = delete;

  // More restores than saves, or more ends of layers than beginnings, do nothing.
  void saveState() override;
  void restoreState() override;
  void concat(const CGAffineTransform& transform) override;
  void clip(const RoundedRect& shape) override;
  void beginLayer(CGFloat alpha, const CGRect& bounds) override;
  void endLayer() override;

  void fill(const RoundedRect& shape, const UIColor& color) override;
  void fillEllipse(const CGRect& rect, const UIColor& color) override;
  void stroke(const RoundedRect& shape, CGFloat width, const UIColor& color) override;
  void stroke(const Polyline& line, CGFloat width, const UIColor& color) override;
  void fillGradient(const RoundedRect& shape, const Gradient& gradient) override;
  void drawShadow(const RoundedRect& shape, const Shadow& shadow) override;
  void draw(const UIImage& image, const CGRect& rect, const UIColor& tint) override;
  void draw(const TextLayout& text, CGPoint origin) override;

  [[nodiscard]] CGRect clipBounds() const override;
  [[nodiscard]] UIUserInterfaceStyle userInterfaceStyle() const override { return style_; }

 private:
  // A group that is drawn apart, or straight onto what is below when it is opaque.
  struct Layer {
    std::unique_ptr<QImage> picture;
    std::unique_ptr<QPainter> painter;
    QPoint origin;
    CGFloat alpha = 1;
    QPainter* below = nullptr;
    std::vector<QRect> clipsBelow;
  };

  [[nodiscard]] bool isUpright() const;
  [[nodiscard]] const QRect& clipPixels() const { return clips_.back(); }
  [[nodiscard]] QColor colorOf(const UIColor& color) const;
  // In pixels.
  [[nodiscard]] QRectF mapped(const CGRect& rect, bool toWholePixels) const;
  [[nodiscard]] QPainterPath path(const RoundedRect& shape) const;
  [[nodiscard]] QPainterPath ring(const RoundedRect& shape, CGFloat width) const;
  [[nodiscard]] bool isClippedAway(const QRectF& pixels) const;
  void fillPixels(const RoundedRect& shape, const QBrush& brush);
  void drawTurnedShadow(const RoundedRect& shape, CGFloat blur, QRgb color);
  void drawTurnedImage(const UIImage& image, const CGRect& rect, const std::optional<QRgb>& tint);

  QPainter* painter_;
  const UIUserInterfaceStyle style_;
  PaintCaches& caches_;
  // The clip in pixels of the picture that is painted on, one for each saved state and the present.
  std::vector<QRect> clips_;
  std::vector<Layer> layers_;
};

}  // namespace zephyl::linux_host
