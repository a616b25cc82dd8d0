#include "platform/uikit/tables/UITableViewHeaderFooterView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/uikit/tables/TableMetrics.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {
namespace {

constexpr CGFloat kGroupedGap = 8;

}  // namespace

UITableViewHeaderFooterView::UITableViewHeaderFooterView(std::string reuseIdentifier)
    : reuseIdentifier_(std::move(reuseIdentifier)),
      contentView_(std::make_shared<UIView>()),
      textLabel_(std::make_shared<UILabel>()) {
  contentView_->setOpaque(false);
  addSubview(contentView_);
  contentView_->addSubview(textLabel_);
  setOpaque(false);
}

UITableViewHeaderFooterView::~UITableViewHeaderFooterView() = default;

const std::shared_ptr<UILabel>& UITableViewHeaderFooterView::textLabel() {
  setNeedsLayout();
  return textLabel_;
}

void UITableViewHeaderFooterView::setTableStyle(UITableViewStyle style, bool isFooter) {
  if (styled_ && style == tableStyle_ && isFooter == isFooter_) {
    return;
  }
  styled_ = true;
  tableStyle_ = style;
  isFooter_ = isFooter;
  if (style == UITableViewStyle::kPlain) {
    textLabel_->setFont(UIFont::boldSystemFontOfSize(17));
    textLabel_->setTextColor(UIColor::labelColor());
    setBackgroundColor(UIColor::dynamic(UIColor::colorWithRed(0.97, 0.97, 0.97, 1),
                                        UIColor::colorWithRed(0.11, 0.11, 0.12, 1)));
  } else {
    textLabel_->setFont(UIFont::systemFontOfSize(13));
    textLabel_->setTextColor(UIColor::secondaryLabelColor());
    textLabel_->setNumberOfLines(0);
    setBackgroundColor(UIColor::clearColor());
  }
  setNeedsLayout();
}

CGFloat UITableViewHeaderFooterView::titleHeight(CGFloat width) const {
  if (textLabel_->text().empty()) {
    return 0;
  }
  const CGFloat inside = std::max(0.0, width - 2 * marginOfRows(width));
  return std::ceil(textLabel_->sizeThatFits({inside, 1e6}).height);
}

void UITableViewHeaderFooterView::setFrame(const CGRect& frame) {
  const CGSize before = bounds().size;
  UIView::setFrame(frame);
  if (bounds().size != before) {
    setNeedsLayout();
  }
}

void UITableViewHeaderFooterView::layoutSubviews() {
  const CGFloat width = bounds().width();
  const CGFloat height = bounds().height();
  contentView_->setFrame(CGRectMake(0, 0, width, height));
  const CGFloat margin = marginOfRows(width);
  const CGFloat inside = std::max(0.0, width - 2 * margin);
  if (tableStyle_ == UITableViewStyle::kPlain) {
    textLabel_->setFrame(CGRectMake(margin, 0, inside, height));
    return;
  }
  // Next to the rows: at the bottom of a header, at the top of a footer.
  const CGFloat text = std::min(height, titleHeight(width));
  const CGFloat y =
      isFooter_ ? std::min(kGroupedGap, height - text) : std::max(0.0, height - kGroupedGap - text);
  textLabel_->setFrame(CGRectMake(margin, y, inside, text));
}

bool UITableViewHeaderFooterView::isAccessibilityElement() const {
  return !textLabel_->text().empty();
}

UIAccessibilityRole UITableViewHeaderFooterView::accessibilityRole() const {
  return isFooter_ ? UIAccessibilityRole::kStaticText : UIAccessibilityRole::kHeader;
}

std::string UITableViewHeaderFooterView::derivedAccessibilityLabel() const {
  return textLabel_->text();
}

}  // namespace zephyl
