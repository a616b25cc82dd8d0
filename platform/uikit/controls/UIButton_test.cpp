#include "platform/uikit/controls/UIButton.h"

#include <limits>

#include <gtest/gtest.h>

#include "platform/uikit/CGBitmap.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UIImageView.h"
#include "platform/uikit/text/UILabel.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

UIImageRef picture(std::size_t width, std::size_t height) {
  auto bitmap = std::make_shared<CGBitmap>();
  bitmap->width = width;
  bitmap->height = height;
  bitmap->pixels.assign(width * height, 0xFF000000);
  return std::make_shared<const UIImage>(bitmap, 1);
}

class UIButtonTest : public ::testing::Test {
 protected:
  UIButtonTest() { window_->addSubview(button_); }

  void showFrames() {
    window_->layoutWindow();
    device_.uikit()->displayLink().runUntilIdle();
  }
  void touch(UITouchPhase phase) { test::touch(*window_, phase, {110, 110}); }
  [[nodiscard]] const UILabel& label() const { return *button_->titleLabel(); }
  [[nodiscard]] const UIImageView& image() const { return *button_->imageView(); }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 400, 400));
  std::shared_ptr<UIButton> button_ =
      std::make_shared<UIButton>(UIButtonType::kSystem, CGRectMake(100, 100, 200, 44));
};

TEST_F(UIButtonTest, SystemButtonShowsItsTitleInTheTint) {
  button_->setTitle("Done");
  EXPECT_EQ(label().text(), "Done");
  EXPECT_EQ(label().textColor(), button_->tintColor());
  window_->setTintColor(UIColor::redColor());
  EXPECT_EQ(label().textColor(), UIColor::redColor());
  EXPECT_EQ(button_->titleFont(), UIFont::systemFontOfSize(15));
}

TEST_F(UIButtonTest, CustomButtonShowsItsTitleInWhite) {
  const UIButton custom;
  EXPECT_EQ(custom.buttonType(), UIButtonType::kCustom);
  EXPECT_EQ(custom.titleLabel()->textColor(), UIColor::whiteColor());
  EXPECT_EQ(custom.titleFont(), UIFont::systemFontOfSize(18));
}

TEST_F(UIButtonTest, StateWithoutATitleHasThatOfTheNormalState) {
  button_->setTitle("Follow");
  button_->setTitle("Following", kControlStateSelected);
  EXPECT_EQ(button_->titleForState(kControlStateHighlighted), "Follow");
  button_->setSelected(true);
  EXPECT_EQ(label().text(), "Following");
  button_->setHighlighted(true);
  EXPECT_EQ(label().text(), "Following");
  button_->setSelected(false);
  EXPECT_EQ(label().text(), "Follow");
}

TEST_F(UIButtonTest, DimsAtOnceWhilePressedAndLightsUpSlowly) {
  button_->setTitle("Done");
  touch(UITouchPhase::kBegan);
  EXPECT_EQ(label().layer()->presentation().opacity, 0.2);
  touch(UITouchPhase::kEnded);
  EXPECT_EQ(label().alpha(), 1);
  EXPECT_LT(label().layer()->presentation().opacity, 1);
  showFrames();
  EXPECT_EQ(label().layer()->presentation().opacity, 1);
}

TEST_F(UIButtonTest, CustomButtonDimsOnlyItsPicture) {
  const auto custom = UIButton::buttonWithType(UIButtonType::kCustom);
  custom->setTitle("Done");
  custom->setImage(picture(10, 10));
  custom->setHighlighted(true);
  EXPECT_EQ(custom->titleLabel()->alpha(), 1);
  EXPECT_EQ(custom->imageView()->alpha(), 0.3);
  custom->setHighlighted(false);
  custom->setEnabled(false);
  EXPECT_EQ(custom->imageView()->alpha(), 0.5);
}

TEST_F(UIButtonTest, PictureOfItsOwnForAPressIsNotDimmed) {
  button_->setImage(picture(10, 10));
  button_->setImage(picture(12, 12), kControlStateHighlighted);
  button_->setHighlighted(true);
  EXPECT_EQ(image().image()->size().width, 12);
  EXPECT_EQ(image().alpha(), 1);
}

TEST_F(UIButtonTest, DisabledTitleIsGreyUnlessItHasAColour) {
  button_->setTitle("Save");
  button_->setTitleColor(UIColor::redColor());
  EXPECT_EQ(label().textColor(), UIColor::redColor());
  button_->setEnabled(false);
  EXPECT_EQ(label().textColor(), UIColor::tertiaryLabelColor());
  button_->setTitleColor(UIColor::blueColor(), kControlStateDisabled);
  EXPECT_EQ(label().textColor(), UIColor::blueColor());
}

TEST_F(UIButtonTest, AttributedTitleKeepsItsColours) {
  const NSAttributedString title("Delete", {UIFont::boldSystemFontOfSize(20), UIColor::redColor()});
  button_->setTitle("plain");
  button_->setAttributedTitle(title);
  EXPECT_EQ(label().attributedText(), title);
  EXPECT_EQ(button_->currentTitle(), "Delete");
}

TEST_F(UIButtonTest, PictureOfASystemButtonIsDrawnInTheTint) {
  button_->setImage(picture(10, 10));
  EXPECT_EQ(image().image()->renderingMode(), UIImageRenderingMode::kAlwaysTemplate);
  const UIImageRef original =
      picture(10, 10)->imageWithRenderingMode(UIImageRenderingMode::kAlwaysOriginal);
  button_->setImage(original);
  EXPECT_EQ(image().image(), original);
  button_->setImage(nullptr);
  EXPECT_EQ(image().image(), nullptr);
}

TEST_F(UIButtonTest, PictureStandsBeforeTheTitleInTheMiddle) {
  button_->setTitle("Ab");
  button_->setImage(picture(20, 20));
  window_->layoutWindow();
  const CGFloat width = label().frame().width();
  EXPECT_EQ(image().frame(), CGRectMake((200 - 20 - width) / 2, 12, 20, 20));
  EXPECT_EQ(label().frame().x(), image().frame().maxX());
  EXPECT_EQ(label().frame().midY(), 22);
}

TEST_F(UIButtonTest, RightToLeftPutsThePictureBehindTheTitle) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  button_->setTitle("Ab");
  button_->setImage(picture(20, 20));
  button_->setContentEdgeInsets({0, 10, 0, 0});
  button_->setContentHorizontalAlignment(UIControlContentHorizontalAlignment::kLeading);
  window_->layoutWindow();
  EXPECT_EQ(image().frame().maxX(), 190);
  EXPECT_EQ(label().frame().maxX(), 170);
}

TEST_F(UIButtonTest, AlignmentAndInsetsMoveTheContents) {
  button_->setTitle("Ab");
  button_->setContentHorizontalAlignment(UIControlContentHorizontalAlignment::kLeading);
  button_->setContentEdgeInsets({0, 16, 0, 4});
  window_->layoutWindow();
  EXPECT_EQ(label().frame().x(), 16);
  button_->setContentHorizontalAlignment(UIControlContentHorizontalAlignment::kTrailing);
  window_->layoutWindow();
  EXPECT_EQ(label().frame().maxX(), 196);
  button_->setTitleEdgeInsets({0, -6, 0, 6});
  window_->layoutWindow();
  EXPECT_EQ(label().frame().maxX(), 190);
}

TEST_F(UIButtonTest, TitleThatIsTooLongIsCutNotThePicture) {
  button_->setTitle(std::string(100000, 'x'));
  button_->setImage(picture(20, 20));
  window_->layoutWindow();
  EXPECT_EQ(image().frame().x(), 0);
  EXPECT_EQ(label().frame().maxX(), 200);
}

TEST_F(UIButtonTest, SizeFollowsTitlePictureAndInsets) {
  button_->setTitle("Hello");
  const CGSize title = label().sizeThatFits({1000, 1000});
  EXPECT_EQ(button_->intrinsicContentSize(), (CGSize{title.width, title.height + 12}));
  button_->setContentEdgeInsets({1, 2, 3, 4});
  EXPECT_EQ(button_->intrinsicContentSize(), (CGSize{title.width + 6, title.height + 4}));
  UIButton pictureOnly;
  pictureOnly.setImage(picture(25, 30));
  EXPECT_EQ(pictureOnly.sizeThatFits({}), (CGSize{25, 30}));
}

TEST_F(UIButtonTest, StrangeTextsAndSizesDoNoHarm) {
  const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
  button_->setTitle("\xff\xfe");
  button_->setContentEdgeInsets({nan, nan, nan, nan});
  button_->setFrame(CGRectMake(0, 0, nan, -3));
  window_->layoutWindow();
  button_->setFrame(CGRectMake(0, 0, 0, 0));
  window_->layoutWindow();
  EXPECT_EQ(label().frame().width(), 0);
}

TEST_F(UIButtonTest, ScreenReaderIsToldTitleAndState) {
  button_->setTitle("Done");
  EXPECT_EQ(button_->accessibilityRole(), UIAccessibilityRole::kButton);
  EXPECT_EQ(button_->accessibilityLabel(), "Done");
  int taps = 0;
  button_->addAction([&taps](UIControl&) { ++taps; }, kTouchUpInside);
  EXPECT_TRUE(button_->accessibilityActivate());
  EXPECT_EQ(taps, 1);
}

}  // namespace
}  // namespace zephyl
