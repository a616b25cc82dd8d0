#include "ui/people/ZLBaseTableViewController.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/Host.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/uikit/NSAttributedString.h"
#include "platform/uikit/text/UILabel.h"

#include "ui/people/ContactNames.h"
#include "ui/people/ContactPartition.h"
#include "ui/people/LRIndexedCollationWithSearch.h"

namespace zephyl {

namespace {

constexpr char kCellIdentifier[] = "cellID";
constexpr CGFloat kFontSize = 17;
constexpr CGFloat kBoldFontSize = 18;

ABPersonSortOrdering sortOrdering() {
  return host().addressBook()->personGetSortOrdering();
}

NSAttributedString nameOf(const APContact& contact, bool isEnabled) {
  const UIColor color = isEnabled ? UIColor::labelColor() : UIColor::grayColor();
  NSAttributedString name(contact.compositeName(), {UIFont::systemFontOfSize(kFontSize), color});
  // As the text has it, which may have been mended.
  const std::string bold =
      NSAttributedString(nameToEmphasize(contact, sortOrdering()), {}).string();
  const std::size_t at = bold.empty() ? std::string::npos : name.string().find(bold);
  if (at != std::string::npos) {
    name.setAttributes(at, bold.size(), {UIFont::boldSystemFontOfSize(kBoldFontSize), color});
  }
  return name;
}

}  // namespace

ZLBaseTableViewController::ZLBaseTableViewController() = default;

ZLBaseTableViewController::~ZLBaseTableViewController() = default;

ContactSections ZLBaseTableViewController::emptyPartitionedArray() {
  return emptyContactSections();
}

ContactSections& ZLBaseTableViewController::partitionedContacts() {
  if (partitionedContacts_.empty()) {
    partitionedContacts_ = emptyPartitionedArray();
  }
  return partitionedContacts_;
}

const std::shared_ptr<MemberSet>& ZLBaseTableViewController::selectedPeople() {
  if (selectedPeople_ == nullptr) {
    selectedPeople_ = std::make_shared<MemberSet>();
  }
  return selectedPeople_;
}

void ZLBaseTableViewController::setSelectedPeople(std::shared_ptr<MemberSet> people) {
  selectedPeople_ = std::move(people);
}

void ZLBaseTableViewController::setFiledMask(APContactField mask) {
  if (filedMask_ != mask) {
    filedMask_ = mask;
    reloadTable();
  }
}

void ZLBaseTableViewController::reloadTable() {
  if (isViewLoaded()) {
    tableView()->reloadData();
  }
}

void ZLBaseTableViewController::setPartitionedContactsWithContacts(const APContactArray& contacts) {
  partitionedContacts_ = ContactPartition::shared()->sections(contacts, sortOrdering());
}

APContactRef ZLBaseTableViewController::contactForRowAtIndexPath(const NSIndexPath& indexPath) {
  const ContactSections& sections = partitionedContacts();
  const auto section = static_cast<std::size_t>(indexPath.section);
  const auto row = static_cast<std::size_t>(indexPath.row);
  return section < sections.size() && row < sections[section].size() ? sections[section][row]
                                                                     : nullptr;
}

void ZLBaseTableViewController::configureCell(UITableViewCell& cell, const APContact& contact) {
  const bool isEnabled = shouldEnableCellforContact(contact);
  cell.textLabel()->setAttributedText(nameOf(contact, isEnabled));
  cell.setSelectionStyle(isEnabled ? UITableViewCellSelectionStyle::kDefault
                                   : UITableViewCellSelectionStyle::kNone);
}

bool ZLBaseTableViewController::shouldEnableCellforContact(const APContact& contact) const {
  const auto asksFor = [this](APContactField field) { return (filedMask_ & field) != 0; };
  return filedMask_ == APContactFieldAll ||
         (asksFor(APContactFieldPhones) && !contact.phones().empty()) ||
         (asksFor(APContactFieldEmails) && !contact.emails().empty()) ||
         // Kept: a photo is asked for, and a thumbnail looked for.
         (asksFor(APContactFieldPhoto) && contact.hasThumbnail()) ||
         (asksFor(APContactFieldAddresses) && !contact.addresses().empty());
}

bool ZLBaseTableViewController::isEmpty() {
  const ContactSections& sections = partitionedContacts();
  return std::all_of(sections.begin(), sections.end(),
                     [](const APContactArray& section) { return section.empty(); });
}

std::int64_t ZLBaseTableViewController::numberOfSectionsInTableView(UITableView& /*tableView*/) {
  return isEmpty() ? 0
                   : std::ssize(LRIndexedCollationWithSearch::currentCollation()->sectionTitles());
}

std::int64_t ZLBaseTableViewController::numberOfRowsInSection(UITableView& /*tableView*/,
                                                              std::int64_t section) {
  const auto at = static_cast<std::size_t>(section);
  return at < partitionedContacts().size() ? std::ssize(partitionedContacts()[at]) : 0;
}

std::shared_ptr<UITableViewCell> ZLBaseTableViewController::cellForRowAtIndexPath(
    UITableView& tableView, const NSIndexPath& indexPath) {
  auto cell = tableView.dequeueReusableCellWithIdentifier(kCellIdentifier);
  if (cell == nullptr) {
    cell = std::make_shared<UITableViewCell>(UITableViewCellStyle::kSubtitle, kCellIdentifier);
    cell->setAccessoryType(UITableViewCellAccessoryType::kNone);
  }
  const APContactRef contact = contactForRowAtIndexPath(indexPath);
  if (contact == nullptr) {
    return cell;
  }
  configureCell(*cell, *contact);
  const bool isTicked =
      contact->recordID() && selectedPeople()->contains(Member(std::int64_t{*contact->recordID()}));
  cell->setAccessoryType(isTicked ? UITableViewCellAccessoryType::kCheckmark
                                  : UITableViewCellAccessoryType::kNone);
  return cell;
}

std::string ZLBaseTableViewController::titleForHeaderInSection(UITableView& tableView,
                                                               std::int64_t section) {
  const auto collation = LRIndexedCollationWithSearch::currentCollation();
  const auto& titles = collation->sectionTitles();
  const auto at = static_cast<std::size_t>(section);
  return at < titles.size() && numberOfRowsInSection(tableView, section) > 0 ? titles[at]
                                                                             : std::string();
}

std::vector<std::string> ZLBaseTableViewController::sectionIndexTitlesForTableView(
    UITableView& /*tableView*/) {
  return LRIndexedCollationWithSearch::currentCollation()->sectionIndexTitles();
}

std::int64_t ZLBaseTableViewController::sectionForSectionIndexTitle(UITableView& tableView,
                                                                    const std::string& /*title*/,
                                                                    std::int64_t index) {
  const std::int64_t section =
      LRIndexedCollationWithSearch::currentCollation()->sectionForSectionIndexTitleAtIndex(index);
  if (section == NSNotFound) {
    // Kept: of the adjusted inset. The table's own one is 0 here, and the bars that lie over the
    // table would cover the search bar.
    tableView.setContentOffset(
        {tableView.contentOffset().x, -tableView.adjustedContentInset().top});
  }
  return section;
}

}  // namespace zephyl
