// Where the parts of a row lie. Everything is worked out from left to right, the leading side being
// the left, and mirrored where the language runs the other way.

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/controls/UIControl.h"
#include "platform/uikit/tables/TableAccessoryView.h"
#include "platform/uikit/tables/TableDeleteButton.h"
#include "platform/uikit/tables/TableEditControl.h"
#include "platform/uikit/tables/TableMetrics.h"
#include "platform/uikit/tables/UITableViewCell.h"
#include "platform/uikit/text/TextDrawing.h"
#include "platform/uikit/text/UIImageView.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {
namespace {

constexpr CGFloat kEditingIndentation = 38;
constexpr CGFloat kAccessoryGap = 10;
constexpr CGFloat kAccessoryViewGap = 8;
constexpr CGFloat kImageGap = 15;
constexpr CGFloat kIndentation = 10;
constexpr CGFloat kValueGap = 6;
constexpr CGFloat kValue2Width = 91;

CGFloat hairline() {
  return 1 / UIScreen::mainScreen().scale();
}

bool hasText(const std::shared_ptr<UILabel>& label) {
  return label != nullptr && !label->text().empty();
}

CGSize textSize(const UILabel& label, CGSize area) {
  const CGSize size = label.sizeThatFits(area);
  return {std::min(size.width, area.width), std::min(size.height, area.height)};
}

}  // namespace

struct UITableViewCell::Layout {
  CGFloat width = 0;
  CGFloat height = 0;
  CGFloat margin = 0;
  // Where the content view begins and ends.
  CGFloat contentStart = 0;
  CGFloat contentEnd = 0;
  // What is shown on the trailing side, and where; null for nothing.
  UIView* accessory = nullptr;
  CGRect accessoryFrame;
};

CGFloat marginOfRows(CGFloat width) {
  return width < 414 ? 16 : 20;
}

CGRect UITableViewCell::mirrored(const CGRect& rect, CGFloat width) const {
  if (!UIScreen::mainScreen().isRightToLeft()) {
    return rect;
  }
  return CGRectMake(width - rect.maxX(), rect.y(), rect.width(), rect.height());
}

UIEdgeInsets UITableViewCell::separatorInset() const {
  UIEdgeInsets inset = separatorInset_.left < 0 ? surroundings_.separatorInset : separatorInset_;
  if (inset.left < 0) {
    inset.left = marginOfRows(bounds().width());
  }
  return inset;
}

UITableViewCell::Layout UITableViewCell::makeLayout() const {
  Layout layout;
  layout.width = bounds().width();
  layout.height = bounds().height();
  layout.margin = marginOfRows(layout.width);
  const bool indents = editing_ && surroundings_.canEdit && surroundings_.indentsWhileEditing;
  layout.contentStart = indents ? kEditingIndentation : 0;
  const CGFloat end = layout.width - surroundings_.trailingInset;
  layout.contentEnd = end;
  CGFloat gap = kAccessoryViewGap;
  if (editing_ && surroundings_.canEdit) {
    return layout;
  }
  if (accessoryView_ != nullptr) {
    layout.accessory = accessoryView_.get();
  } else if (accessoryType_ != UITableViewCellAccessoryType::kNone) {
    layout.accessory = accessory_.get();
    gap = kAccessoryGap;
  }
  if (layout.accessory != nullptr) {
    const CGSize size = layout.accessory == accessory_.get()
                            ? TableAccessoryView::sizeOfType(accessoryType_)
                            : layout.accessory->bounds().size;
    const CGFloat x = end - layout.margin - size.width;
    layout.accessoryFrame =
        CGRectMake(x, roundedToPixel((layout.height - size.height) / 2), size.width, size.height);
    layout.contentEnd = x - gap;
  }
  layout.contentEnd = std::max(layout.contentStart, layout.contentEnd);
  return layout;
}

void UITableViewCell::setFrame(const CGRect& frame) {
  const CGSize before = bounds().size;
  UIView::setFrame(frame);
  if (bounds().size != before) {
    setNeedsLayout();
  }
}

void UITableViewCell::layoutSubviews() {
  const Layout layout = makeLayout();
  keepParts();
  layoutParts(layout);
  layoutEditing(layout);
  layoutTexts(layout);
  layoutSeparators();
  nameAccessory();
}

void UITableViewCell::keepParts() {
  if (contentView_->superview() != this) {
    insertSubview(contentView_, 1);
  }
  // A screen that empties the content view of a row does not mean these.
  for (const auto& label : {textLabel_, detailTextLabel_}) {
    if (hasText(label) && label->superview() != contentView_.get()) {
      contentView_->addSubview(label);
    }
  }
  if (imageView_->image() != nullptr && imageView_->superview() != contentView_.get()) {
    contentView_->addSubview(imageView_);
  }
}

void UITableViewCell::layoutParts(const Layout& layout) {
  selectedBackgroundView_->setFrame(CGRectMake(0, 0, layout.width, layout.height));
  contentView_->setFrame(mirrored(
      CGRectMake(layout.contentStart, 0, layout.contentEnd - layout.contentStart, layout.height),
      layout.width));
  const bool showsType = layout.accessory == accessory_.get();
  accessory_->setType(showsType ? accessoryType_ : UITableViewCellAccessoryType::kNone);
  if (accessoryView_ != nullptr) {
    accessoryView_->setHidden(layout.accessory != accessoryView_.get());
  }
  if (layout.accessory != nullptr) {
    layout.accessory->setFrame(mirrored(layout.accessoryFrame, layout.width));
  }
}

void UITableViewCell::layoutEditing(const Layout& layout) {
  const auto style = editing_ && surroundings_.canEdit ? surroundings_.editingStyle
                                                       : UITableViewCellEditingStyle::kNone;
  if (editControl_ == nullptr && style != UITableViewCellEditingStyle::kNone) {
    editControl_ = std::make_shared<TableEditControl>();
    editControl_->addAction(
        [this](UIControl& /*sender*/) {
          if (const auto tapped = actions_.editControlTapped) {
            tapped();
          }
        },
        kTouchUpInside);
    addSubview(editControl_);
  }
  if (editControl_ == nullptr) {
    return;
  }
  editControl_->setEditingStyle(style);
  editControl_->setSelected(selected_);
  const CGFloat width = layout.margin + TableEditControl::kSide + 6;
  const CGFloat x = style == UITableViewCellEditingStyle::kNone ? -width : layout.margin - 6;
  editControl_->setFrame(
      mirrored(CGRectMake(x, 0, TableEditControl::kSide + 12, layout.height), layout.width));
}

void UITableViewCell::layoutTexts(const Layout& layout) {
  const CGFloat width = contentView_->bounds().width();
  const CGFloat height = contentView_->bounds().height();
  const CGFloat margin = marginOfRows(bounds().width());
  CGFloat start = margin + kIndentation * static_cast<CGFloat>(
                                              std::clamp<std::int64_t>(indentationLevel_, 0, 100));
  if (imageView_->image() != nullptr) {
    const CGSize size = imageView_->image()->size();
    const CGFloat shrink = size.height > height && size.height > 0 ? height / size.height : 1;
    const CGSize shown = {roundedToPixel(size.width * shrink),
                          roundedToPixel(size.height * shrink)};
    imageView_->setFrame(mirrored(
        CGRectMake(start, roundedToPixel((height - shown.height) / 2), shown.width, shown.height),
        width));
    start += shown.width + kImageGap;
  }
  // Beside an accessory the content view has ended at its gap already.
  const bool fills = layout.contentEnd >= layout.width;
  const CGFloat end = width - (fills ? margin : 0);
  const CGRect area = CGRectMake(start, 0, std::max(0.0, end - start), height);
  switch (style_) {
    case UITableViewCellStyle::kDefault:
      textLabel_->setFrame(mirrored(area, width));
      return;
    case UITableViewCellStyle::kSubtitle:
      return layoutSubtitle(area);
    case UITableViewCellStyle::kValue1:
    case UITableViewCellStyle::kValue2:
      return layoutValueTexts(area);
  }
}

void UITableViewCell::layoutSubtitle(const CGRect& area) {
  const CGFloat width = contentView_->bounds().width();
  if (!hasText(detailTextLabel_)) {
    textLabel_->setFrame(mirrored(area, width));
    detailTextLabel_->setFrame(mirrored(CGRectMake(area.x(), area.maxY(), area.width(), 0), width));
    return;
  }
  const CGFloat first = textSize(*textLabel_, area.size).height;
  const CGFloat second = textSize(*detailTextLabel_, area.size).height;
  const CGFloat top = std::max(0.0, roundedToPixel((area.height() - first - second) / 2));
  textLabel_->setFrame(mirrored(CGRectMake(area.x(), top, area.width(), first), width));
  detailTextLabel_->setFrame(
      mirrored(CGRectMake(area.x(), top + first, area.width(), second), width));
}

void UITableViewCell::layoutValueTexts(const CGRect& area) {
  const CGFloat width = contentView_->bounds().width();
  if (style_ == UITableViewCellStyle::kValue2) {
    const CGFloat start = std::min(area.maxX(), area.x() + kValue2Width + kValueGap);
    textLabel_->setTextAlignment(NSTextAlignment::kRight);
    textLabel_->setFrame(mirrored(
        CGRectMake(area.x(), 0, std::min(area.width(), kValue2Width), area.height()), width));
    detailTextLabel_->setFrame(
        mirrored(CGRectMake(start, 0, area.maxX() - start, area.height()), width));
    return;
  }
  const bool hasDetail = hasText(detailTextLabel_);
  const CGFloat wanted = hasDetail ? textSize(*detailTextLabel_, area.size).width : 0;
  const CGFloat gap = hasDetail ? kValueGap : 0;
  // The text comes first; the value gets what is left.
  const CGFloat most = std::max(0.0, area.width() - gap);
  const CGFloat text =
      hasDetail ? std::min(textSize(*textLabel_, {most, area.height()}).width, most) : area.width();
  const CGFloat value = std::min(wanted, area.width() - text - gap);
  textLabel_->setFrame(mirrored(
      CGRectMake(area.x(), 0, std::max(text, area.width() - value - gap), area.height()), width));
  detailTextLabel_->setFrame(mirrored(
      CGRectMake(area.maxX() - std::max(0.0, value), 0, std::max(0.0, value), area.height()),
      width));
}

void UITableViewCell::layoutSeparators() {
  const CGFloat line = hairline();
  const CGFloat width = bounds().width();
  const UIEdgeInsets inset = separatorInset();
  const CGFloat start =
      surroundings_.endsGroup
          ? 0
          : inset.left + (contentView_->frame().x() > 0 && editing_ ? kEditingIndentation : 0);
  topSeparator_->setHidden(!surroundings_.topSeparator);
  bottomSeparator_->setHidden(!surroundings_.bottomSeparator);
  topSeparator_->setFrame(CGRectMake(0, 0, width, line));
  bottomSeparator_->setFrame(
      mirrored(CGRectMake(start, bounds().height() - line,
                          std::max(0.0, width - start - std::max(0.0, inset.right)), line),
               width));
}

void UITableViewCell::nameAccessory() {
  if (dynamic_cast<UIControl*>(accessoryView_.get()) == nullptr) {
    return;
  }
  const std::string name = accessoryView_->accessibilityLabel();
  if ((name.empty() || name == accessoryName_) && hasText(textLabel_)) {
    accessoryName_ = textLabel_->text();
    accessoryView_->setAccessibilityLabel(accessoryName_);
  }
}

CGSize UITableViewCell::sizeThatFits(CGSize size) const {
  return {size.width, 44};
}

CGFloat UITableViewCell::deleteButtonWidth() const {
  return deleteButton_ == nullptr ? 0 : deleteButton_->preferredWidth();
}

void UITableViewCell::setDeletionOffset(CGFloat offset, const std::string& title) {
  const CGFloat sane = std::clamp(finite(offset), 0.0, bounds().width());
  if (deleteButton_ == nullptr) {
    if (title.empty()) {
      return;
    }
    deleteButton_ = std::make_shared<TableDeleteButton>();
    deleteButton_->addAction(
        [this](UIControl& /*sender*/) {
          if (const auto tapped = actions_.deleteTapped) {
            tapped();
          }
        },
        kTouchUpInside);
    addSubview(deleteButton_);
  }
  if (!title.empty()) {
    deleteButton_->setTitle(title);
  }
  deletionOffset_ = sane;
  // The row is moved as a whole; the button fills what is left of it.
  const bool rightToLeft = UIScreen::mainScreen().isRightToLeft();
  setBounds(CGRectMake(rightToLeft ? -sane : sane, 0, bounds().width(), bounds().height()));
  const CGFloat width = std::max(sane, deleteButton_->preferredWidth());
  deleteButton_->setFrame(
      mirrored(CGRectMake(bounds().width(), 0, width, bounds().height()), bounds().width()));
  if (sane > 0 || !title.empty()) {
    deleteButton_->setHidden(false);
  }
}

void UITableViewCell::hideDeleteButton() {
  if (deleteButton_ != nullptr && deletionOffset_ == 0) {
    deleteButton_->setHidden(true);
  }
}

}  // namespace zephyl
