// What stands below the sections of the editor, on each release.

#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/TextLayout.h"

#include "ui/editor/EditorTest.h"

namespace zephyl::test {
namespace {

constexpr char kMasks[] =
    "This will mask the message on Lock Screen as well as on Notification Center.";

class EditorFooters : public EditorTest {
 protected:
  // In the font and the width of the footers.
  CGFloat heightOf(const std::string& text) {
    TextStyle style;
    style.area.width = device_.uikit()->screen().bounds().width() - 20;
    return device_.uikit()
        ->textSystem()
        .layout(NSAttributedString(text, {UIFont::systemFontOfSize(13), UIColor::labelColor()}),
                style)
        ->size()
        .height;
  }
  // In a table of 390 points.
  void expectPlace(const UILabel& label) {
    const CGRect frame = label.frame();
    EXPECT_DOUBLE_EQ(frame.x(), 10);
    EXPECT_DOUBLE_EQ(frame.y(), 5);
    EXPECT_DOUBLE_EQ(frame.width(), 370);
    EXPECT_DOUBLE_EQ(frame.height(), heightOf(label.text()));
  }
  static GroupBuilder masking(const std::string& message) {
    return GroupBuilder(7, "Family")
        .with(keys::kHidesOnLockScreen, true)
        .with(keys::kMaskedMessage, message);
  }
};

TEST_F(EditorFooters, HeightsFollowTheRelease) {
  edit(GroupBuilder(7, "Family"));
  for (const char* version : {"6.0", "8.0", "8.3", "9.0", "10.3"}) {
    device_.device().setSystemVersion(version);
    EXPECT_EQ(footerHeight(0), 20) << version;
    EXPECT_EQ(footerHeight(1), 20) << version;
    EXPECT_EQ(footerHeight(2), 75) << version;
    EXPECT_EQ(footerHeight(3), 45) << version;
    EXPECT_EQ(footerHeight(4), 0) << version;
  }
  for (const char* version : {"11.0", "12.0", "13.0", "14.0"}) {
    device_.device().setSystemVersion(version);
    EXPECT_EQ(footerHeight(0), 35) << version;
    EXPECT_EQ(footerHeight(1), 35) << version;
    EXPECT_EQ(footerHeight(2), 100) << version;
    EXPECT_EQ(footerHeight(3), 65) << version;
    EXPECT_EQ(footerHeight(4), 0) << version;
  }
}

TEST_F(EditorFooters, AMaskedMessageMakesRoomForItselfOnEveryRelease) {
  const std::string longMessage(300, 'x');
  for (const std::string& message : {std::string("Later"), longMessage}) {
    edit(group(masking(message)));
    for (const char* version : {"10.3", "14.0"}) {
      device_.device().setSystemVersion(version);
      EXPECT_EQ(footerHeight(3), heightOf(message) + 65) << version;
    }
  }
  EXPECT_GT(heightOf(longMessage), heightOf("Later"));
}

TEST_F(EditorFooters, OnlyTheSectionsOfHidingAndMaskingHaveOne) {
  edit(GroupBuilder(7, "Family"));
  for (const std::int64_t section : {0, 1, 4}) {
    EXPECT_EQ(editor_->viewForFooterInSection(table(), section), nullptr);
  }
  ASSERT_NE(footerLabel(2), nullptr);
  ASSERT_NE(footerLabel(3), nullptr);
}

TEST_F(EditorFooters, TellWhatHidingDoes) {
  edit(GroupBuilder(7, "Family"));
  EXPECT_EQ(footerLabel(2)->text(),
            "Hide actual messages/conversations from default groups (All, All Groups, Favorites & "
            "Unknown).\n\nNote: Removing this group does not delete its grouped conversations.");
}

TEST_F(EditorFooters, TellWhatMaskingDoesAndTheMessageWhileItIsOn) {
  edit(GroupBuilder(7, "Family").with(keys::kMaskedMessage, "Later"));
  EXPECT_EQ(footerLabel(3)->text(), kMasks);
  edit(group(masking("Later")));
  EXPECT_EQ(footerLabel(3)->text(), std::string(kMasks) + "\n\nMasked Message: 'Later'");
}

TEST_F(EditorFooters, LookTheSameEachTime) {
  edit(GroupBuilder(7, "Family"));
  for (const std::int64_t section : {2, 3}) {
    const UILabel* const label = footerLabel(section);
    EXPECT_EQ(label->font(), UIFont::systemFontOfSize(13));
    EXPECT_EQ(label->numberOfLines(), 0);
    EXPECT_TRUE(label->clipsToBounds());
    EXPECT_EQ(label->minimumScaleFactor(), 0.8333333F);
    EXPECT_EQ(label->backgroundColor(), UIColor::clearColor());
    EXPECT_EQ(label->textColor(), UIColor::grayColor());
    EXPECT_EQ(label->textAlignment(), NSTextAlignment::kLeft);
    expectPlace(*label);
  }
  EXPECT_EQ(footerLabel(2)->baselineAdjustment(), UIBaselineAdjustment::kAlignCenters);
  EXPECT_EQ(footerLabel(3)->baselineAdjustment(), UIBaselineAdjustment::kAlignBaselines);
}

TEST_F(EditorFooters, AreInTheSystemsColorFromVersionThirteen) {
  device_.device().setSystemVersion("13.0");
  edit(group(GroupBuilder(7, "Family")));
  EXPECT_EQ(footerLabel(2)->textColor(), UIColor::secondaryLabelColor());
}

TEST_F(EditorFooters, AreAsWideAsTheTableAndAsHighAsOnTheScreen) {
  device_.uikit()->screen().setBounds(CGRectMake(0, 0, 1024, 768));
  edit(GroupBuilder(7, "Family"));
  const UILabel* const label = footerLabel(2);
  expectPlace(*label);
}

TEST_F(EditorFooters, OneThatIsUsedAgainHoldsOneLabel) {
  edit(GroupBuilder(7, "Family"));
  for (int i = 0; i < 5; ++i) {
    table().reloadData();
    settle();
  }
  EXPECT_EQ(viewsOf<UILabel>(*table().footerViewForSection(3)).size(),
            viewsOf<UILabel>(*editor_->viewForFooterInSection(table(), 3)).size());
  int tagged = 0;
  for (const UILabel* const label : viewsOf<UILabel>(*table().footerViewForSection(3))) {
    tagged += label->tag() == ZephylViewController::kFooterLabelTag ? 1 : 0;
  }
  EXPECT_EQ(tagged, 1);
}

}  // namespace
}  // namespace zephyl::test
