#include "ui/people/ZLPeoplePickerViewController.h"

#include <utility>

#include "platform/foundation/NSBundle.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/tables/UIRefreshControl.h"

#include "contacts/ZLAddressBook.h"

namespace zephyl {

ZLPeoplePickerViewController::ZLPeoplePickerViewController() {
  setup();
}

ZLPeoplePickerViewController::~ZLPeoplePickerViewController() {
  NSNotificationCenter::defaultCenter()->removeObserver(this);
}

void ZLPeoplePickerViewController::setup() {
  setFiledMask(APContactFieldPhones);
  allowAddPeople_ = true;
}

void ZLPeoplePickerViewController::initializeAddressBook() {
  ZLAddressBook::sharedInstance()->loadContacts(nullptr);
}

std::shared_ptr<ZLPeoplePickerViewController>
ZLPeoplePickerViewController::presentPeoplePickerViewControllerForParentViewController(
    const std::shared_ptr<UIViewController>& parent) {
  const auto navigation = std::make_shared<UINavigationController>();
  auto picker = std::make_shared<ZLPeoplePickerViewController>();
  navigation->pushViewController(picker, /*animated=*/false);
  ZLPeoplePickerViewController* const target = picker.get();
  picker->navigationItem()->setLeftBarButtonItem(std::make_shared<UIBarButtonItem>(
      UIBarButtonSystemItem::kDone, picker,
      [target](UIBarButtonItem& sender) { target->doneButtonAction(&sender); }));
  if (parent != nullptr) {
    parent->presentViewController(navigation, /*animated=*/true);
  }
  return picker;
}

std::shared_ptr<ZLPeoplePickerViewController>
ZLPeoplePickerViewController::presentPeoplePickerViewControllerForParentViewController(
    const std::shared_ptr<UIViewController>& parent, const MemberSet& selectedContacts) {
  auto picker = presentPeoplePickerViewControllerForParentViewController(parent);
  if (!selectedContacts.empty()) {
    for (const Member& member : selectedContacts) {
      picker->selectedPeople()->add(member);
    }
    picker->reloadTable();
  }
  return picker;
}

void ZLPeoplePickerViewController::setAllowAddPeople(bool allow) {
  if (allowAddPeople_ != allow) {
    allowAddPeople_ = allow;
    updateAddButton();
  }
}

void ZLPeoplePickerViewController::viewDidLoad() {
  ZLBaseTableViewController::viewDidLoad();
  const auto self = std::static_pointer_cast<ZLPeoplePickerViewController>(shared_from_this());
  const std::weak_ptr<ZLPeoplePickerViewController> weak = self;
  makeSearch();
  const auto refresh = std::make_shared<UIRefreshControl>();
  refresh->addAction(
      [weak](UIControl& control) {
        if (const auto picker = weak.lock()) {
          picker->refreshControlAction(dynamic_cast<UIRefreshControl*>(&control));
        }
      },
      kValueChanged);
  setRefreshControl(refresh);
  if (title().empty()) {
    setTitle(NSBundle::mainBundle()->localizedStringForKey("Contacts", ""));
  }
  updateAddButton();
  NSNotificationCenter::defaultCenter()->addObserver(this, ZLAddressBookDidChangeNotification,
                                                     [weak](const NSNotification&) {
                                                       if (const auto picker = weak.lock()) {
                                                         picker->addressBookDidChangeNotification();
                                                       }
                                                     });
  reloadData();
}

void ZLPeoplePickerViewController::makeSearch() {
  const auto self = std::static_pointer_cast<ZLPeoplePickerViewController>(shared_from_this());
  resultsTableViewController_ = std::make_shared<ZLResultsTableViewController>();
  searchController_ = std::make_shared<UISearchController>(resultsTableViewController_);
  searchController_->setSearchResultsUpdater(self);
  const auto& bar = searchController_->searchBar();
  bar->sizeToFit();
  bar->setDelegate(self);
  tableView()->setTableHeaderView(bar);
  setDefinesPresentationContext(true);
  resultsTableViewController_->tableView()->setDelegate(
      std::static_pointer_cast<UITableViewDelegate>(self));
}

void ZLPeoplePickerViewController::updateAddButton() {
  if (!isViewLoaded()) {
    return;
  }
  if (!allowAddPeople_) {
    navigationItem()->setRightBarButtonItem(nullptr);
    return;
  }
  navigationItem()->setRightBarButtonItem(std::make_shared<UIBarButtonItem>(
      UIBarButtonSystemItem::kAdd, shared_from_this(),
      [this](UIBarButtonItem&) { showNewPersonViewController(); }));
}

void ZLPeoplePickerViewController::viewDidAppear(bool animated) {
  ZLBaseTableViewController::viewDidAppear(animated);
  if (!std::exchange(wasActive_, false)) {
    return;
  }
  // Which takes the focus along.
  searchController_->setActive(true);
  if (!std::exchange(fieldWasFirstResponder_, false)) {
    searchController_->searchBar()->resignFirstResponder();
  }
}

void ZLPeoplePickerViewController::refreshControlAction(const UIRefreshControl* /*sender*/) {
  const auto control = refreshControl();
  if (control != nullptr) {
    control->beginRefreshing();
  }
  reloadData([weak = std::weak_ptr<UIRefreshControl>(control)](bool /*success*/) {
    if (const auto shown = weak.lock()) {
      shown->endRefreshing();
    }
  });
}

void ZLPeoplePickerViewController::addressBookDidChangeNotification() {
  reloadData();
}

void ZLPeoplePickerViewController::reloadData(ReloadCompletion completion) {
  const auto book = ZLAddressBook::sharedInstance();
  if (const auto held = book->contacts(); held != nullptr && !held->empty()) {
    showContacts(*held);
  }
  const std::weak_ptr<UIViewController> weak = weak_from_this();
  book->loadContacts([weak, weakBook = std::weak_ptr<ZLAddressBook>(book),
                      completion = std::move(completion)](bool success, const NSError*) {
    const auto picker = std::static_pointer_cast<ZLPeoplePickerViewController>(weak.lock());
    const auto loaded = weakBook.lock();
    if (success && picker != nullptr && loaded != nullptr) {
      picker->showContacts(*loaded->contacts());
    }
    if (completion) {
      completion(success);
    }
  });
}

void ZLPeoplePickerViewController::showContacts(const APContactArray& contacts) {
  setPartitionedContactsWithContacts(contacts);
  reloadTable();
}

void ZLPeoplePickerViewController::setPartitionedContactsWithContacts(
    const APContactArray& contacts) {
  ZLBaseTableViewController::setPartitionedContactsWithContacts(contacts);
  search_.reset();
}

void ZLPeoplePickerViewController::doneButtonAction(const UIBarButtonItem* /*sender*/) {
  const auto self = shared_from_this();
  dismissViewControllerAnimated(/*animated=*/true);
  invokeReturnDelegate();
}

void ZLPeoplePickerViewController::didMoveToParentViewController(UIViewController* parent) {
  ZLBaseTableViewController::didMoveToParentViewController(parent);
  // It has left the one it was in; on the way in the new one is the current one already.
  if (parent == nullptr || parent != parentViewController().get()) {
    invokeReturnDelegate();
  }
}

void ZLPeoplePickerViewController::invokeReturnDelegate() {
  if (const auto delegate = delegate_.lock()) {
    const MemberSet people = *selectedPeople();
    delegate->didReturnWithSelectedPeople(*this, people);
  }
}

void ZLPeoplePickerViewController::showNewPersonViewController() {
  const auto self = std::static_pointer_cast<ZLPeoplePickerViewController>(shared_from_this());
  const auto screen = std::make_shared<ABNewPersonViewController>();
  screen->setNewPersonViewDelegate(self);
  presentViewController(UINavigationController::initWithRootViewController(screen),
                        /*animated=*/true);
}

void ZLPeoplePickerViewController::didCompleteWithNewPerson(
    ABNewPersonViewController& /*newPersonViewController*/, const ABPersonRef& person) {
  const auto self = shared_from_this();
  dismissViewControllerAnimated(/*animated=*/true);
  if (const auto delegate = delegate_.lock()) {
    delegate->newPersonViewControllerDidCompleteWithNewPerson(person);
  }
}

}  // namespace zephyl
