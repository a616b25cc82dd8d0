#include "ui/components/UIZPBadgeView.h"

#include <optional>
#include <utility>

#include "platform/uikit/CGContext.h"
#include "platform/uikit/NSAttributedString.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/text/TextDrawing.h"

namespace zephyl {

const char kZPBadgeViewPropertyKey[] = "kZPBadgeViewPropertyKey";

namespace {

// Between the number and the ring, both sides together.
constexpr CGFloat kPadding = 7;

// The one inside the other, for both the ring and the disc.
constexpr CGFloat kInset = 1;

// The middle of a badge on a view of the given size; null for positions that place nothing.
std::optional<CGPoint> centerForPosition(std::uint64_t position, CGSize host) {
  switch (position) {
    case ZPBadgePositionCenterLeft:
      return CGPoint{0, host.height / 2};
    case ZPBadgePositionCenterRight:
      return CGPoint{host.width, host.height / 2};
    case ZPBadgePositionTopLeft:
      return CGPoint{0, 0};
    case ZPBadgePositionTopRight:
      return CGPoint{host.width, 0};
    case ZPBadgePositionBottomLeft:
      return CGPoint{0, host.height};
    case ZPBadgePositionBottomRight:
      return CGPoint{host.width, host.height};
    default:
      return std::nullopt;
  }
}

}  // namespace

UIZPBadgeView::UIZPBadgeView(const CGRect& frame) : UIView(frame) {
  UIView::setBackgroundColor(UIColor::clearColor());
  // Kept: opaque, although the background is clear.
  setOpaque(true);
  setTag(kTag);
}

void UIZPBadgeView::setBadgeValue(std::int64_t value) {
  if (badgeValue_ == value) {
    return;
  }
  badgeValue_ = value;
  if (isShown()) {
    sizeAndPlace();
  } else {
    setFrame({});
  }
  setNeedsDisplay();
}

void UIZPBadgeView::setDisplayIfZero(bool display) {
  if (displayIfZero_ == display) {
    return;
  }
  displayIfZero_ = display;
  if (badgeValue_ != 0) {
    return;
  }
  if (display) {
    sizeAndPlace();
  } else {
    setFrame({});
  }
}

void UIZPBadgeView::setPosition(std::uint64_t position) {
  if (position_ == position) {
    return;
  }
  position_ = position;
  zp_updateBadgeViewPosition();
  setNeedsDisplay();
}

void UIZPBadgeView::setInsidePosition(std::uint64_t inside) {
  if (insidePosition_ == inside) {
    return;
  }
  insidePosition_ = inside;
  if (inside == 1) {
    const bool right = position_ == ZPBadgePositionCenterRight ||
                       position_ == ZPBadgePositionTopRight ||
                       position_ == ZPBadgePositionBottomRight;
    const CGSize size = bounds().size;
    horizontalOffset_ = static_cast<float>(size.width * (right ? -0.5 : 0.5));
    // Kept: downwards whatever the position, so that a badge at the bottom moves further out.
    verticalOffset_ = static_cast<float>(size.height * 0.5);
  }
  zp_updateBadgeViewPosition();
  setNeedsDisplay();
}

void UIZPBadgeView::setHorizontalOffset(float offset) {
  horizontalOffset_ = offset;
}

void UIZPBadgeView::setVerticalOffset(float offset) {
  verticalOffset_ = offset;
}

void UIZPBadgeView::setMinDiameter(float diameter) {
  if (minDiameter_ == diameter) {
    return;
  }
  minDiameter_ = diameter;
  placeIfAutomatic();
  setNeedsDisplay();
}

void UIZPBadgeView::setOutlineWidth(float width) {
  if (outlineWidth_ == width) {
    return;
  }
  outlineWidth_ = width;
  placeIfAutomatic();
  setNeedsDisplay();
}

void UIZPBadgeView::setFont(const UIFont& font) {
  if (font_ == font) {
    return;
  }
  font_ = font;
  sizeAndPlace();
  setNeedsDisplay();
}

void UIZPBadgeView::setBadgeColor(const UIColor& color) {
  if (badgeColor_ == color) {
    return;
  }
  badgeColor_ = color;
  setNeedsDisplay();
}

void UIZPBadgeView::setTextColor(const UIColor& color) {
  if (textColor_ == color) {
    return;
  }
  textColor_ = color;
  setNeedsDisplay();
}

void UIZPBadgeView::setOutlineColor(const UIColor& color) {
  if (outlineColor_ == color) {
    return;
  }
  outlineColor_ = color;
  setNeedsDisplay();
}

void UIZPBadgeView::sizeAndPlace() {
  zp_updateBadgeViewSize();
  placeIfAutomatic();
}

void UIZPBadgeView::placeIfAutomatic() {
  if (position_ == ZPBadgePositionAutomatic) {
    zp_updateBadgeViewPosition();
  }
}

CGSize UIZPBadgeView::sizeOfNumber() const {
  return sizeOfText(std::to_string(badgeValue_), font_);
}

void UIZPBadgeView::zp_updateBadgeViewSize() {
  const CGSize text = sizeOfNumber();
  const CGFloat padding = 2 * static_cast<CGFloat>(outlineWidth_) + kPadding;
  const CGFloat needed = text.height + padding;
  const auto height = static_cast<float>(needed > minDiameter_ ? needed : minDiameter_);
  const CGFloat wide = text.width + padding;
  const auto width = static_cast<float>(wide < height ? height : wide);
  setBounds(CGRectMake(0, 0, width, height));
}

std::uint64_t UIZPBadgeView::automaticPosition() const {
  const UIView* const host = superview();
  CGPoint corner;
  if (host != nullptr) {
    const CGRect frame = host->frame();
    const CGSize size = bounds().size;
    corner = host->convertPointFromView({frame.maxX() + size.width / 2, -size.height / 2}, nullptr);
  }
  const CGSize screen = UIScreen::mainScreen().applicationFrame().size;
  // Kept: the bottom where the corner lies above the lower end of the screen, which is nearly
  // always.
  const bool top = !(corner.y < screen.height);
  if (corner.x > screen.width) {
    return top ? ZPBadgePositionTopLeft : ZPBadgePositionBottomLeft;
  }
  return top ? ZPBadgePositionTopRight : ZPBadgePositionBottomRight;
}

void UIZPBadgeView::zp_updateBadgeViewPosition() {
  const CGSize host = superview() == nullptr ? CGSize() : superview()->frame().size;
  const std::uint64_t position =
      position_ == ZPBadgePositionAutomatic ? automaticPosition() : position_;
  if (const auto center = centerForPosition(position, host)) {
    setCenter({center->x + horizontalOffset_, center->y + verticalOffset_});
  }
}

void UIZPBadgeView::drawRect(CGContext& context, const CGRect& rect) {
  if (!isShown()) {
    return;
  }
  context.fillEllipse(CGRectInset(rect, kInset, kInset), outlineColor_);
  const CGFloat ring = outlineWidth_ + kInset;
  context.fillEllipse(CGRectInset(rect, ring, ring), badgeColor_);
  const CGFloat height = sizeOfNumber().height;
  drawText(context, NSAttributedString(std::to_string(badgeValue_), {font_, textColor_}),
           CGRectMake(rect.x(), rect.height() / 2 - height / 2, rect.width(), height),
           {.maximumLines = 1,
            .lineBreakMode = NSLineBreakMode::kClipping,
            .alignment = NSTextAlignment::kCenter});
}

UIAccessibilityRole UIZPBadgeView::accessibilityRole() const {
  return UIAccessibilityRole::kStaticText;
}

std::string UIZPBadgeView::derivedAccessibilityLabel() const {
  return isShown() ? std::to_string(badgeValue_) : std::string();
}

std::shared_ptr<UIZPBadgeView> zpBadgeView(UIView& view) {
  const void* const key = &kZPBadgeViewPropertyKey;
  if (view.associatedObject(key) == nullptr) {
    setZpBadgeView(view, std::make_shared<UIZPBadgeView>());
    view.addSubview(std::static_pointer_cast<UIZPBadgeView>(view.associatedObject(key)));
  }
  return std::static_pointer_cast<UIZPBadgeView>(view.associatedObject(key));
}

void setZpBadgeView(UIView& view, std::shared_ptr<UIZPBadgeView> badge) {
  view.setAssociatedObject(&kZPBadgeViewPropertyKey, std::move(badge));
}

}  // namespace zephyl
