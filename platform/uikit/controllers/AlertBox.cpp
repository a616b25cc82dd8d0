#include "platform/uikit/controllers/AlertBox.h"

#include <algorithm>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/tables/UIScrollView.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {

namespace {

constexpr CGFloat kCornerRadius = 14;
constexpr CGFloat kTextMargin = 16;
constexpr CGFloat kTitleMargin = 8;
// A text is measured no higher than this: more scrolls past no one.
constexpr CGFloat kMaximumTextHeight = 10'000;

std::shared_ptr<UILabel> makeLabel(const UIFont& font, const UIColor& color) {
  auto label = std::make_shared<UILabel>();
  label->setFont(font);
  label->setTextColor(color);
  label->setTextAlignment(NSTextAlignment::kCenter);
  label->setNumberOfLines(0);
  return label;
}

CGFloat hairlineWidth() {
  return 1 / UIScreen::mainScreen().scale();
}

CGFloat textHeight(const UILabel& label, CGFloat width) {
  if (label.text().empty()) {
    return 0;
  }
  // A space of no width stands for the line that a line break at the end begins.
  UILabel whole;
  whole.setFont(label.font());
  whole.setNumberOfLines(0);
  whole.setText(label.text().back() == '\n' ? label.text() + "\u200B" : label.text());
  return whole.sizeThatFits({width, kMaximumTextHeight}).height;
}

}  // namespace

AlertButton::AlertButton(const UIAlertActionRef& action, const UIFont& font)
    : action_(action), label_(makeLabel(font, UIColor::labelColor())) {
  label_->setText(action->title());
  label_->setNumberOfLines(1);
  label_->setAdjustsFontSizeToFitWidth(true);
  label_->setMinimumScaleFactor(0.6);
  label_->setUserInteractionEnabled(false);
  addSubview(label_);
  setEnabled(action->isEnabled());
  showState();
}

AlertButton::~AlertButton() = default;

CGFloat AlertButton::titleWidth() const {
  return label_->sizeThatFits({kMaximumTextHeight, kMaximumTextHeight}).width;
}

void AlertButton::layoutSubviews() {
  label_->setFrame(CGRectInset(bounds(), kTitleMargin, 0));
}

void AlertButton::tintColorDidChange() {
  showState();
}

void AlertButton::stateDidChange() {
  showState();
}

void AlertButton::showState() {
  UIColor color = action_->style() == UIAlertActionStyle::kDestructive ? UIColor::systemRedColor()
                                                                       : tintColor();
  if (!isEnabled()) {
    color = UIColor::tertiaryLabelColor();
  }
  label_->setTextColor(color);
  setBackgroundColor(isHighlighted() ? UIColor::systemFillColor() : UIColor::clearColor());
}

AlertBox::AlertBox(const AlertBoxStyle& style)
    : style_(style),
      texts_(std::make_shared<UIScrollView>()),
      title_(makeLabel(style.titleFont, style.textColor)),
      message_(makeLabel(style.messageFont, style.textColor)) {
  setBackgroundColor(
      UIColor::dynamic(UIColor::colorWithWhite(0.955, 1), UIColor::colorWithWhite(0.145, 1)));
  layer()->setCornerRadius(kCornerRadius);
  setClipsToBounds(true);
  texts_->setAdjustsForSafeArea(false);
  texts_->addSubview(title_);
  texts_->addSubview(message_);
  addSubview(texts_);
}

AlertBox::~AlertBox() = default;

void AlertBox::setTexts(const std::string& title, const std::string& message) {
  title_->setText(title);
  message_->setText(message);
  heights_.reset();
  title_->setHidden(title.empty());
  message_->setHidden(message.empty());
  setNeedsLayout();
}

void AlertBox::setButtons(const std::vector<std::shared_ptr<AlertButton>>& buttons) {
  for (const auto& button : buttons_) {
    button->removeFromSuperview();
  }
  for (const auto& hairline : hairlines_) {
    hairline->removeFromSuperview();
  }
  hairlines_.clear();
  buttons_ = buttons;
  hairlines_.reserve(buttons_.size());
  for (const auto& button : buttons_) {
    const auto hairline = std::make_shared<UIView>();
    hairline->setBackgroundColor(UIColor::separatorColor());
    hairline->setUserInteractionEnabled(false);
    hairlines_.push_back(hairline);
    addSubview(button);
    addSubview(hairline);
  }
  setNeedsLayout();
}

const AlertBox::TextHeights& AlertBox::textHeights(CGFloat width) const {
  if (!heights_ || heights_->width != width) {
    const CGFloat inner = width - 2 * kTextMargin;
    heights_ = TextHeights{width, textHeight(*title_, inner), textHeight(*message_, inner)};
  }
  return *heights_;
}

CGFloat AlertBox::textsHeight(CGFloat width) const {
  const TextHeights& heights = textHeights(width);
  if (heights.title == 0 && heights.message == 0) {
    return 0;
  }
  const CGFloat gap = heights.title > 0 && heights.message > 0 ? style_.gap : 0;
  return 2 * style_.padding + heights.title + gap + heights.message;
}

bool AlertBox::isPair(CGFloat width) const {
  return style_.pairs && buttons_.size() == 2 &&
         std::ranges::all_of(buttons_, [width](const auto& button) {
           return button->titleWidth() + 2 * kTitleMargin <= width / 2;
         });
}

CGFloat AlertBox::buttonsHeight(CGFloat width) const {
  const auto rows = isPair(width) ? 1 : static_cast<CGFloat>(buttons_.size());
  return rows * style_.buttonHeight;
}

CGSize AlertBox::sizeThatFits(CGSize size) const {
  const CGFloat buttons = buttonsHeight(size.width);
  return {size.width, std::min(textsHeight(size.width) + buttons, std::max(size.height, buttons))};
}

void AlertBox::layoutSubviews() {
  const CGFloat width = bounds().width();
  const CGFloat buttons = buttonsHeight(width);
  const CGFloat texts = std::max(bounds().height() - buttons, 0.0);
  layoutTexts(CGRectMake(0, 0, width, texts));
  layoutButtons(texts);
}

void AlertBox::layoutTexts(const CGRect& area) {
  const CGFloat inner = area.width() - 2 * kTextMargin;
  const TextHeights& heights = textHeights(area.width());
  CGFloat top = style_.padding;
  title_->setFrame(CGRectMake(kTextMargin, top, inner, heights.title));
  if (heights.title > 0) {
    top += heights.title + style_.gap;
  }
  // The text stands in the middle of its label, which therefore leaves the room below it out.
  const bool room = !message_->text().empty() && message_->text().back() == '\n';
  const CGFloat shown =
      room ? message_->sizeThatFits({inner, kMaximumTextHeight}).height : heights.message;
  message_->setFrame(CGRectMake(kTextMargin, top, inner, shown));
  texts_->setFrame(area);
  texts_->setContentSize({area.width(), textsHeight(area.width())});
}

void AlertBox::layoutButtons(CGFloat top) {
  const CGFloat width = bounds().width();
  const CGFloat height = style_.buttonHeight;
  const CGFloat line = hairlineWidth();
  if (isPair(width)) {
    const bool mirrored = UIScreen::mainScreen().isRightToLeft();
    const CGFloat half = width / 2;
    buttons_[mirrored ? 1 : 0]->setFrame(CGRectMake(0, top, half, height));
    buttons_[mirrored ? 0 : 1]->setFrame(CGRectMake(half, top, half, height));
    hairlines_[0]->setFrame(CGRectMake(0, top, width, line));
    hairlines_[1]->setFrame(CGRectMake(half, top, line, height));
    return;
  }
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    buttons_[i]->setFrame(CGRectMake(0, top, width, height));
    hairlines_[i]->setFrame(CGRectMake(0, top, width, line));
    hairlines_[i]->setHidden(top <= 0);
    top += height;
  }
}

}  // namespace zephyl
