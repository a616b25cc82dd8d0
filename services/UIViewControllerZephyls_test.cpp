// Alerts and the busy box: texts, order, threads, and screens that have gone.

#include "services/UIViewControllerZephyls.h"

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controls/UIActivityIndicatorView.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"
#include "model/ZPLocalizedText.h"

namespace zephyl {
namespace {

class ShowTest : public ::testing::Test {
 protected:
  ShowTest() {
    navigation_ = UINavigationController::initWithRootViewController(screen_);
    window_->setRootViewController(navigation_);
  }

  // Null when there is none.
  std::shared_ptr<UIAlertController> shown() {
    return std::dynamic_pointer_cast<UIAlertController>(screen_->presentedViewController());
  }
  void settle() { device_.uikit()->displayLink().runUntilIdle(); }
  // Of the alert that the queued request shows.
  std::vector<std::string> texts() {
    device_.dispatch().runMain();
    settle();
    const auto alert = shown();
    if (alert == nullptr) {
      return {};
    }
    std::vector<std::string> texts{alert->title(), alert->message()};
    for (const auto& action : alert->actions()) {
      texts.push_back(action->title());
    }
    return texts;
  }
  void answer() {
    shown()->choose(shown()->actions().at(0));
    settle();
  }
  UIActivityIndicatorView& spinnerIn(const UIAlertController& box) {
    auto* const spinner = test::viewOf<UIActivityIndicatorView>(*box.viewIfLoaded());
    EXPECT_NE(spinner, nullptr);
    return *spinner;
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIViewController> screen_ = std::make_shared<UIViewController>();
  std::shared_ptr<UINavigationController> navigation_;
};

using Texts = std::vector<std::string>;

TEST_F(ShowTest, EachKindHasItsTitle) {
  zp__showInformation(screen_, "Saved.");
  EXPECT_EQ(texts(), (Texts{"Information", "Saved.", "OK"}));
  answer();
  zp__showWarning(screen_, "Careful.");
  EXPECT_EQ(texts(), (Texts{"Warning", "Careful.", "OK"}));
  answer();
  zp__showError(screen_, "");
  EXPECT_EQ(texts(), (Texts{"Error", "", "OK"}));
  answer();
  zp__showAlertWithTitle(screen_, "Own title", "Own text", nullptr);
  EXPECT_EQ(texts(), (Texts{"Own title", "Own text", "OK"}));
}

TEST_F(ShowTest, TitlesAndTheButtonAreLocalizedMessagesAreNot) {
  device_.files().put(std::string(kZephylsSettingsBundlePath) + "/en.lproj/Localizable.strings",
                      "\"Error\" = \"Oh no\"; \"OK\" = \"Fine\"; \"Text\" = \"Never\";");
  zp__showError(screen_, "Text");
  EXPECT_EQ(texts(), (Texts{"Oh no", "Text", "Fine"}));
  answer();
  zp__showAlertWithTitle(screen_, "Error", "Text", nullptr);
  EXPECT_EQ(texts(), (Texts{"Error", "Text", "Fine"}));
}

TEST_F(ShowTest, TheButtonIsInTheDefaultStyle) {
  zp__showError(screen_, "It failed.");
  ASSERT_EQ(texts().size(), 3U);
  EXPECT_EQ(shown()->actions().at(0)->style(), UIAlertActionStyle::kDefault);
  EXPECT_EQ(shown()->preferredStyle(), UIAlertControllerStyle::kAlert);
}

TEST_F(ShowTest, TheCallReturnsBeforeTheAlertIsShown) {
  zp__showError(screen_, "It failed.");
  EXPECT_EQ(shown(), nullptr);
  device_.dispatch().runMain();
  ASSERT_NE(shown(), nullptr);
  EXPECT_TRUE(shown()->isAppearing());
  settle();
  EXPECT_TRUE(shown()->hasAppeared());
}

TEST_F(ShowTest, FromABackgroundThreadItIsShownAllTheSame) {
  device_.dispatch().runOnOwnThread([this] { zp__showError(screen_, "It failed."); });
  EXPECT_EQ(shown(), nullptr);
  EXPECT_EQ(texts(), (Texts{"Error", "It failed.", "OK"}));
}

TEST_F(ShowTest, FromABackgroundThreadEveryKindOfAlertIsShown) {
  const struct {
    std::function<void()> show;
    Texts texts;
  } kinds[] = {
      {[this] { zp__showInformation(screen_, "Saved."); }, {"Information", "Saved.", "OK"}},
      {[this] { zp__showWarning(screen_, "Careful."); }, {"Warning", "Careful.", "OK"}},
      {[this] { zp__showError(screen_, "Failed.", nullptr); }, {"Error", "Failed.", "OK"}},
      {[this] { zp__showAlertWithTitle(screen_, "Own", "Text", nullptr); }, {"Own", "Text", "OK"}},
  };
  for (const auto& kind : kinds) {
    device_.dispatch().runOnOwnThread(kind.show);
    EXPECT_EQ(shown(), nullptr) << kind.texts.front();
    ASSERT_EQ(texts(), kind.texts);
    answer();
  }
}

TEST_F(ShowTest, TheHandlerGetsTheActionOnceTheAlertHasGone) {
  std::vector<std::string> log;
  zp__showError(screen_, "It failed.", [&](UIAlertAction& action) {
    log.push_back(action.title());
    EXPECT_EQ(shown(), nullptr);
  });
  EXPECT_EQ(texts().size(), 3U);
  EXPECT_TRUE(log.empty());
  answer();
  EXPECT_EQ(log, Texts{"OK"});
}

TEST_F(ShowTest, WithoutAHandlerTheButtonOnlyClosesTheAlert) {
  zp__showAlertWithTitle(screen_, "Title", "Text", nullptr);
  EXPECT_EQ(texts().size(), 3U);
  answer();
  EXPECT_EQ(shown(), nullptr);
}

TEST_F(ShowTest, AScreenThatHasGoneShowsNothing) {
  auto gone = std::make_shared<UIViewController>();
  const std::weak_ptr<UIViewController> weak = gone;
  zp__showError(gone, "It failed.");
  gone = nullptr;
  EXPECT_TRUE(weak.expired());
  device_.dispatch().runMain();
  zp__showError(nullptr, "It failed.");
  device_.dispatch().runMain();
  EXPECT_EQ(shown(), nullptr);
}

TEST_F(ShowTest, TheBusyBoxIsThereAtOnce) {
  const auto box = zp__showActivityIndicator(screen_);
  EXPECT_EQ(shown(), box);
  EXPECT_TRUE(box->hasAppeared());
  EXPECT_EQ(box->presentingViewController(), navigation_);
  EXPECT_EQ(box->title(), "");
  EXPECT_TRUE(box->actions().empty());
}

TEST_F(ShowTest, ItsTextLeavesRoomForTheSpinner) {
  const auto plain = zp__showActivityIndicator(nullptr);
  EXPECT_EQ(plain->message(), "\n\n\n");
  EXPECT_EQ(spinnerIn(*plain).center(), (CGPoint{130.5, 80.5}));
  const auto titled = zp__showActivityIndicator(nullptr, "Updating");
  EXPECT_EQ(titled->message(), "Updating\n\n\n");
  EXPECT_EQ(spinnerIn(*titled).center(), (CGPoint{130.5, 80.5}));
  const auto detailed = zp__showActivityIndicator(nullptr, "Updating", "Please wait...");
  EXPECT_EQ(detailed->message(), "Updating\nPlease wait...\n\n\n");
  EXPECT_EQ(spinnerIn(*detailed).center(), (CGPoint{130.5, 90.5}));
}

TEST_F(ShowTest, TheSpinnerIsLargeBlackAndTurns) {
  const auto box = zp__showActivityIndicator(screen_, "Updating");
  const UIActivityIndicatorView& spinner = spinnerIn(*box);
  EXPECT_EQ(spinner.superview(), box->view().get());
  EXPECT_EQ(spinner.activityIndicatorViewStyle(), UIActivityIndicatorViewStyle::kWhiteLarge);
  EXPECT_EQ(spinner.color(), UIColor::blackColor());
  EXPECT_TRUE(spinner.isAnimating());
}

TEST_F(ShowTest, WithoutANavigationControllerItIsReturnedButNotShown) {
  const auto alone = std::make_shared<UIViewController>();
  window_->setRootViewController(alone);
  const auto box = zp__showActivityIndicator(alone, "Updating");
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(alone->presentedViewController(), nullptr);
  bool dismissed = false;
  box->dismissViewControllerAnimated(/*animated=*/true, [&] { dismissed = true; });
  EXPECT_TRUE(dismissed);
}

TEST_F(ShowTest, FromABackgroundThreadItIsShownWhenTheCallReturns) {
  std::shared_ptr<UIAlertController> box;
  bool shownThere = false;
  device_.dispatch().runOnOwnThread([&] {
    box = zp__showActivityIndicator(screen_, "Deleting", "Please wait...");
    shownThere = box->presentingViewController() != nullptr;
  });
  EXPECT_TRUE(shownThere);
  EXPECT_EQ(shown(), box);
}

TEST_F(ShowTest, TheOutcomeIsShownOnceTheBusyBoxHasGone) {
  const auto box = zp__showActivityIndicator(screen_, "Updating", "Please wait...");
  box->dismissViewControllerAnimated(/*animated=*/true,
                                     [this] { zp__showError(screen_, "It failed."); });
  settle();
  EXPECT_EQ(texts(), (Texts{"Error", "It failed.", "OK"}));
}

TEST_F(ShowTest, WhoeverPresentsTheBusyBoxCanCloseIt) {
  const auto box = zp__showActivityIndicator(screen_, "Updating");
  bool closed = false;
  ASSERT_NE(box->presentingViewController(), nullptr);
  box->presentingViewController()->dismissViewControllerAnimated(/*animated=*/true,
                                                                 [&] { closed = true; });
  EXPECT_FALSE(closed);
  settle();
  EXPECT_TRUE(closed);
  EXPECT_EQ(shown(), nullptr);
  EXPECT_EQ(box->presentingViewController(), nullptr);
}

// The box goes while its completion has not yet come: the alert waits for that.
TEST_F(ShowTest, AnAlertDuringTheDismissalOfTheBusyBoxIsNotLost) {
  const auto box = zp__showActivityIndicator(screen_);
  box->dismissViewControllerAnimated(/*animated=*/true);
  zp__showError(screen_, "It failed.");
  device_.dispatch().runMain();
  EXPECT_EQ(texts(), (Texts{"Error", "It failed.", "OK"}));
}

}  // namespace
}  // namespace zephyl
