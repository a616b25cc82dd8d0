// A round count that is laid over a corner or a side of another view, and the one badge that every
// view can have. Main thread.
//
// The badge sizes itself to its number and places itself by the frame of the view it is in; both
// happen at the setters told below and at no other time. It is hidden by a zero frame, never by the
// hidden flag.

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIFont.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

// Where the middle of the badge lies on the edge of the view it is in. A number beyond these leaves
// it where it is.
enum ZPBadgePosition : std::uint64_t {
  ZPBadgePositionCenterLeft = 0,
  ZPBadgePositionCenterRight = 1,
  ZPBadgePositionTopLeft = 2,
  ZPBadgePositionTopRight = 3,
  ZPBadgePositionBottomLeft = 4,
  ZPBadgePositionBottomRight = 5,
  // One of the four corners, chosen anew at each placement.
  ZPBadgePositionAutomatic = 6
};

class ZP_EXPORT UIZPBadgeView : public UIView {
 public:
  static constexpr std::int64_t kTag = 9876;

  explicit UIZPBadgeView(const CGRect& frame = {});

  // Each setter does nothing when the value is the one it holds, and else what is told beside it.

  // Sizes, and places in automatic position; a 0 that is not displayed hides. Redraws.
  [[nodiscard]] std::int64_t badgeValue() const { return badgeValue_; }
  void setBadgeValue(std::int64_t value);
  // Kept: only for a value of 0; sizes and places, or hides, and does not redraw.
  [[nodiscard]] bool displayIfZero() const { return displayIfZero_; }
  void setDisplayIfZero(bool display);

  // Places and redraws. Kept: 1 also sets the offsets, by the size and position of that moment;
  // other values leave the offsets alone.
  [[nodiscard]] std::uint64_t position() const { return position_; }
  void setPosition(std::uint64_t position);
  [[nodiscard]] std::uint64_t insidePosition() const { return insidePosition_; }
  void setInsidePosition(std::uint64_t inside);
  // Added to the middle when it is next placed. Nothing else.
  [[nodiscard]] float horizontalOffset() const { return horizontalOffset_; }
  void setHorizontalOffset(float offset);
  [[nodiscard]] float verticalOffset() const { return verticalOffset_; }
  void setVerticalOffset(float offset);

  // Kept: both count when the badge is sized next, not at once. Place in automatic position;
  // redraw.
  [[nodiscard]] float minDiameter() const { return minDiameter_; }
  void setMinDiameter(float diameter);
  [[nodiscard]] float outlineWidth() const { return outlineWidth_; }
  void setOutlineWidth(float width);

  // Sizes, and places in automatic position; redraws. Kept: shows a badge that 0 had hidden, whose
  // ellipses and number are still not drawn.
  [[nodiscard]] const UIFont& font() const { return font_; }
  void setFont(const UIFont& font);

  // Redraw.
  [[nodiscard]] const UIColor& badgeColor() const { return badgeColor_; }
  void setBadgeColor(const UIColor& color);
  [[nodiscard]] const UIColor& textColor() const { return textColor_; }
  void setTextColor(const UIColor& color);
  [[nodiscard]] const UIColor& outlineColor() const { return outlineColor_; }
  void setOutlineColor(const UIColor& color);

  // The bounds that the number needs; the middle stays.
  void zp_updateBadgeViewSize();
  // The middle that the position asks for.
  void zp_updateBadgeViewPosition();

  // Two filled ellipses, the ring behind the disc, and the number in the middle. Kept: a wide badge
  // is an ellipse, not a capsule.
  void drawRect(CGContext& context, const CGRect& rect) override;

  // Read only while it shows a number.
  [[nodiscard]] bool isAccessibilityElement() const override { return isShown(); }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override;
  [[nodiscard]] const char* className() const override { return "UIZPBadgeView"; }

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  [[nodiscard]] bool isShown() const { return badgeValue_ != 0 || displayIfZero_; }
  [[nodiscard]] CGSize sizeOfNumber() const;
  [[nodiscard]] std::uint64_t automaticPosition() const;
  void sizeAndPlace();
  void placeIfAutomatic();

  std::uint64_t position_ = ZPBadgePositionAutomatic;
  std::uint64_t insidePosition_ = 0;
  std::int64_t badgeValue_ = 0;
  UIFont font_ = UIFont::boldSystemFontOfSize(13);
  UIColor badgeColor_ = UIColor::blueColor();
  UIColor textColor_ = UIColor::whiteColor();
  UIColor outlineColor_ = UIColor::whiteColor();
  float outlineWidth_ = 2;
  float minDiameter_ = 25;
  bool displayIfZero_ = false;
  float horizontalOffset_ = 0;
  float verticalOffset_ = 0;
};

// The address of this text is the key of a view's badge among its associated objects.
ZP_EXPORT extern const char kZPBadgeViewPropertyKey[];

// The view's badge; at the first call it is made, and added to the view.
[[nodiscard]] ZP_EXPORT std::shared_ptr<UIZPBadgeView> zpBadgeView(UIView& view);
// Keeps `badge` as the view's, or forgets it when null. Adds and removes no subview.
ZP_EXPORT void setZpBadgeView(UIView& view, std::shared_ptr<UIZPBadgeView> badge);

}  // namespace zephyl
