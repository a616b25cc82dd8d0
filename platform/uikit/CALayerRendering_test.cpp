#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/CAGradientLayer.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/UIViewAnimation.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Draws an ellipse in its bounds, and leaves the context as it should not.
class Dot : public UIView {
 public:
  explicit Dot(const CGRect& frame) : UIView(frame) {}
  void drawRect(CGContext& context, const CGRect& rect) override {
    ++drawn;
    context.fillEllipse(rect, UIColor::blueColor());
    context.clip({CGRectMake(0, 0, 1, 1)});
  }

  int drawn = 0;
};

class CALayerRenderingTest : public ::testing::Test {
 protected:
  CALayerRenderingTest() {
    layer_->setFrame(CGRectMake(10, 10, 50, 50));
    layer_->setBackgroundColor(UIColor::redColor());
  }

  std::shared_ptr<CALayer> add(const CGRect& frame, const UIColor& color) {
    auto added = std::make_shared<CALayer>();
    added->setFrame(frame);
    added->setBackgroundColor(color);
    layer_->addSublayer(added);
    return added;
  }

  std::vector<std::string> drawn(const CGRect& area = CGRectMake(0, 0, 100, 100),
                                 UIUserInterfaceStyle style = UIUserInterfaceStyle::kLight) {
    fake::RecordingContext context(area, style);
    layer_->render(context);
    return context.commands();
  }

  fake::Device device_;
  std::shared_ptr<CALayer> layer_ = std::make_shared<CALayer>();
};

TEST_F(CALayerRenderingTest, DrawsFromTheShadowUpToTheBorder) {
  layer_->setCornerRadius(4);
  layer_->setBorderWidth(2);
  layer_->setShadow({{0, 1}, 2, UIColor::blackColor()});
  add(CGRectMake(0, 0, 10, 10), UIColor::greenColor());
  const std::vector<std::string> commands = drawn();
  ASSERT_EQ(commands.size(), 4U);
  EXPECT_THAT(commands[0], ::testing::StartsWith("shadow"));
  EXPECT_EQ(commands[1], "fill (10 10 50 50) r=4 #ff0000ff");
  EXPECT_EQ(commands[2], "fill (10 10 10 10) #00ff00ff");
  EXPECT_THAT(commands[3], ::testing::StartsWith("stroke (10 10 50 50) r=4"));
}

TEST_F(CALayerRenderingTest, ClipsOnlyWhatIsAboveAMaskingLayer) {
  add(CGRectMake(40, 40, 20, 20), UIColor::greenColor());
  EXPECT_EQ(drawn()[1], "fill (50 50 20 20) #00ff00ff");
  layer_->setMasksToBounds(true);
  layer_->setBorderWidth(1);
  EXPECT_EQ(drawn()[1], "fill (50 50 20 20) #00ff00ff clip (10 10 50 50)");
  EXPECT_THAT(drawn()[2], ::testing::Not(::testing::HasSubstr("clip")));
}

TEST_F(CALayerRenderingTest, NothingIsDrawnOfWhatIsNotSeen) {
  add(CGRectMake(0, 0, 10, 10), UIColor::greenColor());
  layer_->setHidden(true);
  EXPECT_THAT(drawn(), IsEmpty());
  layer_->setHidden(false);
  layer_->setOpacity(0);
  EXPECT_THAT(drawn(), IsEmpty());
  layer_->setOpacity(1);
  layer_->setTransform(CGAffineTransformMakeScale(0, 1));
  EXPECT_THAT(drawn(), IsEmpty());
}

TEST_F(CALayerRenderingTest, WhatIsOutsideTheClipIsLeftOut) {
  add(CGRectMake(0, 0, 10, 10), UIColor::greenColor());
  const auto beyond = add(CGRectMake(60, 0, 10, 10), UIColor::blueColor());
  // Only the sublayer that reaches out of its superlayer lies there.
  EXPECT_THAT(drawn(CGRectMake(65, 0, 100, 100)), ElementsAre("fill (70 10 10 10) #0000ffff"));
  layer_->setMasksToBounds(true);
  EXPECT_THAT(drawn(CGRectMake(65, 0, 100, 100)), IsEmpty());
  EXPECT_THAT(drawn({}), IsEmpty());
}

TEST_F(CALayerRenderingTest, AViewOutsideTheClipIsNotAskedToDraw) {
  const auto dot = std::make_shared<Dot>(CGRectMake(0, 0, 10, 10));
  const auto reaching = std::make_shared<Dot>(CGRectMake(50, 0, 10, 10));
  dot->addSubview(reaching);
  layer_ = dot->layer();
  drawn(CGRectMake(55, 0, 10, 10));
  EXPECT_EQ(dot->drawn, 0);
  EXPECT_EQ(reaching->drawn, 1);
}

TEST_F(CALayerRenderingTest, OneThingIsFadedByItself) {
  layer_->setOpacity(0.5);
  EXPECT_THAT(drawn(), ElementsAre("fill (10 10 50 50) #ff000080"));
}

TEST_F(CALayerRenderingTest, SeveralThingsAreFadedTogether) {
  add(CGRectMake(0, 0, 10, 10), UIColor::greenColor());
  layer_->setOpacity(0.5);
  EXPECT_THAT(drawn(),
              ElementsAre("beginLayer (10 10 50 50) alpha=0.5", "fill (10 10 50 50) #ff0000ff",
                          "fill (10 10 10 10) #00ff00ff", "endLayer"));
}

TEST_F(CALayerRenderingTest, WhatAViewDrawsIsFadedTogetherWithItsBackground) {
  const auto dot = std::make_shared<Dot>(CGRectMake(0, 0, 10, 10));
  dot->setAlpha(0.5);
  layer_ = dot->layer();
  EXPECT_THAT(drawn(), ElementsAre("beginLayer (0 0 10 10) alpha=0.5",
                                   "ellipse (0 0 10 10) #0000ffff", "endLayer"));
}

TEST_F(CALayerRenderingTest, WhatAViewDoesToTheContextEndsWithItsDrawing) {
  const auto dot = std::make_shared<Dot>(CGRectMake(0, 0, 10, 10));
  dot->addSubview(std::make_shared<Dot>(CGRectMake(5, 5, 10, 10)));
  layer_ = dot->layer();
  EXPECT_THAT(drawn(),
              ElementsAre("ellipse (0 0 10 10) #0000ffff", "ellipse (5 5 10 10) #0000ffff"));
}

TEST_F(CALayerRenderingTest, DynamicColorsTakeTheContextsAppearance) {
  layer_->setBackgroundColor(UIColor::systemBlueColor());
  EXPECT_THAT(drawn(), ElementsAre("fill (10 10 50 50) #007affff"));
  EXPECT_THAT(drawn(CGRectMake(0, 0, 100, 100), UIUserInterfaceStyle::kDark),
              ElementsAre("fill (10 10 50 50) #0a84ffff"));
}

TEST_F(CALayerRenderingTest, TransformsAndBoundsOriginsPlaceWhatIsAbove) {
  add(CGRectMake(30, 30, 10, 10), UIColor::greenColor());
  layer_->setBounds(CGRectMake(30, 30, 50, 50));
  layer_->setTransform(CGAffineTransformMakeScale(0.5, 0.5));
  EXPECT_THAT(drawn(),
              ElementsAre("fill (22.5 22.5 25 25) #ff0000ff", "fill (22.5 22.5 5 5) #00ff00ff"));
}

TEST_F(CALayerRenderingTest, ContentsAreScaledWhileTheSizeIsAnimated) {
  const auto dot = std::make_shared<Dot>(CGRectMake(0, 0, 10, 10));
  animateWithDuration(1, [&] { dot->setFrame(CGRectMake(0, 0, 30, 10)); });
  layer_ = dot->layer();
  EXPECT_THAT(drawn(), ElementsAre("ellipse (0 0 10 10) #0000ffff"));
  dot->setContentMode(UIViewContentMode::kCenter);
  EXPECT_THAT(drawn(), ElementsAre("ellipse (-10 0 30 10) #0000ffff clip (0 0 100 100)"));
  dot->setContentMode(UIViewContentMode::kScaleAspectFit);
  EXPECT_THAT(drawn(), ElementsAre("ellipse (0 3.333 10 3.333) #0000ffff"));
  dot->setContentMode(UIViewContentMode::kRedraw);
  EXPECT_THAT(drawn(), ElementsAre("ellipse (0 0 30 10) #0000ffff"));
  dot->layer()->removeAllAnimations();
  EXPECT_THAT(drawn(), ElementsAre("ellipse (0 0 30 10) #0000ffff"));
}

TEST_F(CALayerRenderingTest, ATreeOfAnyDepthIsDrawn) {
  constexpr std::size_t kDepth = 10'000;
  for (std::size_t i = 1; i < kDepth; ++i) {
    const auto below = std::make_shared<CALayer>();
    below->setFrame(CGRectMake(0, 0, 100, 100));
    below->setBackgroundColor(UIColor::colorWithRed(0, 1, 0, 0.5));
    below->addSublayer(layer_);
    layer_ = below;
  }
  EXPECT_EQ(drawn().size(), kDepth);
}

TEST_F(CALayerRenderingTest, AGradientRunsFromPointToPoint) {
  const auto gradient = std::make_shared<CAGradientLayer>();
  gradient->setFrame(CGRectMake(0, 0, 20, 10));
  gradient->setColors({UIColor::redColor()});
  layer_ = gradient;
  EXPECT_THAT(drawn(), IsEmpty());
  gradient->setColors({UIColor::redColor(), UIColor::systemBlueColor()});
  gradient->setStartPoint({0, 0.5});
  gradient->setEndPoint({1, 0.5});
  ASSERT_EQ(drawn().size(), 1U);
  EXPECT_THAT(drawn()[0], ::testing::StartsWith("gradient (0 0 20 10)"));
  EXPECT_THAT(drawn()[0], ::testing::HasSubstr("#007affff"));
}

// A white layer of 100 by 100 points, with a red one of the same size in it.
class CoveredLayerTest : public ::testing::Test {
 protected:
  CoveredLayerTest() {
    below_->setBackgroundColor(UIColor::whiteColor());
    above_->setBackgroundColor(UIColor::redColor());
    for (const auto& layer : {below_, above_}) {
      layer->setFrame(CGRectMake(0, 0, 100, 100));
    }
    below_->addSublayer(above_);
  }
  [[nodiscard]] int fills(const CGRect& clip = CGRectMake(0, 0, 100, 100)) {
    fake::RecordingContext context(clip, UIUserInterfaceStyle::kLight);
    below_->render(context);
    return context.countOf("fill");
  }

  fake::Device device_;
  std::shared_ptr<CALayer> below_ = std::make_shared<CALayer>();
  std::shared_ptr<CALayer> above_ = std::make_shared<CALayer>();
};

TEST_F(CoveredLayerTest, ABackgroundThatNobodySeesIsNotDrawn) {
  EXPECT_EQ(fills(), 1);
}

TEST_F(CoveredLayerTest, ABackgroundIsDrawnWhereItIsSeenBesideTheLayerAboveIt) {
  above_->setFrame(CGRectMake(0, 10, 100, 90));
  EXPECT_EQ(fills(), 2);
  EXPECT_EQ(fills(CGRectMake(0, 10, 100, 20)), 1);
}

TEST_F(CoveredLayerTest, ABackgroundIsDrawnWhereItIsSeenThroughTheLayerAboveIt) {
  above_->setBackgroundColor(UIColor::colorWithRed(1, 0, 0, 0.9));
  EXPECT_EQ(fills(), 2);
  above_->setBackgroundColor(UIColor::redColor());
  above_->setOpacity(0.9);
  EXPECT_EQ(fills(), 2);
  above_->setOpacity(1);
  above_->setCornerRadius(1);
  EXPECT_EQ(fills(), 2);
  above_->setCornerRadius(0);
  above_->setHidden(true);
  EXPECT_EQ(fills(), 1);
}

// At their edges both are drawn in part.
TEST_F(CoveredLayerTest, ABackgroundIsDrawnUnderRoundAndTurnedEdges) {
  below_->setMasksToBounds(true);
  EXPECT_EQ(fills(), 1);
  below_->setCornerRadius(10);
  EXPECT_EQ(fills(), 2);
  below_->setCornerRadius(0);
  below_->setTransform(CGAffineTransformMakeRotation(0.1));
  EXPECT_EQ(fills(CGRectMake(40, 40, 10, 10)), 2);
}

}  // namespace
}  // namespace zephyl
