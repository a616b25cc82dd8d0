// The screen on which people of the address book are ticked: all who have a name, in lettered
// sections, with a search. Done hands over the record ids of those who are ticked. Main thread.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/Export.h"
#include "platform/addressbook/ui/ABNewPersonViewController.h"
#include "platform/uikit/controllers/UISearchController.h"

#include "ui/people/ContactSearch.h"
#include "ui/people/ZLBaseTableViewController.h"
#include "ui/people/ZLPeoplePickerViewControllerDelegate.h"
#include "ui/people/ZLResultsTableViewController.h"

namespace zephyl {

class UIBarButtonItem;

class ZP_EXPORT ZLPeoplePickerViewController : public ZLBaseTableViewController,
                                               public UISearchResultsUpdating,
                                               public UISearchBarDelegate,
                                               public ABNewPersonViewControllerDelegate {
 public:
  using ReloadCompletion = std::function<void(bool success)>;

  // Those with a phone can be picked, and people may be added.
  ZLPeoplePickerViewController();
  ~ZLPeoplePickerViewController() override;

  // Begins to load the people of the process, so that they are there when a picker is shown.
  static void initializeAddressBook();
  // A picker with a Done button, alone in a navigation controller on `parent`, animated; those in
  // `selectedContacts` are ticked already, whatever else is among them is carried along.
  static std::shared_ptr<ZLPeoplePickerViewController>
  presentPeoplePickerViewControllerForParentViewController(
      const std::shared_ptr<UIViewController>& parent);
  static std::shared_ptr<ZLPeoplePickerViewController>
  presentPeoplePickerViewControllerForParentViewController(
      const std::shared_ptr<UIViewController>& parent, const MemberSet& selectedContacts);

  void setDelegate(std::weak_ptr<ZLPeoplePickerViewControllerDelegate> delegate) {
    delegate_ = std::move(delegate);
  }
  // How many may be ticked; -1 for any number. At first nobody.
  [[nodiscard]] std::int64_t numberOfSelectedPeople() const { return numberOfSelectedPeople_; }
  void setNumberOfSelectedPeople(std::int64_t number) { numberOfSelectedPeople_ = number; }
  [[nodiscard]] bool allowAddPeople() const { return allowAddPeople_; }
  void setAllowAddPeople(bool allow);
  // Null before the view is loaded.
  [[nodiscard]] const std::shared_ptr<UISearchController>& searchController() const {
    return searchController_;
  }
  [[nodiscard]] const std::shared_ptr<ZLResultsTableViewController>& resultsTableViewController()
      const {
    return resultsTableViewController_;
  }
  // What the next appearance brings back, once.
  [[nodiscard]] bool searchControllerWasActive() const { return wasActive_; }
  void setSearchControllerWasActive(bool was) { wasActive_ = was; }
  [[nodiscard]] bool searchControllerSearchFieldWasFirstResponder() const {
    return fieldWasFirstResponder_;
  }
  void setSearchControllerSearchFieldWasFirstResponder(bool was) { fieldWasFirstResponder_ = was; }

  // The senders are not looked at. Null is fine.
  void doneButtonAction(const UIBarButtonItem* sender);
  void refreshControlAction(const UIRefreshControl* sender);
  // Shows the people that the process holds at once, and then those that a fresh load brings.
  void reloadData(ReloadCompletion completion = nullptr);
  void addressBookDidChangeNotification();
  void showNewPersonViewController();
  void invokeReturnDelegate();

  void setPartitionedContactsWithContacts(const APContactArray& contacts) override;
  void viewDidLoad() override;
  void viewDidAppear(bool animated) override;
  void didMoveToParentViewController(UIViewController* parent) override;
  void didSelectRowAtIndexPath(UITableView& tableView, const NSIndexPath& indexPath) override;
  void updateSearchResultsForSearchController(UISearchController& searchController) override;
  void searchBarTextDidBeginEditing(UISearchBar& searchBar) override;
  void searchBarTextDidEndEditing(UISearchBar& searchBar) override;
  void searchBarCancelButtonClicked(UISearchBar& searchBar) override;
  void didCompleteWithNewPerson(ABNewPersonViewController& newPersonViewController,
                                const ABPersonRef& person) override;
  [[nodiscard]] const char* className() const override { return "ZLPeoplePickerViewController"; }

 private:
  void setup();
  void makeSearch();
  void updateAddButton();
  void showContacts(const APContactArray& contacts);
  [[nodiscard]] APContactArray allContacts();
  [[nodiscard]] bool mayTickAnother();

  std::weak_ptr<ZLPeoplePickerViewControllerDelegate> delegate_;
  std::int64_t numberOfSelectedPeople_ = 0;
  std::shared_ptr<UISearchController> searchController_;
  std::shared_ptr<ZLResultsTableViewController> resultsTableViewController_;
  // Of the contacts that are shown; made by the first search among them.
  std::unique_ptr<ContactSearch> search_;
  bool allowAddPeople_ = false;
  bool wasActive_ = false;
  bool fieldWasFirstResponder_ = false;
};

}  // namespace zephyl
