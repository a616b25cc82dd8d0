#include "ui/components/HRColorMapView.h"

#include <algorithm>
#include <cmath>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"
#include "platform/uikit/UIKitText.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"

#include "ui/components/HRColorCursor.h"
#include "ui/components/HRFingerTracking.h"

namespace zephyl {
namespace {

constexpr double kAppearingTime = 0.2;

int integerPart(CGFloat number) {
  return static_cast<int>(std::trunc(finite(number)));
}

}  // namespace

HRColorMapView::HRColorMapView(const CGRect& frame, double saturationUpperLimit)
    : UIControl(frame),
      limit_(finite(saturationUpperLimit)),
      background_(std::make_shared<CALayer>()),
      map_(std::make_shared<CALayer>()),
      hairline_(std::make_shared<CALayer>()) {
  setBackgroundColor(UIColor::whiteColor());
  setAlpha(0);
  images_.setSuspended(true);
  const CGSize cursor = HRColorCursor::cursorSize();
  cursor_ = HRColorCursor::colorCursorWithPoint({-cursor.width / 2, -cursor.height / 2});
  map_->setOpacity(brightness_);
  hairline_->setBackgroundColor(UIColor::colorWithWhite(0.7, 1));
  layer()->addSublayer(background_);
  layer()->addSublayer(map_);
  layer()->addSublayer(hairline_);
  addSubview(cursor_);
  detail::trackFinger(
      *this, [this](CGPoint location) { update(location); },
      [this](bool editing) { cursor_->setEditing(editing); });
}

HRColorMapView::~HRColorMapView() = default;

UIImageRef HRColorMapView::colorMapImageWithSize(CGSize size, CGFloat tileSize,
                                                 double saturationUpperLimit) {
  return detail::colorMapImage(HRColorGrid::fitting(size, tileSize), saturationUpperLimit);
}

UIImageRef HRColorMapView::backgroundImageWithSize(CGSize size, CGFloat tileSize) {
  return detail::colorMapBackgroundImage(HRColorGrid::fitting(size, tileSize));
}

void HRColorMapView::setColor(const UIColor& color) {
  color_ = color;
  HSVColorFromUIColor(color, &hsv_);
  updateCursor();
}

void HRColorMapView::setBrightness(double brightness) {
  brightness_ = finite(brightness);
  performWithoutAnimation([this] { map_->setOpacity(std::clamp(brightness_, 0.0, 1.0)); });
}

void HRColorMapView::setSaturationUpperLimit(double limit) {
  if (limit_ == finite(limit)) {
    return;
  }
  limit_ = finite(limit);
  updateCursor();
  setNeedsLayout();
}

void HRColorMapView::setTileSize(CGFloat size) {
  if (tileSize_ == finite(size)) {
    return;
  }
  tileSize_ = finite(size);
  updateCursor();
  setNeedsLayout();
}

void HRColorMapView::update(CGPoint location) {
  const HRColorGrid tiles = grid();
  if (tiles.isEmpty() || !CGRectContainsPoint(bounds(), location)) {
    return;
  }
  const auto column = static_cast<double>(integerPart(location.x / tileSize_));
  const auto row = static_cast<double>(integerPart(location.y / tileSize_));
  // A single row has the whole saturation, as in the picture.
  const double fallen = tiles.rows > 1 ? row / (tiles.rows - 1) * limit_ : 0;
  setColor(UIColor::colorWithHue(column / tiles.columns, std::clamp(1 - fallen, 0.0, 1.0),
                                 brightness_, 1));
  sendActionsForControlEvents(kValueChanged);
}

HRColorMapView::Tile HRColorMapView::tileOfColor() const {
  const HRColorGrid tiles = grid();
  if (tiles.isEmpty()) {
    return {};
  }
  const double hue = hsv_.h == 1.0 ? 0 : hsv_.h;
  const CGFloat half = tileSize_ / 2;
  const CGFloat x = hue * tiles.columns * tileSize_ + half;
  // Without a limit there is one saturation, which every row has.
  const double fallen = limit_ == 0 ? 0 : (1 - hsv_.s) / limit_;
  const CGFloat y = fallen * (tiles.rows - 1) * tileSize_ + half;
  return {integerPart(x / tileSize_), integerPart(y / tileSize_)};
}

void HRColorMapView::updateCursor() {
  const Tile tile = tileOfColor();
  cursor_->setColor(color_);
  performWithoutAnimation([&] {
    cursor_->setTransform(
        CGAffineTransformMakeTranslation(tile.column * tileSize_, tile.row * tileSize_));
  });
}

void HRColorMapView::pickNeighbour(int columns, int rows) {
  const HRColorGrid tiles = grid();
  if (!isEnabled() || tiles.isEmpty()) {
    return;
  }
  const Tile tile = tileOfColor();
  const int column = std::clamp(tile.column + columns, 0, tiles.columns - 1);
  const int row = std::clamp(tile.row + rows, 0, tiles.rows - 1);
  if (column != tile.column || row != tile.row) {
    update({(column + 0.5) * tileSize_, (row + 0.5) * tileSize_});
  }
}

bool HRColorMapView::pressesBegan(const UIKeyPress& press) {
  if (isEnabled()) {
    switch (press.key) {
      case UIKey::kLeft:
        pickNeighbour(-1, 0);
        return true;
      case UIKey::kRight:
        pickNeighbour(1, 0);
        return true;
      case UIKey::kUp:
        pickNeighbour(0, -1);
        return true;
      case UIKey::kDown:
        pickNeighbour(0, 1);
        return true;
      default:
        break;
    }
  }
  return UIControl::pressesBegan(press);
}

void HRColorMapView::layoutSubviews() {
  const CGFloat pixel = 1 / UIScreen::mainScreen().scale();
  hairline_->setFrame(CGRectMake(0, 0, bounds().width(), pixel));
  const CGRect tiles = {{0, 0}, grid().size()};
  background_->setFrame(tiles);
  map_->setFrame(tiles);
  updateCursor();
  requestImages();
}

void HRColorMapView::requestImages() {
  const Request request{grid(), limit_, UIScreen::mainScreen().scale()};
  if (request_ == request) {
    return;
  }
  request_ = request;
  const std::weak_ptr<UIView> weakSelf = weak_from_this();
  images_.addOperation([weakSelf, request] {
    const UIImageRef map = detail::colorMapImage(request.grid, request.limit);
    const UIImageRef background = detail::colorMapBackgroundImage(request.grid);
    host().dispatch().mainAsync([weakSelf, request, map, background] {
      if (const auto self = std::static_pointer_cast<HRColorMapView>(weakSelf.lock())) {
        self->showImages(request, map, background);
      }
    });
  });
  images_.setSuspended(false);
}

void HRColorMapView::showImages(const Request& request, const UIImageRef& map,
                                const UIImageRef& background) {
  // Another size was asked for meanwhile.
  if (request_ != request) {
    return;
  }
  map_->setContents(map);
  background_->setContents(background);
  if (map != nullptr && alpha() < 1) {
    animateWithDuration(kAppearingTime, 0, kAnimationAllowUserInteraction, [this] { setAlpha(1); });
  }
}

std::string HRColorMapView::accessibilityValue() const {
  std::string value = std::to_string(std::lround(hsv_.h * 360));
  value.append("\u00b0, ").append(std::to_string(std::lround(hsv_.s * 100))).append(" %");
  return value;
}

std::string HRColorMapView::derivedAccessibilityLabel() const {
  return uikitText("Hue and saturation");
}

}  // namespace zephyl
