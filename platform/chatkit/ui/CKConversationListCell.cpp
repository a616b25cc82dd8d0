#include "platform/chatkit/ui/CKConversationListCell.h"

#include <algorithm>
#include <cmath>

#include "platform/chatkit/ui/CKAvatarView.h"
#include "platform/chatkit/ui/CKDateText.h"
#include "platform/chatkit/ui/CKText.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {
namespace {

constexpr CGFloat kDotX = 9;
constexpr CGFloat kDotSide = 10;
constexpr CGFloat kAvatarX = 26;
constexpr CGFloat kAvatarSide = 45;
constexpr CGFloat kTextX = 83;
constexpr CGFloat kFromY = 9;
constexpr CGFloat kFromHeight = 24;
constexpr CGFloat kSummaryHeight = 38;
constexpr CGFloat kGap = 8;
constexpr CGFloat kTrailing = 16;
constexpr CGFloat kFromSize = 17;
constexpr CGFloat kSmallSize = 15;

std::shared_ptr<UILabel> makeLabel(const UIFont& font, const UIColor& color) {
  auto label = std::make_shared<UILabel>();
  label->setFont(font);
  label->setTextColor(color);
  return label;
}

void placeLeading(UIView& view, const CGRect& rect, CGFloat width) {
  view.setFrame(UIScreen::mainScreen().isRightToLeft()
                    ? CGRectMake(width - rect.maxX(), rect.y(), rect.width(), rect.height())
                    : rect);
}

}  // namespace

CKConversationListCell::CKConversationListCell(const std::string& reuseIdentifier)
    : UITableViewCell(UITableViewCellStyle::kDefault, reuseIdentifier),
      avatarView_(std::make_shared<CKAvatarView>(CGRectMake(0, 0, kAvatarSide, kAvatarSide))),
      fromLabel_(makeLabel(UIFont::systemFontOfSize(kFromSize, UIFont::Weight::kSemibold),
                           UIColor::labelColor())),
      summaryLabel_(
          makeLabel(UIFont::systemFontOfSize(kSmallSize), UIColor::secondaryLabelColor())),
      dateLabel_(makeLabel(UIFont::systemFontOfSize(kSmallSize), UIColor::secondaryLabelColor())),
      unreadIndicator_(std::make_shared<UIView>()) {
  summaryLabel_->setNumberOfLines(2);
  unreadIndicator_->setBackgroundColor(UIColor::systemBlueColor());
  unreadIndicator_->layer()->setCornerRadius(kDotSide / 2);
  unreadIndicator_->setHidden(true);
  for (const std::shared_ptr<UIView>& view :
       {std::shared_ptr<UIView>(avatarView_), std::shared_ptr<UIView>(fromLabel_),
        std::shared_ptr<UIView>(summaryLabel_), std::shared_ptr<UIView>(dateLabel_),
        unreadIndicator_}) {
    contentView()->addSubview(view);
  }
  setSeparatorInset({0, kTextX, 0, 0});
}

CKConversationListCell::~CKConversationListCell() = default;

void CKConversationListCell::setConversation(const CKConversationRef& conversation, double now,
                                             const std::shared_ptr<CKContactPictures>& pictures) {
  conversation_ = conversation;
  avatarView_->setConversation(conversation, pictures);
  const bool isThere = conversation != nullptr;
  fromLabel_->setText(isThere ? conversation->name() : std::string());
  summaryLabel_->setText(isThere ? conversation->facts().lastText.value_or("") : std::string());
  const auto date = isThere ? conversation->facts().lastDate : std::nullopt;
  dateLabel_->setText(date ? conversationDateText(*date, now) : std::string());
  unreadIndicator_->setHidden(!isThere || !conversation->hasUnreadMessages());
  setNeedsLayout();
}

void CKConversationListCell::layoutSubviews() {
  UITableViewCell::layoutSubviews();
  const CGFloat width = contentView()->bounds().width();
  const CGFloat height = contentView()->bounds().height();
  // Where an accessory follows, its gap is kept already.
  const bool endsAtEdge = width >= bounds().width();
  const CGFloat end = std::max(kTextX, width - (endsAtEdge ? kTrailing : 0));
  const CGFloat middle = std::round((height - kAvatarSide) / 2);
  placeLeading(*avatarView_, CGRectMake(kAvatarX, middle, kAvatarSide, kAvatarSide), width);
  placeLeading(*unreadIndicator_,
               CGRectMake(kDotX, std::round((height - kDotSide) / 2), kDotSide, kDotSide), width);
  const CGFloat dateWidth =
      std::min(dateLabel_->sizeThatFits({0, kFromHeight}).width, (end - kTextX) / 2);
  placeLeading(*dateLabel_, CGRectMake(end - dateWidth, kFromY, dateWidth, kFromHeight), width);
  placeLeading(
      *fromLabel_,
      CGRectMake(kTextX, kFromY, std::max(0.0, end - kTextX - dateWidth - kGap), kFromHeight),
      width);
  const CGFloat summaryWidth = end - kTextX;
  const CGFloat summaryHeight =
      std::min(kSummaryHeight, summaryLabel_->sizeThatFits({summaryWidth, 0}).height);
  placeLeading(*summaryLabel_,
               CGRectMake(kTextX, kFromY + kFromHeight, summaryWidth, summaryHeight), width);
}

std::string CKConversationListCell::derivedAccessibilityLabel() const {
  std::string label = unreadIndicator_->isHidden() ? std::string() : chatKitText("Unread");
  for (const auto& part : {fromLabel_, summaryLabel_, dateLabel_}) {
    if (!part->text().empty()) {
      label.append(label.empty() ? "" : ", ").append(part->text());
    }
  }
  return label;
}

}  // namespace zephyl
