// Alerts: what they look like, and how they are answered.

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/TreeDump.h"
#include "platform/uikit/controllers/testing/AlertFixture.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {
namespace {

using test::viewsOf;

class AlertTest : public test::AlertFixture {};

TEST_F(AlertTest, ABoxStandsInTheMiddleAboveADimmedScreen) {
  const auto box = alert();
  add(*box, "OK");
  show(box);
  const CGRect frame = frameInWindow(*box->view());
  // 20 above, 20.4 for the title, 4 between, 15.6 for the message, 20 below, 44 for the button.
  EXPECT_EQ(frame.width(), 270);
  EXPECT_NEAR(frame.height(), 124, 1);
  EXPECT_NEAR(frame.midX(), 195, 0.5);
  EXPECT_NEAR(frame.midY(), (47 + 844 - 34) / 2.0, 0.5);
  EXPECT_EQ(box->view()->subviews().at(0)->layer()->state().cornerRadius, 14);
  EXPECT_EQ(frameInWindow(*box->view()->superview()->subviews().at(0)), window_->bounds());
}

TEST_F(AlertTest, TheTitleIsSemiboldAndTheMessageSmaller) {
  const auto box = alert();
  show(box);
  const auto labels = viewsOf<UILabel>(*box->view());
  ASSERT_EQ(labels.size(), 2U);
  EXPECT_EQ(labels[0]->text(), "Error");
  EXPECT_EQ(labels[0]->font(), UIFont::systemFontOfSize(17, UIFont::Weight::kSemibold));
  EXPECT_EQ(labels[1]->text(), "It failed.");
  EXPECT_EQ(labels[1]->font(), UIFont::systemFontOfSize(13));
  EXPECT_EQ(labels[1]->textAlignment(), NSTextAlignment::kCenter);
}

TEST_F(AlertTest, TheViewIsThereBeforeItIsShown) {
  const auto busy = alert("", "Updating\nPlease wait...\n\n\n");
  const CGRect bounds = busy->view()->bounds();
  EXPECT_EQ(bounds.width(), 270);
  // Five lines of 15.6 points and what is above and below them.
  EXPECT_NEAR(bounds.height(), 5 * 15.6 + 40, 1);
  show(busy);
  EXPECT_EQ(busy->view()->bounds(), bounds);
}

TEST_F(AlertTest, TwoShortButtonsStandSideBySideTheCancelButtonFirst) {
  const auto box = alert();
  add(*box, "Delete", UIAlertActionStyle::kDestructive);
  add(*box, "Cancel", UIAlertActionStyle::kCancel);
  show(box);
  const CGRect cancel = frameInWindow(button("Cancel"));
  const CGRect remove = frameInWindow(button("Delete"));
  EXPECT_EQ(cancel.y(), remove.y());
  EXPECT_EQ(cancel.maxX(), remove.x());
  EXPECT_EQ(cancel.size, (CGSize{135, 44}));
  EXPECT_EQ(viewsOf<UILabel>(button("Cancel")).at(0)->font(),
            UIFont::systemFontOfSize(17, UIFont::Weight::kSemibold));
  EXPECT_EQ(viewsOf<UILabel>(button("Delete")).at(0)->textColor(), UIColor::systemRedColor());
}

TEST_F(AlertTest, RightToLeftTheyAreMirrored) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  const auto box = alert();
  add(*box, "Keep");
  add(*box, "Cancel", UIAlertActionStyle::kCancel);
  show(box);
  EXPECT_EQ(frameInWindow(button("Keep")).maxX(), frameInWindow(button("Cancel")).x());
}

TEST_F(AlertTest, LongTitlesAndMoreButtonsAreStackedTheCancelButtonLast) {
  const auto box = alert();
  add(*box, "Cancel", UIAlertActionStyle::kCancel);
  add(*box, "A title too long for half of the box");
  show(box);
  EXPECT_EQ(frameInWindow(button("Cancel")).size, (CGSize{270, 44}));
  add(*box, "Third");
  window_->layoutWindow();
  EXPECT_EQ(frameInWindow(button("Cancel")).y(), frameInWindow(button("Third")).maxY());
  EXPECT_EQ(frameInWindow(button("Cancel")).maxY(), frameInWindow(*box->view()).maxY());
}

TEST_F(AlertTest, AnAnswerFirstDismissesAndThenCallsTheHandler) {
  const auto box = alert();
  add(*box, "OK");
  show(box);
  test::tap(*window_, button("OK"));
  EXPECT_TRUE(answers_.empty());
  settle();
  EXPECT_EQ(answers_, std::vector<std::string>{"OK"});
  EXPECT_FALSE(presentedAtAnswer_);
}

TEST_F(AlertTest, OnlyTheFirstAnswerCounts) {
  const auto box = alert();
  const auto first = add(*box, "1");
  const auto second = add(*box, "2");
  show(box);
  box->choose(first);
  box->choose(second);
  box->choose(first);
  settle();
  EXPECT_EQ(answers_, std::vector<std::string>{"1"});
}

TEST_F(AlertTest, AnAnswerWithoutAHandlerOnlyDismisses) {
  const auto box = alert();
  box->addAction(UIAlertAction::actionWithTitle("OK", UIAlertActionStyle::kDefault, nullptr));
  show(box);
  test::tap(*window_, button("OK"));
  settle();
  EXPECT_EQ(root_->presentedViewController(), nullptr);
}

TEST_F(AlertTest, AHandlerMayShowAnotherAlert) {
  const auto box = alert();
  const auto next = alert("Next");
  box->addAction(UIAlertAction::actionWithTitle(
      "OK", UIAlertActionStyle::kDefault,
      [&](UIAlertAction&) { root_->presentViewController(next, /*animated=*/true); }));
  show(box);
  test::tap(*window_, button("OK"));
  settle();
  EXPECT_EQ(root_->presentedViewController(), next);
}

TEST_F(AlertTest, ADisabledActionAnswersNothing) {
  const auto box = alert();
  const auto action = add(*box, "OK");
  add(*box, "Other");
  action->setEnabled(false);
  box->setPreferredAction(nullptr);
  show(box);
  test::tap(*window_, button("OK"));
  box->choose(action);
  settle();
  EXPECT_TRUE(answers_.empty());
  EXPECT_EQ(root_->presentedViewController(), box);
  EXPECT_FALSE(button("OK").isEnabled());
}

TEST_F(AlertTest, AScreenReaderComesByNothingElse) {
  root_->view()->addSubview(std::make_shared<UILabel>());
  const auto box = alert("Error", "It failed.\n\n\n");
  add(*box, "OK");
  show(box);
  EXPECT_EQ(accessibilityDescription(*window_),
            "alert \"Error, It failed.\"\n"
            "  staticText \"Error\"\n"
            "  staticText \"It failed.\\n\\n\\n\"\n"
            "  button \"OK\"\n");
}

TEST_F(AlertTest, ItFadesInWhileItShrinksToItsSize) {
  const auto box = alert();
  root_->presentViewController(box, /*animated=*/true);
  const LayerState before = box->view()->layer()->presentation();
  EXPECT_EQ(before.opacity, 0);
  EXPECT_GT(before.transform.a, 1);
  device_.uikit()->displayLink().advance(0.3);
  EXPECT_EQ(box->view()->layer()->presentation().opacity, 1);
  EXPECT_EQ(box->view()->transform(), CGAffineTransformIdentity);
}

TEST_F(AlertTest, ALongMessageScrollsAboveItsButtons) {
  const auto box = alert("Title", std::string(100'000, 'a') + "\xFF");
  add(*box, "OK");
  show(box);
  const CGRect frame = frameInWindow(*box->view());
  EXPECT_GE(frame.y(), 47);
  EXPECT_LE(frame.maxY(), 844 - 34);
  EXPECT_EQ(frameInWindow(button("OK")).maxY(), frame.maxY());
}

TEST_F(AlertTest, EmptyTextsAndAWindowWithoutSizeAreNoTrouble) {
  window_->setFrame({});
  const auto box = alert("", "");
  add(*box, "");
  show(box);
  test::tap(*window_, button(""));
  window_->setFrame(CGRectMake(0, 0, 390, 844));
  window_->layoutWindow();
  EXPECT_EQ(frameInWindow(*box->view()).size, (CGSize{270, 44}));
}

TEST_F(AlertTest, ASecondCancelActionIsNotAdded) {
  const auto box = alert();
  add(*box, "Cancel", UIAlertActionStyle::kCancel);
  add(*box, "Close", UIAlertActionStyle::kCancel);
  box->addAction(nullptr);
  EXPECT_EQ(box->actions().size(), 1U);
}

}  // namespace
}  // namespace zephyl
