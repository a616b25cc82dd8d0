#include "ui/components/HRColorInfoView.h"

#include <algorithm>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/text/UILabel.h"

#include "ui/components/UIColorRingfold.h"

namespace zephyl {
namespace {

constexpr CGFloat kSwatchCornerRadius = 4;
constexpr CGFloat kFontSize = 12;

}  // namespace

const double kHRColorInfoViewLabelHeight = 18;
const double kHRColorInfoViewCornerRadius = 3;

HRColorInfoView::HRColorInfoView(const CGRect& frame)
    : UIView(frame), swatch_(std::make_shared<CALayer>()), label_(std::make_shared<UILabel>()) {
  setOpaque(false);
  layer()->setCornerRadius(kHRColorInfoViewCornerRadius);
  layer()->setBorderColor(UIColor::lightGrayColor());
  swatch_->setCornerRadius(kSwatchCornerRadius);
  swatch_->setMaskedCorners(static_cast<unsigned>(UIRectCorner::kTopLeft) |
                            static_cast<unsigned>(UIRectCorner::kTopRight));
  layer()->addSublayer(swatch_);
  label_->setFont(UIFont::boldSystemFontOfSize(kFontSize));
  label_->setTextAlignment(NSTextAlignment::kCenter);
  // The picker's screen is white in dark appearance too.
  label_->setTextColor(UIColor::darkGrayColor());
  addSubview(label_);
}

HRColorInfoView::~HRColorInfoView() = default;

void HRColorInfoView::setColor(const UIColor& color) {
  // The first one may be the colour that a new view has: its text is still to come.
  if (color_ == color && !label_->text().empty()) {
    return;
  }
  color_ = color;
  performWithoutAnimation([this] { swatch_->setBackgroundColor(color_); });
  label_->setText(hexadecimalLabelText(color));
}

void HRColorInfoView::layoutSubviews() {
  const CGSize size = bounds().size;
  const CGFloat swatchHeight = std::max(0.0, size.height - kHRColorInfoViewLabelHeight);
  layer()->setBorderWidth(1 / UIScreen::mainScreen().scale());
  swatch_->setFrame(CGRectMake(0, 0, size.width, swatchHeight));
  label_->setFrame(CGRectMake(0, size.height - kHRColorInfoViewLabelHeight, size.width,
                              kHRColorInfoViewLabelHeight));
}

}  // namespace zephyl
