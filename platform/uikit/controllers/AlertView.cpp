#include "platform/uikit/controllers/AlertView.h"

#include <algorithm>
#include <iterator>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/AlertBox.h"

namespace zephyl {

namespace {

constexpr CGFloat kMargin = 24;
constexpr CGFloat kSheetMargin = 8;
constexpr CGFloat kMaximumSheetWidth = 414;

AlertBoxStyle sheetStyle() {
  AlertBoxStyle style;
  style.titleFont = UIFont::systemFontOfSize(13, UIFont::Weight::kSemibold);
  style.textColor = UIColor::secondaryLabelColor();
  style.buttonHeight = 57;
  style.padding = 14;
  style.pairs = false;
  return style;
}

std::string withoutTrailingBreaks(std::string text) {
  while (!text.empty() && text.back() == '\n') {
    text.pop_back();
  }
  return text;
}

}  // namespace

AlertView::AlertView(UIAlertControllerStyle style)
    : style_(style),
      box_(std::make_shared<AlertBox>(style == UIAlertControllerStyle::kAlert ? AlertBoxStyle()
                                                                              : sheetStyle())) {
  addSubview(box_);
}

AlertView::~AlertView() = default;

void AlertView::setContent(const std::string& title, const std::string& message,
                           const std::vector<UIAlertActionRef>& actions,
                           const UIAlertActionRef& preferred) {
  buttons_.clear();
  std::shared_ptr<AlertButton> cancel;
  for (const auto& action : actions) {
    const bool isCancel = action->style() == UIAlertActionStyle::kCancel;
    const auto button = makeButton(action, preferred == nullptr ? isCancel : action == preferred);
    if (isCancel) {
      cancel = button;
    } else {
      buttons_.push_back(button);
    }
  }
  if (cancelBox_ != nullptr) {
    cancelBox_->removeFromSuperview();
    cancelBox_ = nullptr;
  }
  const bool apart = style_ == UIAlertControllerStyle::kActionSheet;
  if (cancel != nullptr && apart) {
    cancelBox_ = std::make_shared<AlertBox>(sheetStyle());
    cancelBox_->setButtons({cancel});
    addSubview(cancelBox_);
  } else if (cancel != nullptr) {
    // Beside another one it comes first, below several last.
    buttons_.insert(buttons_.size() == 1 ? buttons_.begin() : buttons_.end(), cancel);
  }
  box_->setTexts(title, message);
  box_->setButtons(buttons_);
  if (cancelBox_ != nullptr) {
    buttons_.push_back(cancel);
  }
  setNeedsLayout();
  if (superview() != nullptr) {
    superview()->setNeedsLayout();
  }
}

std::shared_ptr<AlertButton> AlertView::makeButton(const UIAlertActionRef& action,
                                                   bool emphasized) {
  const CGFloat size = style_ == UIAlertControllerStyle::kAlert ? 17 : 20;
  const auto weight = emphasized ? UIFont::Weight::kSemibold : UIFont::Weight::kRegular;
  auto button = std::make_shared<AlertButton>(action, UIFont::systemFontOfSize(size, weight));
  button->addTarget(
      weak_from_this(),
      [this](UIControl& sender) {
        const Choice choice = choice_;
        if (choice) {
          choice(static_cast<AlertButton&>(sender).action());
        }
      },
      kTouchUpInside);
  return button;
}

CGSize AlertView::availableSize() {
  UIScreen& screen = UIScreen::mainScreen();
  const CGRect area = UIEdgeInsetsInsetRect(screen.bounds(), screen.safeAreaInsets());
  return {area.width(), area.height()};
}

CGSize AlertView::sizeThatFits(CGSize size) const {
  if (style_ == UIAlertControllerStyle::kAlert) {
    return box_->sizeThatFits(
        {std::min(kAlertWidth, size.width), std::max(size.height - 2 * kMargin, 0.0)});
  }
  const CGFloat width = std::max(std::min(size.width - 2 * kSheetMargin, kMaximumSheetWidth), 0.0);
  CGFloat cancel = 0;
  if (cancelBox_ != nullptr) {
    cancel = cancelBox_->sizeThatFits({width, size.height}).height + kSheetMargin;
  }
  const CGFloat rest = std::max(size.height - cancel - kSheetMargin, 0.0);
  return {width, box_->sizeThatFits({width, rest}).height + cancel};
}

void AlertView::layoutSubviews() {
  const CGRect area = bounds();
  CGFloat cancel = 0;
  if (cancelBox_ != nullptr) {
    cancel = cancelBox_->sizeThatFits(area.size).height;
    cancelBox_->setFrame(CGRectMake(0, area.height() - cancel, area.width(), cancel));
    cancel += kSheetMargin;
  }
  box_->setFrame(CGRectMake(0, 0, area.width(), std::max(area.height() - cancel, 0.0)));
}

bool AlertView::moveFocus(const UIKeyPress& press) {
  const bool mirrored = UIScreen::mainScreen().isRightToLeft();
  const bool forwards =
      press.key == UIKey::kDown || press.key == (mirrored ? UIKey::kLeft : UIKey::kRight);
  const bool backwards =
      press.key == UIKey::kUp || press.key == (mirrored ? UIKey::kRight : UIKey::kLeft);
  if (!forwards && !backwards) {
    return false;
  }
  std::vector<std::shared_ptr<AlertButton>> order;
  std::ranges::copy_if(buttons_, std::back_inserter(order),
                       [](const auto& button) { return button->isEnabled(); });
  if (order.empty()) {
    return true;
  }
  const auto focused =
      std::ranges::find_if(order, [](const auto& button) { return button->isFirstResponder(); });
  const auto count = static_cast<std::ptrdiff_t>(order.size());
  std::ptrdiff_t next = forwards ? 0 : count - 1;
  if (focused != order.end()) {
    next = (focused - order.begin() + (forwards ? 1 : count - 1)) % count;
  }
  order[static_cast<std::size_t>(next)]->becomeFirstResponder();
  return true;
}

std::string AlertView::derivedAccessibilityLabel() const {
  const auto* const controller = dynamic_cast<const UIAlertController*>(viewController());
  if (controller == nullptr) {
    return {};
  }
  std::string label = controller->title();
  const std::string message = withoutTrailingBreaks(controller->message());
  if (!label.empty() && !message.empty()) {
    label.append(", ");
  }
  return label.append(message);
}

}  // namespace zephyl
