// What every device must do with pictures and with the screen.

#include <limits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/CADisplayLink.h"
#include "platform/uikit/ImagePicker.h"
#include "platform/uikit/TextInput.h"
#include "platform/uikit/UIGraphics.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIView.h"

#include "hosts/contract/ScreenUnderTest.h"

namespace zephyl::contract {
namespace {

using ::testing::Each;

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

class GraphicsContractTest : public ScreenContractTest {
 protected:
  [[nodiscard]] UIGraphics& graphics() { return kit().graphics(); }
  [[nodiscard]] Data png(std::size_t width, std::size_t height) {
    return graphics().encodePNG({width, height, std::vector(width * height, 0xFF2040A0U)});
  }
};

ZEPHYLS_SCREEN_CONTRACT(GraphicsContractTest);

TEST_P(GraphicsContractTest, AContextHasTheSizeInPixelsRoundedUp) {
  const auto drawing = graphics().makeImageContext({10.1, 4}, 1.5, /*opaque=*/false);
  ASSERT_NE(drawing, nullptr);
  const CGBitmapRef bitmap = drawing->bitmap();
  EXPECT_EQ(bitmap->width, 16U);
  EXPECT_EQ(bitmap->height, 6U);
  EXPECT_EQ(bitmap->pixels.size(), 96U);
  EXPECT_THAT(bitmap->pixels, Each(0U));
}

TEST_P(GraphicsContractTest, AnOpaqueContextIsBlack) {
  EXPECT_THAT(graphics().makeImageContext({2, 2}, 2, /*opaque=*/true)->bitmap()->pixels,
              Each(0xFF000000U));
}

TEST_P(GraphicsContractTest, WhatIsDrawnIsInTheBitmap) {
  const auto drawing = graphics().makeImageContext({4, 2}, 2, /*opaque=*/false);
  drawing->context().fill({CGRectMake(0, 0, 2, 2)}, UIColor::redColor());
  const CGBitmapRef bitmap = drawing->bitmap();
  EXPECT_EQ(bitmap->pixels[3], 0xFFFF0000U);
  EXPECT_EQ(bitmap->pixels[4], 0U);
}

TEST_P(GraphicsContractTest, SizesThatAreNoneGiveNoContext) {
  for (const CGSize size : {CGSize{0, 5}, CGSize{-4, -4}, CGSize{kNaN, 5}, CGSize{1e6, 1e6},
                            CGSize{std::numeric_limits<CGFloat>::infinity(), 2}}) {
    EXPECT_EQ(graphics().makeImageContext(size, 2, false), nullptr);
  }
  EXPECT_EQ(graphics().makeImageContext({5, 5}, kNaN, false), nullptr);
}

TEST_P(GraphicsContractTest, APictureThatWasWrittenCanBeRead) {
  const Data file = png(30, 20);
  EXPECT_EQ(graphics().pixelSize(file), (CGSize{30, 20}));
  const CGBitmapRef bitmap = graphics().decode(file, 4096, nullptr);
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(bitmap->width, 30U);
  EXPECT_THAT(bitmap->pixels, Each(0xFF2040A0U));
}

TEST_P(GraphicsContractTest, NoSideIsLongerThanAsked) {
  const CGBitmapRef bitmap = graphics().decode(png(300, 100), 60, nullptr);
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(bitmap->width, 60U);
  EXPECT_EQ(bitmap->height, 20U);
}

TEST_P(GraphicsContractTest, WhatCannotBeReadGivesAnError) {
  Data cut = png(200, 200);
  cut.resize(cut.size() - 15);
  for (const Data& file : {Data{}, Data{1, 2, 3}, cut}) {
    NSError error;
    EXPECT_EQ(graphics().decode(file, 4096, &error), nullptr);
    EXPECT_FALSE(error.localizedDescription().empty());
    EXPECT_EQ(graphics().decode(file, 4096, nullptr), nullptr);
  }
  EXPECT_EQ(graphics().pixelSize({}), CGSize());
  EXPECT_EQ(graphics().pixelSize({1, 2, 3}), CGSize());
}

TEST_P(GraphicsContractTest, AnEmptyBitmapIsNoFile) {
  EXPECT_TRUE(graphics().encodePNG({}).empty());
}

class ScreenChangesContractTest : public ScreenContractTest {};

ZEPHYLS_SCREEN_CONTRACT(ScreenChangesContractTest);

TEST_P(ScreenChangesContractTest, BeginsAsAPhoneInLight) {
  UIScreen& screen = kit().screen();
  EXPECT_EQ(screen.bounds(), CGRectMake(0, 0, 390, 844));
  EXPECT_GE(screen.scale(), 0.5);
  EXPECT_EQ(screen.userInterfaceStyle(), UIUserInterfaceStyle::kLight);
  EXPECT_FALSE(screen.isRightToLeft());
}

TEST_P(ScreenChangesContractTest, TellsTheHandlerAfterAChange) {
  UIScreen& screen = kit().screen();
  std::string told;
  screen.setChangeHandler([&] { told += "old"; });
  screen.setChangeHandler([&] {
    told += screen.userInterfaceStyle() == UIUserInterfaceStyle::kDark ? "dark" : "light";
  });
  device().makeDark();
  EXPECT_EQ(told, "dark");
  device().resize(500, 700);
  EXPECT_EQ(told, "darkdark");
  EXPECT_EQ(screen.bounds(), CGRectMake(0, 0, 500, 700));
}

class DisplayLinkContractTest : public ScreenContractTest {};

ZEPHYLS_SCREEN_CONTRACT(DisplayLinkContractTest);

TEST_P(DisplayLinkContractTest, AFrameComesOnceAndLater) {
  CADisplayLink& link = kit().displayLink();
  int frames = 0;
  link.requestFrame([&] { frames += 100; });
  link.requestFrame([&] { ++frames; });
  EXPECT_EQ(frames, 0);
  ASSERT_TRUE(device().passTimeUntil([&] { return frames > 0; }));
  EXPECT_EQ(frames, 1);
}

TEST_P(DisplayLinkContractTest, TimeNeverGoesBackAndStandsStillInAFrame) {
  CADisplayLink& link = kit().displayLink();
  double last = link.timestamp();
  int frames = 0;
  std::function<void()> frame = [&] {
    EXPECT_GT(link.timestamp(), last);
    last = link.timestamp();
    EXPECT_EQ(link.timestamp(), last);
    if (++frames < 5) {
      link.requestFrame(frame);
    }
  };
  link.requestFrame(frame);
  ASSERT_TRUE(device().passTimeUntil([&] { return frames == 5; }));
  EXPECT_GE(link.timestamp(), last);
}

class ImagePickerContractTest : public ScreenContractTest {};

ZEPHYLS_SCREEN_CONTRACT(ImagePickerContractTest);

TEST_P(ImagePickerContractTest, AnswersLaterAndOnce) {
  const auto view = std::make_shared<UIView>();
  int answers = 0;
  kit().imagePicker().pick(UIImagePickerSource::kPhotoLibrary, *view,
                           [&](const UIImageRef& image, const NSError* error) {
                             ++answers;
                             EXPECT_EQ(image, nullptr);
                             EXPECT_EQ(error, nullptr);
                           });
  EXPECT_EQ(answers, 0);
  device().cancelPicking();
  EXPECT_TRUE(device().passTimeUntil([&] { return answers > 0; }));
  EXPECT_EQ(answers, 1);
}

// Something to type into.
class Field : public UIView, public TextInputClient {
 public:
  UIView& textInputView() override { return *this; }
  CGRect textInputRect() const override { return bounds(); }
  NSAttributedString::Attributes textInputAttributes() const override { return {}; }
  NSTextAlignment textInputAlignment() const override { return NSTextAlignment::kNatural; }
  std::string textInputText() const override { return {}; }
  UIReturnKeyType textInputReturnKey() const override { return UIReturnKeyType::kDefault; }
  void textInputDidChange(const std::string& /*text*/) override {}
  void textInputDidReturn() override {}
  void textInputDidTab(bool /*forwards*/) override {}
};

class TextInputContractTest : public ScreenContractTest {
 protected:
  Field first_;
  Field second_;
};

ZEPHYLS_SCREEN_CONTRACT(TextInputContractTest);

TEST_P(TextInputContractTest, TypingGoesToTheLastThatBegan) {
  TextInput& input = kit().textInput();
  EXPECT_EQ(device().typedInto(), nullptr);
  input.begin(first_);
  input.begin(second_);
  input.end(first_);
  input.update(first_);
  EXPECT_EQ(device().typedInto(), &second_);
  input.end(second_);
  EXPECT_EQ(device().typedInto(), nullptr);
  input.end(second_);
  EXPECT_EQ(device().typedInto(), nullptr);
}

}  // namespace
}  // namespace zephyl::contract
