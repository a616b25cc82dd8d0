// The bar: where title and buttons stand, what they do, how they change.

#include "platform/uikit/controllers/UINavigationBar.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/TreeDump.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controls/UIControl.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UILabel.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

using test::viewsOf;

class NavigationBarTest : public ::testing::Test {
 protected:
  NavigationBarTest() {
    screen_->setTitle("Groups");
    navigation_ = UINavigationController::initWithRootViewController(screen_);
    window_->setRootViewController(navigation_);
    window_->layoutWindow();
  }

  UIBarButtonItemRef item(UIBarButtonSystemItem system) {
    return std::make_shared<UIBarButtonItem>(system, screen_,
                                             [this](UIBarButtonItem& sender) { sent_ = &sender; });
  }
  UIBarButtonItemRef item(const std::string& title,
                          UIBarButtonItemStyle style = UIBarButtonItemStyle::kPlain) {
    return std::make_shared<UIBarButtonItem>(title, style, screen_,
                                             [this](UIBarButtonItem& sender) { sent_ = &sender; });
  }
  // Of a new screen on top.
  UINavigationItem& push(const std::string& title) {
    const auto pushed = std::make_shared<UIViewController>();
    pushed->setTitle(title);
    navigation_->pushViewController(pushed, /*animated=*/false);
    window_->layoutWindow();
    return *pushed->navigationItem();
  }
  UIControl& button(const UIBarButtonItemRef& shown) {
    window_->layoutWindow();
    for (UIView* const each : test::viewsNamed(*window_, "UIBarButton")) {
      const bool holds = shown->customView() != nullptr
                             ? shown->customView()->isDescendantOfView(each)
                             : each->accessibilityLabel() == shown->accessibilityLabel();
      if (holds) {
        return dynamic_cast<UIControl&>(*each);
      }
    }
    throw std::runtime_error("no button");
  }
  // Null when there is none.
  UIView* backButton() {
    window_->layoutWindow();
    const auto found = test::viewsNamed(*window_, "UIBackButton");
    return found.empty() ? nullptr : found.front();
  }
  UILabel& label(const std::string& text) {
    auto* const found = dynamic_cast<UILabel*>(test::viewShowing(*window_, text));
    if (found == nullptr) {
      throw std::runtime_error("no label " + text);
    }
    return *found;
  }
  CGRect frameInWindow(const UIView& view) {
    return view.convertRectToView(view.bounds(), nullptr);
  }
  void mirror() {
    device_.uikit()->screen().setUserInterfaceLayoutDirection(
        UIUserInterfaceLayoutDirection::kRightToLeft);
    navigation_->navigationBar()->setNeedsLayout();
    for (UIView* const view : viewsOf<UIView>(*window_)) {
      view->setNeedsLayout();
    }
    window_->layoutWindow();
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIViewController> screen_ = std::make_shared<UIViewController>();
  std::shared_ptr<UINavigationController> navigation_;
  UIBarButtonItem* sent_ = nullptr;
};

TEST_F(NavigationBarTest, TheTitleStandsInTheMiddle) {
  UILabel& title = label("Groups");
  EXPECT_EQ(title.font(), UIFont::systemFontOfSize(17, UIFont::Weight::kSemibold));
  EXPECT_NEAR(frameInWindow(title).midX(), 195, 0.5);
  EXPECT_NEAR(frameInWindow(title).midY(), 47 + 22, 0.5);
  screen_->setTitle("Other");
  window_->layoutWindow();
  EXPECT_EQ(label("Other").text(), "Other");
}

TEST_F(NavigationBarTest, TheBackgroundGoesUpToTheEdgeAndAHairlineEndsIt) {
  const auto& views = navigation_->navigationBar()->subviews();
  EXPECT_EQ(frameInWindow(*views.at(0)), CGRectMake(0, 0, 390, 91));
  EXPECT_EQ(frameInWindow(*views.at(1)).y(), 91);
  EXPECT_NEAR(frameInWindow(*views.at(1)).height(), 1 / 3.0, 1e-9);
}

TEST_F(NavigationBarTest, TheOutermostButtonsComeFirst) {
  const auto outer = item(UIBarButtonSystemItem::kDone);
  const auto inner = item(UIBarButtonSystemItem::kAdd);
  const auto left = item(UIBarButtonSystemItem::kCancel);
  screen_->navigationItem()->setRightBarButtonItems({outer, inner});
  screen_->navigationItem()->setLeftBarButtonItem(left);
  EXPECT_EQ(frameInWindow(button(outer)).maxX(), 382);
  EXPECT_EQ(frameInWindow(button(inner)).maxX(), frameInWindow(button(outer)).x());
  EXPECT_EQ(frameInWindow(button(left)).x(), 8);
  EXPECT_EQ(screen_->navigationItem()->rightBarButtonItem(), outer);
}

TEST_F(NavigationBarTest, RightToLeftTheSidesChange) {
  const auto right = item(UIBarButtonSystemItem::kDone);
  const auto left = item(UIBarButtonSystemItem::kCancel);
  screen_->navigationItem()->setRightBarButtonItem(right);
  screen_->navigationItem()->setLeftBarButtonItem(left);
  mirror();
  EXPECT_EQ(frameInWindow(button(right)).x(), 8);
  EXPECT_EQ(frameInWindow(button(left)).maxX(), 382);
  push("Second");
  EXPECT_EQ(frameInWindow(*backButton()).maxX(), 390);
}

TEST_F(NavigationBarTest, EveryButtonCanBeHit) {
  const auto add = item(UIBarButtonSystemItem::kAdd);
  screen_->navigationItem()->setRightBarButtonItem(add);
  EXPECT_GE(button(add).bounds().width(), 44);
  EXPECT_GE(button(add).bounds().height(), 44);
  push("Second");
  EXPECT_GE(backButton()->bounds().width(), 44);
}

TEST_F(NavigationBarTest, AButtonSendsItsItem) {
  const auto add = item(UIBarButtonSystemItem::kAdd);
  screen_->navigationItem()->setRightBarButtonItem(add);
  test::tap(*window_, button(add));
  EXPECT_EQ(sent_, add.get());
}

TEST_F(NavigationBarTest, AButtonThatIsNotEnabledSendsNothing) {
  const auto done = item(UIBarButtonSystemItem::kDone);
  screen_->navigationItem()->setRightBarButtonItem(done);
  done->setEnabled(false);
  EXPECT_FALSE(button(done).isEnabled());
  EXPECT_EQ(label("Done").textColor(), UIColor::tertiaryLabelColor());
  test::tap(*window_, button(done));
  EXPECT_EQ(sent_, nullptr);
  done->setEnabled(true);
  test::tap(*window_, button(done));
  EXPECT_EQ(sent_, done.get());
}

TEST_F(NavigationBarTest, AButtonWhoseScreenIsGoneSendsNothing) {
  auto target = std::make_shared<int>(1);
  const auto add = std::make_shared<UIBarButtonItem>(
      UIBarButtonSystemItem::kAdd, target, [this](UIBarButtonItem& sender) { sent_ = &sender; });
  target = nullptr;
  EXPECT_FALSE(add->performAction());
  EXPECT_EQ(sent_, nullptr);
}

TEST_F(NavigationBarTest, AnActionMayReplaceTheButtonThatSentIt) {
  const auto edit = std::make_shared<UIBarButtonItem>(
      UIBarButtonSystemItem::kEdit, screen_, [this](UIBarButtonItem&) {
        screen_->navigationItem()->setRightBarButtonItem(item("Delete"), /*animated=*/true);
      });
  screen_->navigationItem()->setRightBarButtonItem(edit);
  test::tap(*window_, button(edit));
  device_.uikit()->displayLink().runUntilIdle();
  EXPECT_EQ(test::viewsNamed(*window_, "UIBarButton").size(), 1U);
  EXPECT_EQ(label("Delete").text(), "Delete");
}

TEST_F(NavigationBarTest, DoneAndSaveAreSemibold) {
  const auto save = item(UIBarButtonSystemItem::kSave);
  const auto next = item("Next", UIBarButtonItemStyle::kDone);
  screen_->navigationItem()->setRightBarButtonItems({save, next, item("Plain")});
  window_->layoutWindow();
  EXPECT_EQ(label("Save").font().weight(), UIFont::Weight::kSemibold);
  EXPECT_EQ(label("Next").font().weight(), UIFont::Weight::kSemibold);
  EXPECT_EQ(label("Plain").font().weight(), UIFont::Weight::kRegular);
}

TEST_F(NavigationBarTest, SystemTextsAreTheSystems) {
  device_.files().put("/System/Library/Frameworks/UIKit.framework/en.lproj/UIKit.strings",
                      "\"Cancel\" = \"Abort\";");
  EXPECT_EQ(item(UIBarButtonSystemItem::kCancel)->title(), "Abort");
  EXPECT_EQ(item(UIBarButtonSystemItem::kEdit)->title(), "Edit");
}

TEST_F(NavigationBarTest, TheBackButtonTellsWhereItLeads) {
  push("Second");
  EXPECT_EQ(label("Groups").superview(), backButton());
  test::tap(*window_, *backButton());
  device_.uikit()->displayLink().runUntilIdle();
  EXPECT_EQ(navigation_->topViewController(), screen_);
  EXPECT_EQ(backButton(), nullptr);
}

TEST_F(NavigationBarTest, WhereTheTitleHasNoRoomItSaysBackAndThenNothing) {
  screen_->setTitle("A rather long title of a screen");
  push("Second");
  EXPECT_EQ(viewsOf<UILabel>(*backButton()).at(0)->text(), "Back");
  push(std::string(60, 'x'));
  EXPECT_EQ(viewsOf<UILabel>(*backButton()).at(0)->text(), "");
  EXPECT_EQ(backButton()->accessibilityLabel(), "Second");
}

TEST_F(NavigationBarTest, LeftButtonsTakeThePlaceOfTheBackButton) {
  push("Second").setLeftBarButtonItem(item(UIBarButtonSystemItem::kCancel));
  window_->layoutWindow();
  EXPECT_EQ(backButton(), nullptr);
  push("Third").setHidesBackButton(true);
  window_->layoutWindow();
  EXPECT_EQ(backButton(), nullptr);
}

TEST_F(NavigationBarTest, ALongTitleStaysBetweenTheButtons) {
  screen_->setTitle(std::string(100'000, 'x'));
  const auto right = item("Some button");
  screen_->navigationItem()->setRightBarButtonItem(right);
  const CGRect sides = frameInWindow(button(right));
  const CGRect title = frameInWindow(label(std::string(100'000, 'x')));
  EXPECT_LE(title.maxX(), sides.x());
  EXPECT_GE(title.x(), 0);
}

TEST_F(NavigationBarTest, ACustomViewIsShownAsItIs) {
  const auto custom = std::make_shared<UIView>(CGRectMake(0, 0, 60, 20));
  const auto shown = std::make_shared<UIBarButtonItem>(custom);
  screen_->navigationItem()->setRightBarButtonItem(shown);
  EXPECT_EQ(button(shown).bounds().width(), 60);
  EXPECT_EQ(custom->bounds().size, (CGSize{60, 20}));
  const auto title = std::make_shared<UIView>(CGRectMake(0, 0, 100, 30));
  screen_->navigationItem()->setTitleView(title);
  window_->layoutWindow();
  EXPECT_NEAR(frameInWindow(*title).midX(), 195, 0.5);
  EXPECT_EQ(frameInWindow(*title).height(), 30);
}

TEST_F(NavigationBarTest, AScreenReaderReadsItFromTheLeadingSide) {
  screen_->navigationItem()->setLeftBarButtonItem(item(UIBarButtonSystemItem::kCancel));
  screen_->navigationItem()->setRightBarButtonItem(item(UIBarButtonSystemItem::kAdd));
  window_->layoutWindow();
  EXPECT_EQ(accessibilityDescription(*navigation_->navigationBar()),
            "button \"Cancel\"\nheader \"Groups\"\nbutton \"Add\"\n");
}

TEST_F(NavigationBarTest, ThePlusIsDrawnInTheTint) {
  const auto add = item(UIBarButtonSystemItem::kAdd);
  screen_->navigationItem()->setRightBarButtonItem(add);
  fake::RecordingContext context;
  button(add).layer()->render(context);
  EXPECT_EQ(context.countOf("line"), 2);
}

TEST_F(NavigationBarTest, WithoutAScreenTheBarIsEmpty) {
  navigation_->setViewControllers({});
  EXPECT_EQ(accessibilityDescription(*navigation_->navigationBar()), "");
}

}  // namespace
}  // namespace zephyl
