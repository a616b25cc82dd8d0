#include "platform/uikit/controllers/UISearchController.h"

#include <algorithm>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/tables/UIScrollView.h"

namespace zephyl {

UISearchController::UISearchController(
    const std::shared_ptr<UIViewController>& searchResultsController)
    : results_(searchResultsController) {}

UISearchController::~UISearchController() {
  if (results_ != nullptr && results_->isViewLoaded()) {
    results_->view()->removeFromSuperview();
  }
}

const std::shared_ptr<UISearchBar>& UISearchController::searchBar() {
  if (bar_ == nullptr) {
    bar_ = std::make_shared<UISearchBar>();
    const auto self = std::static_pointer_cast<UISearchController>(shared_from_this());
    const std::weak_ptr<UISearchController> weak = self;
    bar_->setObserver(
        {std::shared_ptr<UISearchBarDelegate>(self, self.get()), [weak](const UIKeyPress& press) {
           const auto controller = weak.lock();
           return controller != nullptr && controller->pressed(press);
         }});
  }
  return bar_;
}

void UISearchController::setActive(bool active) {
  if (active_ == active) {
    return;
  }
  const auto self = shared_from_this();
  active_ = active;
  searchBar()->setShowsCancelButton(active, /*animated=*/true);
  if (active) {
    searchBar()->becomeFirstResponder();
  } else {
    searchBar()->setText("");
    searchBar()->resignFirstResponder();
  }
  update();
}

void UISearchController::searchBarTextDidBeginEditing(UISearchBar& /*searchBar*/) {
  setActive(true);
}

void UISearchController::textDidChange(UISearchBar& /*searchBar*/, const std::string& /*text*/) {
  update();
}

void UISearchController::searchBarCancelButtonClicked(UISearchBar& /*searchBar*/) {
  setActive(false);
}

// What the field does not use may move through what was found.
bool UISearchController::pressed(const UIKeyPress& press) {
  const bool moves = press.key == UIKey::kUp || press.key == UIKey::kDown ||
                     press.key == UIKey::kPageUp || press.key == UIKey::kPageDown;
  return moves && showsResults() && results_->view()->pressesBegan(press);
}

void UISearchController::update() {
  const auto self = shared_from_this();
  if (const auto updater = updater_.lock()) {
    updater->updateSearchResultsForSearchController(*this);
  }
  if (active_ && !bar_->text().empty()) {
    showResults();
  } else {
    hideResults();
  }
}

UIEdgeInsets UISearchController::safeAreaInsetsForChild(const UIViewController& /*child*/) const {
  // The results begin below the bar.
  UIEdgeInsets insets = UIViewController::safeAreaInsets();
  insets.top = 0;
  return insets;
}

std::shared_ptr<UIViewController> UISearchController::screenOfBar() const {
  for (UIView* view = bar_.get(); view != nullptr; view = view->superview()) {
    if (view->viewController() != nullptr) {
      return view->viewController()->shared_from_this();
    }
  }
  return nullptr;
}

std::shared_ptr<UIViewController> UISearchController::screenToCover(
    std::shared_ptr<UIViewController> screen) {
  while (screen != nullptr && !screen->definesPresentationContext() &&
         screen->parentViewController() != nullptr) {
    screen = screen->parentViewController();
  }
  return screen;
}

// The screen below has gone: what lies over it goes along.
void UISearchController::viewDidDisappear(bool animated) {
  UIViewController::viewDidDisappear(animated);
  hideResults();
}

void UISearchController::showResults() {
  const auto host = screenOfBar();
  const auto covered = screenToCover(host);
  UIView* const around = covered == nullptr ? nullptr : covered->view()->superview();
  if (results_ == nullptr || around == nullptr || showsResults()) {
    return;
  }
  holdBar(true);
  host_ = host;
  host->addChildViewController(shared_from_this());
  addChildViewController(results_);
  const auto& view = results_->view();
  const CGRect area = covered->view()->frame();
  const CGRect bar = bar_->convertRectToView(bar_->bounds(), around);
  const CGFloat top = std::min(bar.maxY(), area.maxY());
  view->setFrame(CGRectMake(area.x(), top, area.width(), area.maxY() - top));
  view->setAutoresizingMask(kFlexibleWidth | kFlexibleHeight);
  beginAppearanceTransition(/*appearing=*/true, /*animated=*/false);
  const auto& siblings = around->subviews();
  const auto below = std::ranges::find(siblings, covered->view());
  around->insertSubview(view, static_cast<std::size_t>(below - siblings.begin()) + 1);
  endAppearanceTransition();
  results_->didMoveToParentViewController(this);
}

void UISearchController::hideResults() {
  const auto host = host_.lock();
  if (host == nullptr) {
    return;
  }
  host_.reset();
  results_->willMoveToParentViewController(nullptr);
  beginAppearanceTransition(/*appearing=*/false, /*animated=*/false);
  results_->view()->removeFromSuperview();
  endAppearanceTransition();
  results_->endAppearanceTransition();
  results_->removeFromParentViewController();
  removeFromParentViewController();
  holdBar(false);
}

void UISearchController::holdBar(bool held) {
  for (UIView* view = bar_->superview(); view != nullptr; view = view->superview()) {
    if (auto* const scroll = dynamic_cast<UIScrollView*>(view)) {
      scroll->setScrollEnabled(!held);
      if (held) {
        scroll->setContentOffset({scroll->contentOffset().x, -scroll->adjustedContentInset().top});
      }
      return;
    }
  }
}

}  // namespace zephyl
