// A table of contacts in lettered sections, in which some are ticked. Main thread.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/tables/UITableViewController.h"

#include "contacts/APContact.h"
#include "model/MemberSet.h"
#include "ui/people/ContactSections.h"

namespace zephyl {

class ZP_EXPORT ZLBaseTableViewController : public UITableViewController {
 public:
  ZLBaseTableViewController();
  ~ZLBaseTableViewController() override;

  // Made empty at the first call.
  [[nodiscard]] ContactSections& partitionedContacts();
  // The record ids of those who are ticked, shared with whoever is given it; others that it holds,
  // texts among them, are carried along. Made empty at the first call.
  [[nodiscard]] const std::shared_ptr<MemberSet>& selectedPeople();
  void setSelectedPeople(std::shared_ptr<MemberSet> people);
  // Which fields a contact needs to be picked. Kept: the name is spelt so.
  [[nodiscard]] APContactField filedMask() const { return filedMask_; }
  void setFiledMask(APContactField mask);

  // One empty list for each section of the current collation.
  [[nodiscard]] static ContactSections emptyPartitionedArray();
  // Those with the phone of one before them are left out. The table is not reloaded.
  virtual void setPartitionedContactsWithContacts(const APContactArray& contacts);
  // Null where there is none.
  [[nodiscard]] APContactRef contactForRowAtIndexPath(const NSIndexPath& indexPath);

  void configureCell(UITableViewCell& cell, const APContact& contact);
  [[nodiscard]] bool shouldEnableCellforContact(const APContact& contact) const;

  std::int64_t numberOfSectionsInTableView(UITableView& tableView) override;
  std::int64_t numberOfRowsInSection(UITableView& tableView, std::int64_t section) override;
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& tableView,
                                                         const NSIndexPath& indexPath) override;
  std::string titleForHeaderInSection(UITableView& tableView, std::int64_t section) override;
  std::vector<std::string> sectionIndexTitlesForTableView(UITableView& tableView) override;
  // The magnifying glass leads to the top of the table.
  std::int64_t sectionForSectionIndexTitle(UITableView& tableView, const std::string& title,
                                           std::int64_t index) override;

  [[nodiscard]] const char* className() const override { return "ZLBaseTableViewController"; }

 protected:
  // Shows anew what is there, if anything is shown.
  void reloadTable();

 private:
  [[nodiscard]] bool isEmpty();

  ContactSections partitionedContacts_;
  std::shared_ptr<MemberSet> selectedPeople_;
  APContactField filedMask_ = 0;
};

}  // namespace zephyl
