#include "platform/uikit/tables/UITableViewCell.h"

#include <algorithm>
#include <utility>

#include "platform/uikit/AccessibilityTree.h"
#include "platform/uikit/UIKitText.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/controls/UIControl.h"
#include "platform/uikit/tables/TableAccessoryView.h"
#include "platform/uikit/tables/TableDeleteButton.h"
#include "platform/uikit/tables/TableEditControl.h"
#include "platform/uikit/text/UIImageView.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {
namespace {

constexpr CGRect kInitialFrame{{0, 0}, {320, 44}};
constexpr double kSelectionDuration = 0.3;
constexpr double kEditingDuration = 0.3;

std::shared_ptr<UILabel> makeLabel(CGFloat size) {
  auto label = std::make_shared<UILabel>();
  label->setFont(UIFont::systemFontOfSize(size));
  return label;
}

}  // namespace

UITableViewCell::UITableViewCell(UITableViewCellStyle style, std::string reuseIdentifier)
    : UIView(kInitialFrame),
      style_(style),
      reuseIdentifier_(std::move(reuseIdentifier)),
      contentView_(std::make_shared<UIView>(kInitialFrame)),
      selectedBackgroundView_(std::make_shared<UIView>(kInitialFrame)),
      textLabel_(makeLabel(17)),
      imageView_(std::make_shared<UIImageView>()),
      accessory_(std::make_shared<TableAccessoryView>()),
      topSeparator_(std::make_shared<UIView>()),
      bottomSeparator_(std::make_shared<UIView>()) {
  selectedBackgroundView_->setBackgroundColor(UIColor::systemGray4Color());
  selectedBackgroundView_->setUserInteractionEnabled(false);
  selectedBackgroundView_->setAlpha(0);
  contentView_->setOpaque(false);
  addSubview(selectedBackgroundView_);
  addSubview(contentView_);
  addSubview(accessory_);
  for (const auto& separator : {topSeparator_, bottomSeparator_}) {
    separator->setBackgroundColor(UIColor::separatorColor());
    separator->setUserInteractionEnabled(false);
    separator->setHidden(true);
    addSubview(separator);
  }
  accessory_->setHidden(true);
  makeTexts();
}

UITableViewCell::~UITableViewCell() = default;

void UITableViewCell::makeTexts() {
  switch (style_) {
    case UITableViewCellStyle::kDefault:
      break;
    case UITableViewCellStyle::kValue1:
      detailTextLabel_ = makeLabel(17);
      detailTextLabel_->setTextColor(UIColor::secondaryLabelColor());
      break;
    case UITableViewCellStyle::kValue2:
      textLabel_->setFont(UIFont::systemFontOfSize(12));
      textLabel_->setTextColor(UIColor::systemBlueColor());
      detailTextLabel_ = makeLabel(15);
      break;
    case UITableViewCellStyle::kSubtitle:
      detailTextLabel_ = makeLabel(12);
      break;
  }
  contentView_->addSubview(textLabel_);
  if (detailTextLabel_ != nullptr) {
    contentView_->addSubview(detailTextLabel_);
  }
}

const std::shared_ptr<UILabel>& UITableViewCell::textLabel() {
  setNeedsLayout();
  return textLabel_;
}

const std::shared_ptr<UILabel>& UITableViewCell::detailTextLabel() {
  setNeedsLayout();
  return detailTextLabel_;
}

const std::shared_ptr<UIImageView>& UITableViewCell::imageView() {
  setNeedsLayout();
  return imageView_;
}

void UITableViewCell::setAccessoryType(UITableViewCellAccessoryType type) {
  if (type == accessoryType_) {
    return;
  }
  accessoryType_ = type;
  setNeedsLayout();
}

void UITableViewCell::setAccessoryView(const std::shared_ptr<UIView>& view) {
  if (view == accessoryView_) {
    return;
  }
  if (accessoryView_ != nullptr && accessoryView_->superview() == this) {
    accessoryView_->removeFromSuperview();
  }
  accessoryView_ = view;
  accessoryName_.clear();
  if (view != nullptr) {
    addSubview(view);
  }
  setNeedsLayout();
}

void UITableViewCell::setSelectionStyle(UITableViewCellSelectionStyle style) {
  if (style == selectionStyle_) {
    return;
  }
  selectionStyle_ = style;
  updateSelection(/*animated=*/false);
}

void UITableViewCell::setIndentationLevel(std::int64_t level) {
  if (level == indentationLevel_) {
    return;
  }
  indentationLevel_ = level;
  setNeedsLayout();
}

void UITableViewCell::setSeparatorInset(const UIEdgeInsets& inset) {
  if (inset == separatorInset_) {
    return;
  }
  separatorInset_ = inset;
  setNeedsLayout();
}

void UITableViewCell::setBackgroundColor(const UIColor& color) {
  ownBackground_ = std::make_unique<UIColor>(color);
  UIView::setBackgroundColor(color);
}

void UITableViewCell::setSurroundings(const Surroundings& surroundings) {
  if (surroundings == surroundings_) {
    return;
  }
  surroundings_ = surroundings;
  if (ownBackground_ == nullptr) {
    UIView::setBackgroundColor(surroundings.background);
  }
  setNeedsLayout();
}

void UITableViewCell::setHighlighted(bool highlighted, bool animated) {
  if (highlighted == highlighted_) {
    return;
  }
  highlighted_ = highlighted;
  updateSelection(animated);
}

void UITableViewCell::setSelected(bool selected, bool animated) {
  if (selected == selected_) {
    return;
  }
  selected_ = selected;
  if (editControl_ != nullptr) {
    editControl_->setSelected(selected);
  }
  updateSelection(animated);
}

bool UITableViewCell::showsSelection() const {
  return (highlighted_ || selected_) && selectionStyle_ != UITableViewCellSelectionStyle::kNone;
}

void UITableViewCell::updateSelection(bool animated) {
  const bool shown = showsSelection();
  if (shown == selectionShown_) {
    return;
  }
  selectionShown_ = shown;
  if (shown) {
    clearBackgrounds();
  } else {
    restoreBackgrounds();
  }
  const auto show = [this, shown] { selectedBackgroundView_->setAlpha(shown ? 1 : 0); };
  if (animated) {
    animateWithDuration(kSelectionDuration, show);
  } else {
    selectedBackgroundView_->layer()->removeAllAnimations();
    performWithoutAnimation(show);
  }
}

void UITableViewCell::clearBackgrounds() {
  std::vector<std::shared_ptr<UIView>> left(subviews().begin(), subviews().end());
  while (!left.empty()) {
    const auto view = std::move(left.back());
    left.pop_back();
    const bool own =
        view == selectedBackgroundView_ || view == topSeparator_ || view == bottomSeparator_;
    if (own || dynamic_cast<UIControl*>(view.get()) != nullptr) {
      continue;
    }
    left.insert(left.end(), view->subviews().begin(), view->subviews().end());
    if (view->backgroundColor() != UIColor::clearColor()) {
      cleared_.emplace_back(view);
      view->putBackgroundAside();
    }
  }
}

void UITableViewCell::restoreBackgrounds() {
  for (const auto& weak : std::exchange(cleared_, {})) {
    if (const auto view = weak.lock()) {
      view->restoreBackground();
    }
  }
}

void UITableViewCell::setEditing(bool editing, bool animated) {
  if (editing == editing_) {
    return;
  }
  editing_ = editing;
  setNeedsLayout();
  if (animated && window() != nullptr) {
    animateWithDuration(kEditingDuration, [this] { layoutIfNeeded(); });
  }
}

void UITableViewCell::prepareForReuse() {
  setHighlighted(false, false);
  setSelected(false, false);
}

std::string UITableViewCell::accessibilityValue() const {
  if (surroundings_.position <= 0) {
    return {};
  }
  std::string text = uikitText("%ld of %ld");
  for (const std::int64_t number : {surroundings_.position, surroundings_.count}) {
    if (const std::size_t at = text.find("%ld"); at != std::string::npos) {
      text.replace(at, 3, std::to_string(number));
    }
  }
  return text;
}

UIAccessibilityState UITableViewCell::accessibilityState() const {
  UIAccessibilityState state;
  state.enabled = isUserInteractionEnabled();
  state.selected = selected_;
  state.checked = accessoryType_ == UITableViewCellAccessoryType::kCheckmark;
  state.focused = surroundings_.focused;
  return state;
}

bool UITableViewCell::accessibilityActivate() {
  const auto kept = weak_from_this().lock();
  const auto activate = actions_.activate;
  return activate != nullptr && activate();
}

std::string UITableViewCell::derivedAccessibilityLabel() const {
  // What is read of the row: the texts that are shown in it, from the top.
  std::string label;
  std::vector<const UIView*> left{contentView_.get()};
  while (!left.empty()) {
    const UIView* const view = left.back();
    left.pop_back();
    if (view->isHidden() || view->alpha() < 0.01 || dynamic_cast<const UIControl*>(view)) {
      continue;
    }
    const std::string text =
        view->isAccessibilityElement() ? view->accessibilityLabel() : std::string();
    if (!text.empty()) {
      label.append(label.empty() ? "" : ", ").append(text);
    }
    const auto& subviews = view->subviews();
    for (auto subview = subviews.rbegin(); subview != subviews.rend(); ++subview) {
      left.push_back(subview->get());
    }
  }
  return label;
}

}  // namespace zephyl
