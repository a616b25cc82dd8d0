#include "hosts/fake/uikit/RecordingContext.h"

#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl::fake {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecordingContextTest : public ::testing::Test {
 protected:
  static TextLayoutRef text(const std::string& string, NSTextAlignment alignment) {
    return uikitHost().textSystem().layout(
        {string, {UIFont::boldSystemFontOfSize(10), UIColor::labelColor()}},
        {{100, 20}, 1, NSLineBreakMode::kTruncatingTail, alignment});
  }

  Device device_;
  RecordingContext context_{CGRectMake(0, 0, 100, 100)};
};

TEST_F(RecordingContextTest, WritesWhatIsDrawnWithTransformsWorkedOut) {
  context_.saveState();
  context_.concat(CGAffineTransformMakeTranslation(10, 20));
  context_.concat(CGAffineTransformMakeScale(2, 2));
  context_.fill({CGRectMake(1, 1, 10, 5), 3, 3}, UIColor::redColor());
  context_.restoreState();
  context_.fillEllipse(CGRectMake(0, 0, 4, 4.25), UIColor::colorWithWhite(0, 0.5));
  EXPECT_THAT(context_.commands(), ElementsAre("fill (12 22 20 10) r=3 corners=3 #ff0000ff",
                                               "ellipse (0 0 4 4.25) #00000080"));
}

TEST_F(RecordingContextTest, LeavesOutWhatTheClipHidesAndSaysWhatItCuts) {
  context_.saveState();
  context_.clip({CGRectMake(0, 0, 50, 10)});
  context_.fill({CGRectMake(0, 20, 5, 5)}, UIColor::redColor());
  context_.fill({CGRectMake(0, 5, 10, 10)}, UIColor::blueColor());
  context_.restoreState();
  context_.fill({CGRectMake(0, 20, 5, 5)}, UIColor::blackColor());
  EXPECT_THAT(context_.commands(), ElementsAre("fill (0 5 10 10) #0000ffff clip (0 0 50 10)",
                                               "fill (0 20 5 5) #000000ff"));
}

TEST_F(RecordingContextTest, TellsTheClipInTheCurrentCoordinates) {
  context_.concat(CGAffineTransformMakeTranslation(30, 0));
  EXPECT_EQ(context_.clipBounds(), CGRectMake(-30, 0, 100, 100));
}

TEST_F(RecordingContextTest, ResolvesColorsByItsOwnAppearance) {
  RecordingContext dark(CGRectMake(0, 0, 10, 10), UIUserInterfaceStyle::kDark);
  dark.fill({CGRectMake(0, 0, 1, 1)}, UIColor::systemBlueColor());
  context_.fill({CGRectMake(0, 0, 1, 1)}, UIColor::systemBlueColor());
  EXPECT_THAT(dark.commands(), ElementsAre("fill (0 0 1 1) #0a84ffff"));
  EXPECT_THAT(context_.commands(), ElementsAre("fill (0 0 1 1) #007affff"));
}

TEST_F(RecordingContextTest, WritesTextsWhereTheyStand) {
  context_.draw(*text("ab", NSTextAlignment::kLeft), {5, 5});
  context_.draw(*text("cd", NSTextAlignment::kCenter), {0, 5});
  context_.draw(*text("", NSTextAlignment::kLeft), {0, 5});
  EXPECT_THAT(context_.commands(), ElementsAre("text \"ab\" (5 5 10 12) 10 bold #000000ff",
                                               "text \"cd\" (45 5 10 12) 10 bold #000000ff"));
  EXPECT_THAT(context_.texts(), ElementsAre("ab", "cd"));
  EXPECT_EQ(context_.countOf("text"), 2);
  context_.clear();
  EXPECT_THAT(context_.commands(), IsEmpty());
}

TEST_F(RecordingContextTest, WritesImagesWithTheTintOfTemplates) {
  const auto image = UIImage::imageWithData(fakePicture(20, 10), 2);
  const auto pattern = image->imageWithRenderingMode(UIImageRenderingMode::kAlwaysTemplate);
  context_.draw(*image, CGRectMake(0, 0, 10, 5), UIColor::redColor());
  context_.draw(*pattern, CGRectMake(0, 0, 10, 5), UIColor::redColor());
  context_.draw(UIImage(Data{1, 2}), CGRectMake(0, 0, 10, 5), UIColor::redColor());
  EXPECT_THAT(context_.commands(),
              ElementsAre("image (0 0 10 5) 10x5", "image (0 0 10 5) 10x5 tint #ff0000ff"));
}

TEST_F(RecordingContextTest, WritesLinesGradientsShadowsStrokesAndLayers) {
  context_.beginLayer(0.5, CGRectMake(0, 0, 100, 100));
  context_.stroke(Polyline{{{10, 10}, {20, 30}}}, 2, UIColor::redColor());
  context_.stroke(RoundedRect{CGRectMake(1, 2, 3, 4), 1}, 0.5, UIColor::redColor());
  context_.fillGradient({CGRectMake(0, 0, 9, 9)},
                        {{{0, UIColor::clearColor()}, {1, UIColor::blackColor()}}, {0, 0}, {0, 9}});
  context_.drawShadow({CGRectMake(20, 20, 10, 10)}, {{0, 2}, 3, UIColor::blackColor()});
  context_.endLayer();
  EXPECT_THAT(context_.commands(),
              ElementsAre("beginLayer (0 0 100 100) alpha=0.5",
                          "line (9 9 12 22) 10,10 20,30 w=2 #ff0000ff",
                          "stroke (1 2 3 4) r=1 w=0.5 #ff0000ff",
                          "gradient (0 0 9 9) #00000000@0 #000000ff@1 0,0-0,9",
                          "shadow (17 19 16 16) offset=0,2 blur=3 #000000ff", "endLayer"));
}

}  // namespace
}  // namespace zephyl::fake
