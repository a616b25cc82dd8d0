#include "platform/uikit/tables/TableDeleteButton.h"

#include <algorithm>
#include <cmath>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {
namespace {

constexpr CGFloat kMargin = 15;
constexpr CGFloat kNarrowest = 74;
constexpr CGFloat kWidest = 200;

}  // namespace

TableDeleteButton::TableDeleteButton() : label_(std::make_shared<UILabel>()) {
  setBackgroundColor(UIColor::systemRedColor());
  setClipsToBounds(true);
  label_->setFont(UIFont::systemFontOfSize(17));
  label_->setTextColor(UIColor::whiteColor());
  label_->setTextAlignment(NSTextAlignment::kCenter);
  addSubview(label_);
}

TableDeleteButton::~TableDeleteButton() = default;

void TableDeleteButton::setTitle(const std::string& title) {
  if (title == title_) {
    return;
  }
  title_ = title;
  label_->setText(title);
  setNeedsLayout();
}

CGFloat TableDeleteButton::preferredWidth() const {
  const CGFloat text = std::ceil(label_->sizeThatFits({kWidest, bounds().height()}).width);
  return std::clamp(text + 2 * kMargin, kNarrowest, kWidest);
}

void TableDeleteButton::layoutSubviews() {
  const CGFloat width = preferredWidth();
  const bool rightToLeft = UIScreen::mainScreen().isRightToLeft();
  label_->setFrame(
      CGRectMake(rightToLeft ? bounds().width() - width : 0, 0, width, bounds().height()));
}

void TableDeleteButton::stateDidChange() {
  label_->setAlpha(isHighlighted() ? 0.5 : 1);
}

}  // namespace zephyl
