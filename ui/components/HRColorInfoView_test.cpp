#include "ui/components/HRColorInfoView.h"

#include <memory>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/text/UILabel.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class HRColorInfoViewTest : public ::testing::Test {
 protected:
  HRColorInfoViewTest() { window_->addSubview(info_); }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<HRColorInfoView> info_ =
      std::make_shared<HRColorInfoView>(CGRectMake(8, 16, 66, 84));
};

TEST_F(HRColorInfoViewTest, ItsConstantsAreWhatOthersBuildOn) {
  EXPECT_EQ(kHRColorInfoViewLabelHeight, 18.0);
  EXPECT_EQ(kHRColorInfoViewCornerRadius, 3.0);
}

TEST_F(HRColorInfoViewTest, SwatchAndTextShowTheColour) {
  info_->setColor(UIColor::colorWithRed(1, 0.5, 0, 1));
  window_->layoutWindow();
  EXPECT_EQ(info_->hexColorLabel()->text(), "#ff7f00");
  EXPECT_EQ(info_->hexColorLabel()->frame(), CGRectMake(0, 66, 66, 18));
  EXPECT_EQ(info_->hexColorLabel()->font().weight(), UIFont::Weight::kBold);
  EXPECT_EQ(info_->layer()->state().cornerRadius, kHRColorInfoViewCornerRadius);
  EXPECT_EQ(info_->layer()->state().borderWidth, 1 / 3.0);
  const CALayer& swatch = *info_->layer()->sublayers().front();
  EXPECT_EQ(swatch.frame(), CGRectMake(0, 0, 66, 66));
  EXPECT_EQ(swatch.state().cornerRadius, 4);
  EXPECT_EQ(swatch.maskedCorners(), static_cast<unsigned>(UIRectCorner::kTopLeft) |
                                        static_cast<unsigned>(UIRectCorner::kTopRight));
  EXPECT_EQ(swatch.state().backgroundColor, info_->color());
}

// The colour that a new view has already.
TEST_F(HRColorInfoViewTest, ClearIsShownAsATextToo) {
  EXPECT_EQ(info_->hexColorLabel()->text(), "");
  info_->setColor(UIColor::clearColor());
  EXPECT_EQ(info_->hexColorLabel()->text(), "#000000");
}

}  // namespace
}  // namespace zephyl
