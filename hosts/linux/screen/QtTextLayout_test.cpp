// Drawing what the text system has set.

#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "hosts/linux/screen/ScreenUnderTest.h"

namespace zephyl::linux_host {
namespace {

class QtTextLayoutTest : public ScreenTest {};

TEST_F(QtTextLayoutTest, RunsKeepTheirFontsAndColours) {
  NSAttributedString words = text("red", 17, UIColor::redColor());
  words.append(text(" blue", 34, UIColor::blueColor()));
  const TextLayoutRef line = kit().textSystem().layout(words, {});
  EXPECT_EQ(line->text(), words);
  EXPECT_NEAR(line->size().height, 40.57, 0.01);
  Canvas paper(200, 50, 1, kit().paintCaches());
  paper->draw(*line, {0, 0});
  int red = 0;
  int blue = 0;
  for (int y = 0; y < 50; ++y) {
    for (int x = 0; x < 200; ++x) {
      const QColor pixel = paper.at(x, y);
      red += static_cast<int>(pixel.red() > 250 && pixel.blue() < 60);
      blue += static_cast<int>(pixel.blue() > 250 && pixel.red() < 60);
    }
  }
  EXPECT_GT(red, 5);
  EXPECT_GT(blue, 5);
}

TEST_F(QtTextLayoutTest, ColoursAreThoseOfTheAppearanceThatIsDrawn) {
  const TextLayoutRef line =
      kit().textSystem().layout(text("label", 17, UIColor::labelColor()), {});
  Canvas light(60, 21, 1, kit().paintCaches());
  light->draw(*line, {0, 0});
  EXPECT_GT(light.inked(), 20);
  Canvas dark(60, 21, 1, kit().paintCaches(), UIUserInterfaceStyle::kDark);
  dark->draw(*line, {0, 0});
  EXPECT_EQ(dark.inked(), 0);
}

TEST_F(QtTextLayoutTest, ATextIsSetOnce) {
  const TextLayoutRef first = layout("again", {{100, 100}});
  const std::size_t before = kit().textSystem().misses();
  EXPECT_EQ(layout("again", {{100, 100}}), first);
  EXPECT_EQ(kit().textSystem().misses(), before);
  EXPECT_NE(layout("again", {{101, 100}}), first);
  EXPECT_NE(kit().textSystem().layout(text("again", 17, UIColor::redColor()), {{100, 100}}), first);
}

TEST_F(QtTextLayoutTest, OtherThreadsMeasureAndDrawTheSame) {
  const TextLayoutRef here = layout("from 😀 afar", {});
  Canvas paper(120, 21, 1, kit().paintCaches());
  paper->draw(*here, {0, 0});
  CGSize size;
  QImage image;
  TextLayoutRef fromThere;
  std::thread([&] {
    Canvas other(120, 21, 1, kit().paintCaches());
    const TextLayoutRef there = layout("from 😀 afar", {{1e5, 1e5}});
    size = there->size();
    other->draw(*there, {0, 0});
    image = other.image().copy();
    fromThere = there;
  }).join();
  EXPECT_EQ(size, here->size());
  EXPECT_EQ(image, paper.image());
  Canvas again(120, 21, 1, kit().paintCaches());
  again->draw(*fromThere, {0, 0});
  EXPECT_EQ(again.image(), paper.image());
}

}  // namespace
}  // namespace zephyl::linux_host
