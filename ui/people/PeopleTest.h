// For tests: people in the address book, and their picker on a window's screen.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UILabel.h"
#include "platform/uikit/text/UITextField.h"

#include "contacts/ZLAddressBook.h"
#include "contacts/testing/PersonBuilder.h"
#include "hosts/fake/Device.h"
#include "ui/people/SectionsText_testing.h"
#include "ui/people/ZLPeoplePickerViewController.h"

namespace zephyl::test {

inline APContactRef contactOf(const PersonBuilder& person) {
  return APContact::initWithRecordRef(person.build(), APContactFieldAll);
}

// Writes down what a picker tells.
class PickerListener : public ZLPeoplePickerViewControllerDelegate {
 public:
  void didSelectPerson(ZLPeoplePickerViewController& picker, std::int64_t recordID) override {
    log.push_back("select " + std::to_string(recordID) +
                  (picker.selectedPeople()->contains(recordID) ? " ticked" : ""));
  }
  void didReturnWithSelectedPeople(ZLPeoplePickerViewController& /*picker*/,
                                   const MemberSet& people) override {
    returned.push_back(people);
  }
  void newPersonViewControllerDidCompleteWithNewPerson(const ABPersonRef& person) override {
    newPeople.push_back(person);
  }
  std::vector<std::string> log;
  std::vector<MemberSet> returned;
  std::vector<ABPersonRef> newPeople;
};

class PeopleTest : public ::testing::Test {
 protected:
  PeopleTest() { window_->setRootViewController(root_); }

  // As the editor of a group does it.
  void present(const std::optional<MemberSet>& selected = std::nullopt, std::int64_t most = -1) {
    using Picker = ZLPeoplePickerViewController;
    picker_ = selected ? Picker::presentPeoplePickerViewControllerForParentViewController(root_,
                                                                                          *selected)
                       : Picker::presentPeoplePickerViewControllerForParentViewController(root_);
    picker_->setDelegate(listener_);
    picker_->setFiledMask(APContactFieldAll);
    picker_->setNumberOfSelectedPeople(most);
    settle();
  }
  void settle() {
    device_.dispatch().runAll();
    device_.uikit()->displayLink().runUntilIdle();
    window_->layoutWindow();
  }
  UITableView& table() { return *picker_->tableView(); }
  UITableView& results() { return *picker_->resultsTableViewController()->tableView(); }
  UISearchBar& searchBar() { return *picker_->searchController()->searchBar(); }
  UINavigationItem& bar() { return *picker_->navigationItem(); }
  std::string shown() { return namesOf(*picker_); }
  std::string found() { return namesOf(*picker_->resultsTableViewController()); }
  static std::string namesOf(ZLBaseTableViewController& screen) {
    return namesIn(screen.partitionedContacts(), host().collation().sectionTitles());
  }
  std::optional<NSIndexPath> pathOf(ZLBaseTableViewController& screen, const std::string& name) {
    auto& sections = screen.partitionedContacts();
    for (std::size_t section = 0; section < sections.size(); ++section) {
      for (std::size_t row = 0; row < sections[section].size(); ++row) {
        if (sections[section][row]->compositeName() == name) {
          return NSIndexPath{static_cast<std::int64_t>(section), static_cast<std::int64_t>(row)};
        }
      }
    }
    return std::nullopt;
  }
  std::shared_ptr<UITableViewCell> cellOf(ZLBaseTableViewController& screen,
                                          const std::string& name) {
    const auto path = pathOf(screen, name);
    if (!path) {
      return nullptr;
    }
    screen.tableView()->scrollToRowAtIndexPath(*path, UITableViewScrollPosition::kMiddle, false);
    window_->layoutWindow();
    return screen.tableView()->cellForRowAtIndexPath(*path);
  }
  bool isTicked(ZLBaseTableViewController& screen, const std::string& name) {
    const auto cell = cellOf(screen, name);
    return cell != nullptr && cell->accessoryType() == UITableViewCellAccessoryType::kCheckmark;
  }
  bool isTicked(const std::string& name) { return isTicked(*picker_, name); }
  void tapRow(ZLBaseTableViewController& screen, const std::string& name) {
    const auto cell = cellOf(screen, name);
    ASSERT_NE(cell, nullptr) << name;
    tap(*window_, cell->convertPointToView({60, cell->bounds().midY()}, nullptr));
    settle();
  }
  void tapRow(const std::string& name) { tapRow(*picker_, name); }
  void type(const std::string& text) {
    viewOf<UITextField>(searchBar())->textInputDidChange(text);
    settle();
  }
  static std::vector<std::int64_t> numbers(const MemberSet& people) {
    std::vector<std::int64_t> ids;
    for (const Member& member : people) {
      ids.push_back(std::get<std::int64_t>(member));
    }
    return ids;
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIViewController> root_ = std::make_shared<UIViewController>();
  std::shared_ptr<PickerListener> listener_ = std::make_shared<PickerListener>();
  std::shared_ptr<ZLPeoplePickerViewController> picker_;
};

}  // namespace zephyl::test
