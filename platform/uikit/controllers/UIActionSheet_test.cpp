// Choices at the lower edge of the screen.

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/controllers/testing/AlertFixture.h"

namespace zephyl {
namespace {

class ActionSheetTest : public test::AlertFixture {
 protected:
  std::shared_ptr<UIAlertController> sheet() {
    auto box = alert("", "", UIAlertControllerStyle::kActionSheet);
    add(*box, "Take Photo");
    add(*box, "Choose Photo");
    add(*box, "Cancel", UIAlertActionStyle::kCancel);
    return box;
  }
};

TEST_F(ActionSheetTest, ChoicesStandAtTheLowerEdgeTheCancelActionApart) {
  show(sheet());
  EXPECT_EQ(frameInWindow(button("Cancel")), CGRectMake(8, 844 - 34 - 57, 374, 57));
  EXPECT_EQ(frameInWindow(button("Choose Photo")).maxY(), 844 - 34 - 57 - 8);
  EXPECT_EQ(frameInWindow(button("Take Photo")).maxY(), frameInWindow(button("Choose Photo")).y());
}

TEST_F(ActionSheetTest, ATapBesideItIsTheCancelAction) {
  show(sheet());
  test::tap(*window_, {195, 100});
  settle();
  EXPECT_EQ(answers_, std::vector<std::string>{"Cancel"});
}

TEST_F(ActionSheetTest, ItSlidesUpFromBelow) {
  const auto box = sheet();
  root_->presentViewController(box, /*animated=*/true);
  EXPECT_GT(box->view()->layer()->presentation().transform.ty, 100);
  EXPECT_EQ(box->view()->alpha(), 1);
  settle();
  EXPECT_EQ(box->view()->transform(), CGAffineTransformIdentity);
}

TEST_F(ActionSheetTest, OnAWideScreenItStaysNarrow) {
  device_.uikit()->screen().setBounds(CGRectMake(0, 0, 1024, 768));
  window_->setFrame(CGRectMake(0, 0, 1024, 768));
  show(sheet());
  EXPECT_EQ(frameInWindow(button("Cancel")).width(), 414);
  EXPECT_NEAR(frameInWindow(button("Cancel")).midX(), 512, 0.5);
}

}  // namespace
}  // namespace zephyl
