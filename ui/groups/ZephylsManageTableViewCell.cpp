#include "ui/groups/ZephylsManageTableViewCell.h"

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/text/UIImageView.h"
#include "platform/uikit/text/UILabel.h"

#include "model/ZPLocalizedText.h"
#include "model/Zephyl.h"
#include "services/ZPUtils.h"
#include "ui/groups/GroupAppearance.h"

namespace zephyl {

namespace {

constexpr CGFloat kLockSide = 24;
constexpr CGFloat kLockX = 7;
constexpr CGFloat kTitleX = kLockX + kLockSide + 5;
constexpr CGFloat kLineHeight = 20;
// From version 13 on: from the end of the row to where the check begins.
constexpr CGFloat kCheckFromEnd = 30;
constexpr CGFloat kSubtitleSize = 13;
constexpr CGFloat kDimmed = 0.439216;
constexpr char kCheckMark[] = "\xE2\x9C\x93";

std::shared_ptr<UILabel> makeLabel(std::int64_t tag, const CGRect& frame) {
  auto label = std::make_shared<UILabel>(frame);
  label->setTag(tag);
  return label;
}

// Colour, alignment and font of the cell's own label.
void dressLike(UILabel& label, const UILabel& own) {
  label.setTextColor(own.textColor());
  label.setTextAlignment(own.textAlignment());
  label.setFont(own.font());
}

}  // namespace

ZephylsManageTableViewCell::ZephylsManageTableViewCell(UITableViewCellStyle style,
                                                       const std::string& reuseIdentifier)
    : UITableViewCell(style, reuseIdentifier), firstWidth_(bounds().width()) {
  makeSubviews();
}

void ZephylsManageTableViewCell::makeSubviews() {
  const CGSize size = bounds().size;
  const auto lock = std::make_shared<UIImageView>(
      CGRectMake(kLockX, (size.height - kLockSide) / 2, kLockSide, kLockSide));
  lock->setTag(kLockTag);
  lock->setClipsToBounds(true);
  contentView()->addSubview(lock);

  const auto check = makeLabel(kCheckTag, CGRectMake(size.width, 0, 16, size.height - 5));
  dressLike(*check, *textLabel());
  contentView()->addSubview(check);

  const auto title =
      makeLabel(kTitleTag, CGRectMake(kTitleX, 2, size.width - kTitleX, kLineHeight));
  dressLike(*title, *textLabel());
  contentView()->addSubview(title);

  const auto subtitle = makeLabel(kSubtitleTag, CGRectMake(kTitleX, title->frame().maxY(),
                                                           title->frame().width(), kLineHeight));
  subtitle->setTextColor(UIColor::grayColor());
  // A cell of the default style has no detail label to take the alignment from.
  if (const auto& detail = detailTextLabel()) {
    subtitle->setTextAlignment(detail->textAlignment());
  }
  subtitle->setFont(UIFont::systemFontOfSize(kSubtitleSize));
  contentView()->addSubview(subtitle);
}

std::shared_ptr<UILabel> ZephylsManageTableViewCell::labelWithTag(std::int64_t tag) const {
  return std::dynamic_pointer_cast<UILabel>(contentView()->viewWithTag(tag));
}

void ZephylsManageTableViewCell::layoutSubviews() {
  UITableViewCell::layoutSubviews();
  // Kept: before version 13 it stays where the cell's first width put it.
  if (const auto check = contentView()->viewWithTag(kCheckTag);
      check != nullptr && ZPUtils::isIOS13()) {
    CGRect frame = check->frame();
    frame.origin.x = bounds().width() - kCheckFromEnd;
    check->setFrame(frame);
  }
  if (UIScreen::mainScreen().isRightToLeft()) {
    mirrorSubviews();
  }
}

void ZephylsManageTableViewCell::mirrorSubviews() {
  const auto placeFromRight = [this](std::int64_t tag, CGFloat distance) {
    if (const auto view = contentView()->viewWithTag(tag)) {
      CGRect frame = view->frame();
      frame.origin.x = contentView()->bounds().width() - distance - frame.width();
      view->setFrame(frame);
    }
  };
  placeFromRight(kLockTag, kLockX);
  placeFromRight(kTitleTag, kTitleX);
  placeFromRight(kSubtitleTag, kTitleX);
  placeFromRight(kCheckTag, ZPUtils::isIOS13() ? bounds().width() - kCheckFromEnd : firstWidth_);
}

void ZephylsManageTableViewCell::setZephyl(const std::shared_ptr<Zephyl>& group) {
  zephyl_ = group;
  if (group == nullptr) {
    return;
  }
  fillMarker();
  fillLock();
  fillCheck();
  fillTitle();
  fillSubtitle();
}

void ZephylsManageTableViewCell::fillMarker() {
  if (const auto marker = viewWithTag(kMarkerTag); marker != nullptr && zephyl_ != nullptr) {
    marker->setBackgroundColor(markerColorOfGroup(*zephyl_));
  }
}

void ZephylsManageTableViewCell::fillLock() {
  const bool locked = zephyl_->isPasswordProtected() && !zephyl_->isSystem();
  if (const auto lock =
          std::dynamic_pointer_cast<UIImageView>(contentView()->viewWithTag(kLockTag))) {
    lock->setImage(locked ? settingsPicture("locked") : nullptr);
  }
}

void ZephylsManageTableViewCell::fillCheck() {
  if (const auto check = labelWithTag(kCheckTag); check != nullptr && zephylsMode_ == 0) {
    check->setText(zephyl_->isActive() ? kCheckMark : "");
  }
}

void ZephylsManageTableViewCell::fillTitle() {
  if (const auto title = labelWithTag(kTitleTag)) {
    title->setText(titleWithUnreadCount(*zephyl_, zephyl_->unreadCount()));
  }
}

void ZephylsManageTableViewCell::stretchTitle() {
  if (const auto title = labelWithTag(kTitleTag)) {
    CGRect frame = title->frame();
    frame.size.height = bounds().height();
    title->setFrame(frame);
  }
}

void ZephylsManageTableViewCell::fillSubtitle() {
  const auto subtitle = labelWithTag(kSubtitleTag);
  if (!zephyl_->subTitle().empty()) {
    // Kept: a label that another group's filling hid stays hidden.
    if (subtitle != nullptr) {
      subtitle->setText(zephyl_->subTitle());
    }
    return;
  }
  if (zephyl_->isEnabled()) {
    stretchTitle();
  } else if (subtitle != nullptr) {
    subtitle->setText(zpLocalizedText("Status: Disabled"));
  }
  if (subtitle != nullptr) {
    subtitle->setHidden(zephyl_->isEnabled());
  }
}

void ZephylsManageTableViewCell::setHighlighted(bool highlighted, bool animated) {
  UITableViewCell::setHighlighted(highlighted, animated);
  fillMarker();
}

void ZephylsManageTableViewCell::setSelected(bool selected, bool animated) {
  UITableViewCell::setSelected(selected, animated);
  if (zephyl_ == nullptr) {
    return;
  }
  fillMarker();
  fillTitle();
  if (!zephyl_->subTitle().empty()) {
    if (const auto subtitle = labelWithTag(kSubtitleTag)) {
      subtitle->setText(zephyl_->subTitle());
    }
  } else if (zephyl_->isEnabled()) {
    stretchTitle();
  }
}

void ZephylsManageTableViewCell::setUserInteractionEnabled(bool enabled) {
  UITableViewCell::setUserInteractionEnabled(enabled);
  for (const std::int64_t tag : {kTitleTag, kSubtitleTag}) {
    if (const auto label = labelWithTag(tag)) {
      label->setUserInteractionEnabled(enabled);
      label->setAlpha(enabled ? 1 : kDimmed);
    }
  }
}

UIAccessibilityState ZephylsManageTableViewCell::accessibilityState() const {
  UIAccessibilityState state = UITableViewCell::accessibilityState();
  const auto check = labelWithTag(kCheckTag);
  state.checked = state.checked || (check != nullptr && !check->text().empty());
  return state;
}

std::string ZephylsManageTableViewCell::derivedAccessibilityLabel() const {
  std::string label;
  const auto add = [&label](const std::string& part) {
    if (!part.empty()) {
      label.append(label.empty() ? "" : ", ").append(part);
    }
  };
  for (const std::int64_t tag : {kTitleTag, kSubtitleTag}) {
    if (const auto shown = labelWithTag(tag); shown != nullptr && !shown->isHidden()) {
      add(shown->text());
    }
  }
  const auto lock = std::dynamic_pointer_cast<UIImageView>(contentView()->viewWithTag(kLockTag));
  if (lock != nullptr && lock->image() != nullptr) {
    add(zpLocalizedText("Password protected"));
  }
  return label;
}

}  // namespace zephyl
