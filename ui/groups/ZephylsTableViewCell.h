// A group as a tile: its square picture with the name over a darkening, a strip of its colour, and
// what is unread. Main thread.
//
// Made with the style that has a detail label, whose text colour the badge takes. The screen sets
// the mode before the group.

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Export.h"
#include "platform/uikit/tables/UITableViewCell.h"

namespace zephyl {

class CAGradientLayer;
class UIImageView;
class UILabel;
class Zephyl;

// The side of the check picture, in points.
ZP_EXPORT extern const CGFloat kCheckedImageViewWidth;

class ZP_EXPORT ZephylsTableViewCell : public UITableViewCell {
 public:
  ZephylsTableViewCell(UITableViewCellStyle style, const std::string& reuseIdentifier);

  // Kept for the screen; this cell looks the same in every mode.
  [[nodiscard]] std::int64_t zephylsMode() const { return zephylsMode_; }
  void setZephylsMode(std::int64_t mode) { zephylsMode_ = mode; }

  // Fills the cell, also when it is the group that it has: the group may have changed. Null fills
  // nothing.
  [[nodiscard]] const std::shared_ptr<Zephyl>& zephyl() const { return zephyl_; }
  void setZephyl(const std::shared_ptr<Zephyl>& group);

  // The picture holds all but the strip.
  [[nodiscard]] const std::shared_ptr<UIImageView>& groupImageView() const {
    return groupImageView_;
  }
  [[nodiscard]] const std::shared_ptr<UIView>& groupColorView() const { return groupColorView_; }
  // Kept: names are shortened, never shrunk.
  [[nodiscard]] const std::shared_ptr<UILabel>& nameLabel() const { return nameLabel_; }
  // The check of the active group.
  [[nodiscard]] const std::shared_ptr<UIImageView>& groupSelectedImageView() const {
    return groupSelectedImageView_;
  }
  // The round dot.
  [[nodiscard]] const std::shared_ptr<UIView>& unreadMessageAvailableView() const {
    return unreadMessageAvailableView_;
  }
  [[nodiscard]] const std::shared_ptr<CAGradientLayer>& gradient() const { return gradient_; }

  void layoutSubviews() override;
  // A highlight clears the backgrounds in a cell: the strip gets its colour back.
  void setHighlighted(bool highlighted, bool animated) override;

  [[nodiscard]] UIAccessibilityState accessibilityState() const override;
  [[nodiscard]] const char* className() const override { return "ZephylsTableViewCell"; }

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  void makeSubviews();
  void fillBadge(std::int64_t unreadCount);
  // Just inside the upper right corner of the picture.
  void placeBadge();

  std::int64_t zephylsMode_ = 0;
  std::shared_ptr<Zephyl> zephyl_;
  std::shared_ptr<UILabel> nameLabel_;
  std::shared_ptr<UIImageView> groupImageView_;
  std::shared_ptr<UIView> unreadMessageAvailableView_;
  std::shared_ptr<UIView> groupColorView_;
  std::shared_ptr<UIImageView> groupSelectedImageView_;
  std::shared_ptr<CAGradientLayer> gradient_;
};

}  // namespace zephyl
