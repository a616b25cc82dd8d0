#include "ui/groups/ZephylsTableViewCell.h"

#include "platform/uikit/CAGradientLayer.h"
#include "platform/uikit/text/UIImageView.h"
#include "platform/uikit/text/UILabel.h"

#include "model/Zephyl.h"
#include "services/ZPUtils.h"
#include "ui/components/UIZPBadgeView.h"
#include "ui/groups/GroupAppearance.h"

namespace zephyl {

const CGFloat kCheckedImageViewWidth = 45;

namespace {

constexpr CGFloat kStripWidth = 5;
constexpr CGFloat kNameSize = 19;
constexpr CGFloat kDotSide = 10;

}  // namespace

ZephylsTableViewCell::ZephylsTableViewCell(UITableViewCellStyle style,
                                           const std::string& reuseIdentifier)
    : UITableViewCell(style, reuseIdentifier) {
  makeSubviews();
}

void ZephylsTableViewCell::makeSubviews() {
  groupImageView_ = std::make_shared<UIImageView>();
  addSubview(groupImageView_);
  groupColorView_ = std::make_shared<UIView>();
  addSubview(groupColorView_);

  nameLabel_ = std::make_shared<UILabel>();
  nameLabel_->setTextColor(UIColor::whiteColor());
  nameLabel_->setTextAlignment(NSTextAlignment::kCenter);
  nameLabel_->setFont(UIFont::boldSystemFontOfSize(kNameSize));
  groupImageView_->addSubview(nameLabel_);

  groupSelectedImageView_ = std::make_shared<UIImageView>();
  groupImageView_->addSubview(groupSelectedImageView_);

  unreadMessageAvailableView_ = std::make_shared<UIView>();
  unreadMessageAvailableView_->setBackgroundColor(UIColor::colorWithRed(0, 121.0 / 255, 1, 1));
  unreadMessageAvailableView_->layer()->setCornerRadius(
      unreadMessageAvailableView_->bounds().width() / 2);
  groupImageView_->addSubview(unreadMessageAvailableView_);

  gradient_ = std::make_shared<CAGradientLayer>();
  gradient_->setColors({UIColor::clearColor(), UIColor::colorWithWhite(0, 0.5)});
  groupImageView_->layer()->insertSublayer(gradient_, 0);
}

void ZephylsTableViewCell::layoutSubviews() {
  UITableViewCell::layoutSubviews();
  const CGFloat height = frame().height();
  groupColorView_->setFrame(CGRectMake(0, 0, kStripWidth, height));
  groupImageView_->setFrame(CGRectMake(kStripWidth, 0, height, height));
  const CGSize picture = groupImageView_->frame().size;
  nameLabel_->setFrame(CGRectMake(2, picture.width - 18, picture.width - 2, 15));

  const CGFloat side = kCheckedImageViewWidth;
  // Kept: from version 13 on the check stands in the middle of the cell, not of its picture.
  const CGFloat across = ZPUtils::isIOS13() ? bounds().width() : picture.width;
  groupSelectedImageView_->setFrame(
      CGRectMake((across - side) / 2, (picture.width - side) / 2, side, side));

  unreadMessageAvailableView_->setFrame(CGRectMake(picture.width - 12, 2, kDotSide, kDotSide));
  unreadMessageAvailableView_->setClipsToBounds(true);
  unreadMessageAvailableView_->layer()->setCornerRadius(
      unreadMessageAvailableView_->frame().width() / 2);
  gradient_->setFrame(CGRectMake(0, 0, picture.width, picture.height));

  placeBadge();
}

void ZephylsTableViewCell::placeBadge() {
  const auto badge = zpBadgeView(*groupImageView_);
  badge->setPosition(ZPBadgePositionTopRight);
  badge->setInsidePosition(1);
  // Both do nothing for what the badge holds already; since then its size, or the picture's, may
  // have become another one.
  const CGSize size = badge->bounds().size;
  badge->setHorizontalOffset(static_cast<float>(-0.5 * size.width));
  badge->setVerticalOffset(static_cast<float>(0.5 * size.height));
  badge->zp_updateBadgeViewPosition();
}

void ZephylsTableViewCell::setZephyl(const std::shared_ptr<Zephyl>& group) {
  zephyl_ = group;
  setNeedsLayout();
  if (group == nullptr) {
    return;
  }
  // Asked once: each time counts anew.
  const std::int64_t unreadCount = group->unreadCount();
  groupImageView_->setImage(group->headerImage());
  const UIColor marker = markerColorOfGroup(*group);
  groupColorView_->setBackgroundColor(marker);
  groupImageView_->setBackgroundColor(marker);
  nameLabel_->setText(titleWithUnreadCount(*group, unreadCount));
  groupSelectedImageView_->setImage(group->isActive() ? settingsPicture("check") : nullptr);
  unreadMessageAvailableView_->setHidden(unreadCount < 1);
  fillBadge(unreadCount);
}

void ZephylsTableViewCell::fillBadge(std::int64_t unreadCount) {
  const auto badge = zpBadgeView(*groupImageView_);
  badge->setBadgeValue(unreadCount);
  badge->setOutlineWidth(1);
  if (const auto& detail = detailTextLabel()) {
    badge->setOutlineColor(detail->textColor());
    badge->setBadgeColor(detail->textColor());
  }
  badge->setTextColor(UIColor::whiteColor());
}

void ZephylsTableViewCell::setHighlighted(bool highlighted, bool animated) {
  UITableViewCell::setHighlighted(highlighted, animated);
  if (zephyl_ != nullptr) {
    groupColorView_->setBackgroundColor(markerColorOfGroup(*zephyl_));
  }
}

UIAccessibilityState ZephylsTableViewCell::accessibilityState() const {
  UIAccessibilityState state = UITableViewCell::accessibilityState();
  state.checked = state.checked || groupSelectedImageView_->image() != nullptr;
  return state;
}

std::string ZephylsTableViewCell::derivedAccessibilityLabel() const {
  return nameLabel_->text();
}

}  // namespace zephyl
