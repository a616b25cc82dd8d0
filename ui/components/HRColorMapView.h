// The map of the colour picker: hue across, saturation down, in tiles; the brightness fades it to
// black. Main thread.
//
// Its pictures are made in the background; until they are there it is not seen, and then fades in.
// Sends value-changed when the user picks a tile.

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/foundation/NSOperationQueue.h"
#include "platform/uikit/UIImage.h"
#include "platform/uikit/controls/UIControl.h"

#include "ui/components/HRColorMapImages.h"
#include "ui/components/HSVColor.h"

namespace zephyl {

class HRColorCursor;

class ZP_EXPORT HRColorMapView : public UIControl {
 public:
  explicit HRColorMapView(const CGRect& frame = {}, double saturationUpperLimit = 0.95);
  ~HRColorMapView() override;

  // Null for sizes without a whole tile, and for those that cannot be held.
  [[nodiscard]] static UIImageRef colorMapImageWithSize(CGSize size, CGFloat tileSize,
                                                        double saturationUpperLimit);
  [[nodiscard]] static UIImageRef backgroundImageWithSize(CGSize size, CGFloat tileSize);

  // Moves the cursor. Kept: to where this colour is, also when the user picks it: white and black
  // have no hue, so that the cursor leaves the finger there.
  [[nodiscard]] const UIColor& color() const { return color_; }
  void setColor(const UIColor& color);
  // At once, inside an animation too.
  [[nodiscard]] double brightness() const { return brightness_; }
  void setBrightness(double brightness);
  [[nodiscard]] double saturationUpperLimit() const { return limit_; }
  void setSaturationUpperLimit(double limit);
  // In points. Without one, which is how a map begins, there are no tiles.
  [[nodiscard]] CGFloat tileSize() const { return tileSize_; }
  void setTileSize(CGFloat size);

  // Picks what is at the place; nothing for one outside the bounds.
  void update(CGPoint location);

  // Makes the pictures. Suspended until the first layout asks for some.
  [[nodiscard]] const NSOperationQueue& imageQueue() const { return images_; }

  void layoutSubviews() override;
  // The whole tiles that are in the frame.
  [[nodiscard]] CGSize intrinsicContentSize() const override { return grid().size(); }
  // The arrow keys pick the neighbouring tile.
  bool pressesBegan(const UIKeyPress& press) override;

  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kSlider;
  }
  // Hue in degrees, saturation in percent.
  [[nodiscard]] std::string accessibilityValue() const override;
  bool accessibilityActivate() override { return false; }
  // The next hue, and the one before.
  void accessibilityIncrement() override { pickNeighbour(1, 0); }
  void accessibilityDecrement() override { pickNeighbour(-1, 0); }
  [[nodiscard]] const char* className() const override { return "HRColorMapView"; }
  [[nodiscard]] std::string describe() const override { return accessibilityValue(); }

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  // What the pictures are made for.
  struct Request {
    HRColorGrid grid;
    double limit = 0;
    CGFloat scale = 0;
    friend bool operator==(const Request&, const Request&) = default;
  };
  struct Tile {
    int column = 0;
    int row = 0;
  };

  [[nodiscard]] HRColorGrid grid() const { return HRColorGrid::fitting(bounds().size, tileSize_); }
  [[nodiscard]] Tile tileOfColor() const;
  void updateCursor();
  void pickNeighbour(int columns, int rows);
  void requestImages();
  void showImages(const Request& request, const UIImageRef& map, const UIImageRef& background);

  UIColor color_;
  HSVColor hsv_;
  double brightness_ = 0.5;
  double limit_;
  CGFloat tileSize_ = 0;
  std::shared_ptr<CALayer> background_;
  std::shared_ptr<CALayer> map_;
  std::shared_ptr<CALayer> hairline_;
  std::shared_ptr<HRColorCursor> cursor_;
  Request request_;
  NSOperationQueue images_;
};

}  // namespace zephyl
