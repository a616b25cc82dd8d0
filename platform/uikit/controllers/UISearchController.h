// Searching what a screen shows: a bar for the text, and a second screen with what was found, over
// the first one below the bar while there is a text. What it covers is that screen, or the nearest
// one around it, that defines the presentation context; else the outermost. Main thread.
//
// The first screen is never dimmed. It is the one that the bar is on; while results are shown it
// does not scroll, so that the bar stays.

#pragma once

#include <memory>
#include <string>

#include "platform/Export.h"
#include "platform/uikit/controllers/UISearchBar.h"
#include "platform/uikit/controllers/UIViewController.h"

namespace zephyl {

class UISearchController;

class ZP_EXPORT UISearchResultsUpdating {
 public:
  virtual ~UISearchResultsUpdating() = default;
  // The text changed, or the search began or ended.
  virtual void updateSearchResultsForSearchController(UISearchController& searchController) = 0;
};

class ZP_EXPORT UISearchController : public UIViewController, private UISearchBarDelegate {
 public:
  // Null for no screen of its own: what is found is then the updater's to show.
  explicit UISearchController(const std::shared_ptr<UIViewController>& searchResultsController);
  ~UISearchController() override;

  [[nodiscard]] const std::shared_ptr<UISearchBar>& searchBar();
  [[nodiscard]] const std::shared_ptr<UIViewController>& searchResultsController() const {
    return results_;
  }
  void setSearchResultsUpdater(std::weak_ptr<UISearchResultsUpdating> updater) {
    updater_ = std::move(updater);
  }

  // Typing into the bar makes it active. Activated it takes the focus to the bar; ended, by Cancel
  // or here, it clears the text.
  [[nodiscard]] bool isActive() const { return active_; }
  void setActive(bool active);
  [[nodiscard]] bool showsResults() const { return host_.lock() != nullptr; }

  void viewDidDisappear(bool animated) override;
  [[nodiscard]] UIEdgeInsets safeAreaInsetsForChild(const UIViewController& child) const override;
  [[nodiscard]] const char* className() const override { return "UISearchController"; }

 private:
  void searchBarTextDidBeginEditing(UISearchBar& searchBar) override;
  void textDidChange(UISearchBar& searchBar, const std::string& text) override;
  void searchBarCancelButtonClicked(UISearchBar& searchBar) override;
  bool pressed(const UIKeyPress& press);
  void update();
  void showResults();
  void hideResults();
  // The screen that the bar is on; null when it is on none.
  [[nodiscard]] std::shared_ptr<UIViewController> screenOfBar() const;
  [[nodiscard]] static std::shared_ptr<UIViewController> screenToCover(
      std::shared_ptr<UIViewController> screen);
  // Brings the bar to the top of what scrolls around it, and holds that there, or lets it go.
  void holdBar(bool held);

  std::shared_ptr<UISearchBar> bar_;
  std::shared_ptr<UIViewController> results_;
  std::weak_ptr<UISearchResultsUpdating> updater_;
  // Where results are shown.
  std::weak_ptr<UIViewController> host_;
  bool active_ = false;
};

}  // namespace zephyl
