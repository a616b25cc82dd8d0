// Ticking people, and finding them.

#include "platform/uikit/tables/UITableView.h"

#include "ui/people/ZLPeoplePickerViewController.h"

namespace zephyl {

bool ZLPeoplePickerViewController::mayTickAnother() {
  return selectedPeople()->size() < static_cast<std::uint64_t>(numberOfSelectedPeople_);
}

void ZLPeoplePickerViewController::didSelectRowAtIndexPath(UITableView& tableView,
                                                           const NSIndexPath& indexPath) {
  const auto self = shared_from_this();
  tableView.deselectRowAtIndexPath(indexPath, /*animated=*/true);
  const bool isOwn = &tableView == this->tableView().get();
  const APContactRef contact =
      isOwn ? contactForRowAtIndexPath(indexPath)
            : resultsTableViewController_->contactForRowAtIndexPath(indexPath);
  if (contact == nullptr || !contact->recordID() || !shouldEnableCellforContact(*contact)) {
    return;
  }
  const std::int64_t recordID = *contact->recordID();
  if (const auto delegate = delegate_.lock()) {
    delegate->didSelectPerson(*this, recordID);
  }
  if (!selectedPeople()->remove(recordID) && mayTickAnother()) {
    selectedPeople()->add(recordID);
  }
  this->tableView()->reloadData();
  resultsTableViewController_->tableView()->reloadData();
}

APContactArray ZLPeoplePickerViewController::allContacts() {
  APContactArray all;
  for (const APContactArray& section : partitionedContacts()) {
    all.insert(all.end(), section.begin(), section.end());
  }
  return all;
}

void ZLPeoplePickerViewController::updateSearchResultsForSearchController(
    UISearchController& searchController) {
  const auto words = searchWords(searchController.searchBar()->text());
  if (search_ == nullptr && !words.empty()) {
    search_ = std::make_unique<ContactSearch>(allContacts());
  }
  const auto& results = resultsTableViewController_;
  results->setFiledMask(filedMask());
  results->setSelectedPeople(selectedPeople());
  results->setPartitionedContactsWithContacts(words.empty() ? allContacts()
                                                            : search_->contactsMatching(words));
  results->tableView()->reloadData();
}

void ZLPeoplePickerViewController::searchBarTextDidBeginEditing(UISearchBar& searchBar) {
  searchBar.setShowsCancelButton(true, /*animated=*/true);
}

void ZLPeoplePickerViewController::searchBarTextDidEndEditing(UISearchBar& searchBar) {
  searchBar.setShowsCancelButton(false, /*animated=*/true);
}

void ZLPeoplePickerViewController::searchBarCancelButtonClicked(UISearchBar& searchBar) {
  searchBar.resignFirstResponder();
}

}  // namespace zephyl
