// Searching: the bar, what it tells, and the screen with what was found.

#include "platform/uikit/controllers/UISearchController.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/TreeDump.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/testing/LoggingController.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/tables/UIScrollView.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UITextField.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

using test::Log;
using test::taken;

class Listener : public UISearchBarDelegate, public UISearchResultsUpdating {
 public:
  void searchBarTextDidBeginEditing(UISearchBar&) override { log.emplace_back("begin"); }
  void searchBarTextDidEndEditing(UISearchBar&) override { log.emplace_back("end"); }
  void textDidChange(UISearchBar&, const std::string& text) override {
    log.push_back("text " + text);
  }
  void searchBarSearchButtonClicked(UISearchBar&) override { log.emplace_back("search"); }
  void searchBarCancelButtonClicked(UISearchBar&) override { log.emplace_back("cancel"); }
  void updateSearchResultsForSearchController(UISearchController& controller) override {
    log.push_back((controller.isActive() ? "update " : "over ") + controller.searchBar()->text());
  }
  Log log;
};

class SearchTest : public ::testing::Test {
 protected:
  SearchTest() {
    screen_->setView(scroll_);
    scroll_->setContentSize({390, 3000});
    search_->searchBar()->setFrame(CGRectMake(0, 0, 390, 56));
    search_->searchBar()->setDelegate(listener_);
    search_->setSearchResultsUpdater(listener_);
    scroll_->addSubview(search_->searchBar());
    navigation_ = UINavigationController::initWithRootViewController(screen_);
    window_->setRootViewController(navigation_);
    window_->layoutWindow();
  }

  UITextField& field() { return *test::viewOf<UITextField>(*search_->searchBar()); }
  UIButton& cancelButton() { return *test::viewOf<UIButton>(*search_->searchBar()); }
  void tapField() { test::tap(*window_, field()); }
  void type(const std::string& text) {
    field().textInputDidChange(text);
    window_->layoutWindow();
  }
  bool press(UIKey key) { return window_->sendKey({key, "", false, false}); }
  CGRect frameInWindow(const UIView& view) {
    return view.convertRectToView(view.bounds(), nullptr);
  }

  fake::Device device_;
  Log log_;
  std::shared_ptr<Listener> listener_ = std::make_shared<Listener>();
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIScrollView> scroll_ =
      std::make_shared<UIScrollView>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIViewController> screen_ = std::make_shared<UIViewController>();
  std::shared_ptr<test::LoggingController> results_ = test::screen("results", log_);
  std::shared_ptr<UISearchController> search_ = std::make_shared<UISearchController>(results_);
  std::shared_ptr<UINavigationController> navigation_;
};

TEST_F(SearchTest, TheBarIsAsHighAsTheVersionMakesIt) {
  UISearchBar bar;
  bar.sizeToFit();
  EXPECT_EQ(bar.bounds().size, (CGSize{390, 56}));
  device_.device().setSystemVersion("10.3");
  bar.sizeToFit();
  EXPECT_EQ(bar.bounds().size, (CGSize{390, 44}));
}

TEST_F(SearchTest, TheFieldMakesRoomForTheCancelButton) {
  EXPECT_EQ(field().frame(), CGRectMake(8, 10, 374, 36));
  EXPECT_TRUE(cancelButton().isHidden());
  search_->searchBar()->setShowsCancelButton(true);
  window_->layoutWindow();
  EXPECT_LT(field().frame().maxX(), 374);
  EXPECT_EQ(cancelButton().frame().x(), field().frame().maxX());
  EXPECT_FALSE(cancelButton().isHidden());
}

TEST_F(SearchTest, RightToLeftTheCancelButtonIsOnTheLeft) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  search_->searchBar()->setShowsCancelButton(true);
  window_->layoutWindow();
  EXPECT_EQ(cancelButton().frame().x(), 0);
  EXPECT_EQ(field().frame().maxX(), 382);
}

TEST_F(SearchTest, TypingIsToldTheUpdaterAndTheDelegate) {
  tapField();
  EXPECT_EQ(taken(listener_->log), (Log{"update ", "begin"}));
  type("an");
  EXPECT_EQ(taken(listener_->log), (Log{"update an", "text an"}));
  field().textInputDidReturn();
  EXPECT_EQ(taken(listener_->log), Log{"search"});
}

TEST_F(SearchTest, ATextThatIsSetIsToldNobody) {
  search_->searchBar()->setText("an");
  EXPECT_TRUE(listener_->log.empty());
  EXPECT_EQ(field().text(), "an");
}

TEST_F(SearchTest, EditingShowsTheCancelButtonWhichEndsTheSearch) {
  tapField();
  type("an");
  EXPECT_TRUE(search_->isActive());
  EXPECT_TRUE(search_->searchBar()->showsCancelButton());
  window_->layoutWindow();
  listener_->log.clear();
  device_.uikit()->displayLink().runUntilIdle();
  test::tap(*window_, cancelButton());
  EXPECT_FALSE(search_->isActive());
  EXPECT_EQ(search_->searchBar()->text(), "");
  EXPECT_FALSE(search_->searchBar()->isFirstResponder());
  EXPECT_EQ(listener_->log, (Log{"end", "over ", "cancel"}));
}

TEST_F(SearchTest, EscapeEndsTheSearchAndOnlyThat) {
  navigation_->pushViewController(std::make_shared<UIViewController>(), /*animated=*/false);
  navigation_->popViewControllerAnimated(/*animated=*/false);
  tapField();
  EXPECT_TRUE(press(UIKey::kEscape));
  EXPECT_FALSE(search_->isActive());
  EXPECT_FALSE(press(UIKey::kEscape));
}

TEST_F(SearchTest, ResultsAreShownBelowTheBarWhileThereIsAText) {
  tapField();
  EXPECT_FALSE(search_->showsResults());
  type("a");
  EXPECT_TRUE(search_->showsResults());
  EXPECT_EQ(frameInWindow(*results_->view()), CGRectMake(0, 47 + 44 + 56, 390, 844 - 147));
  EXPECT_EQ(results_->topLayoutGuide().length, 0);
  EXPECT_EQ(results_->bottomLayoutGuide().length, 34);
  EXPECT_TRUE(results_->hasAppeared());
  EXPECT_EQ(window_->hitTest({195, 500}), results_->view().get());
  type("");
  EXPECT_FALSE(search_->showsResults());
  EXPECT_EQ(results_->view()->superview(), nullptr);
  EXPECT_FALSE(results_->hasAppeared());
  EXPECT_EQ(results_->parentViewController(), nullptr);
}

TEST_F(SearchTest, ResultsCoverTheScreenThatDefinesThePresentationContext) {
  screen_->setDefinesPresentationContext(true);
  tapField();
  type("a");
  EXPECT_EQ(results_->view()->superview(), scroll_->superview());
  EXPECT_EQ(frameInWindow(*results_->view()), CGRectMake(0, 147, 390, 844 - 147));
}

TEST_F(SearchTest, WithoutOneThatDoesResultsCoverTheOutermostScreen) {
  tapField();
  type("a");
  EXPECT_EQ(results_->view()->superview(), navigation_->view()->superview());
  type("");
  EXPECT_EQ(results_->view()->superview(), nullptr);
  navigation_->setDefinesPresentationContext(true);
  type("a");
  EXPECT_EQ(results_->view()->superview(), navigation_->view()->superview());
}

TEST_F(SearchTest, TheBarComesToTheTopAndStaysThere) {
  scroll_->setContentOffset({0, -60});
  search_->setActive(true);
  type("a");
  EXPECT_EQ(frameInWindow(*search_->searchBar()).y(), 91);
  EXPECT_FALSE(scroll_->isScrollEnabled());
  search_->setActive(false);
  EXPECT_TRUE(scroll_->isScrollEnabled());
}

TEST_F(SearchTest, ActivatingTakesTheFocusToTheField) {
  search_->setActive(true);
  EXPECT_TRUE(field().isFirstResponder());
  EXPECT_EQ(listener_->log, (Log{"begin", "update "}));
  search_->setActive(true);
  EXPECT_EQ(listener_->log.size(), 2U);
}

TEST_F(SearchTest, ResultsGoWithTheScreenBelow) {
  search_->setActive(true);
  type("a");
  navigation_->setViewControllers({std::make_shared<UIViewController>()});
  EXPECT_EQ(results_->view()->superview(), nullptr);
  EXPECT_FALSE(results_->hasAppeared());
}

TEST_F(SearchTest, WithoutAResultsScreenOnlyTheUpdaterIsTold) {
  const auto plain = std::make_shared<UISearchController>(nullptr);
  plain->setSearchResultsUpdater(listener_);
  scroll_->addSubview(plain->searchBar());
  plain->setActive(true);
  plain->searchBar()->setText("a");
  EXPECT_FALSE(plain->showsResults());
}

TEST_F(SearchTest, ABarThatOutlivesItsControllerIsNoTrouble) {
  const auto bar = search_->searchBar();
  tapField();
  search_ = nullptr;
  test::viewOf<UITextField>(*bar)->textInputDidChange("b");
  EXPECT_FALSE(results_->isViewLoaded());
  EXPECT_EQ(listener_->log.back(), "text b");
}

TEST_F(SearchTest, AScreenReaderFindsASearchField) {
  EXPECT_EQ(accessibilityDescription(*search_->searchBar()), "searchField \"Search\"\n");
}

TEST_F(SearchTest, LongTextsNoTextAndNoRoomAreNoTrouble) {
  search_->searchBar()->setText(std::string(100'000, 'x') + "\xFF");
  search_->searchBar()->setFrame({});
  window_->layoutWindow();
  fake::RecordingContext context;
  window_->layer()->render(context);
  search_->searchBar()->setText("");
  EXPECT_EQ(search_->searchBar()->text(), "");
}

}  // namespace
}  // namespace zephyl
