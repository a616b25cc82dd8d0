// The members of the group: showing them, picking others, removing one.

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

#include "platform/Host.h"
#include "platform/chatkit/CKConversationList.h"
#include "platform/foundation/SystemLog.h"
#include "platform/uikit/controllers/UINavigationController.h"

#include "contacts/APContactField.h"
#include "services/UIViewControllerZephyls.h"
#include "services/ZPUtils.h"
#include "ui/editor/EditorLook.h"
#include "ui/editor/ZPConversationSelectionViewController.h"
#include "ui/editor/ZephylViewController.h"
#include "ui/people/ZLPeoplePickerViewController.h"

namespace zephyl {

using editor::kMaskingSection;
using editor::kMembersSection;

namespace {

constexpr std::int64_t kConversationsSegment = 1;

// Of 32 bits, as the address book counts: a number loses its upper bits, a text stops at the ends.
std::int32_t intValue(const Member& id) {
  if (const auto* number = std::get_if<std::int64_t>(&id)) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(*number));
  }
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(memberNumber(id), Limits::min(), Limits::max()));
}

std::string textOf(const Member& id) {
  const auto* number = std::get_if<std::int64_t>(&id);
  return number == nullptr ? std::get<std::string>(id) : std::to_string(*number);
}

CKConversationRef conversationOf(const Member& id, const char* function, int line) {
  auto conversation = host().conversationList().conversationForExistingChatWithGUID(textOf(id));
  if (conversation == nullptr) {
    logError("Unable to get the conversation for id '" + textOf(id) + "'", function, line);
  }
  return conversation;
}

// Kept: by their characters' numbers, so that capitals come before small letters.
void sortByName(MemberEntries& entries) {
  std::stable_sort(entries.begin(), entries.end(),
                   [](const auto& left, const auto& right) { return left.name < right.name; });
}

}  // namespace

ABPersonRef ZephylViewController::recordRefFromRecordId(const Member& id) {
  return addressBookRef_ == nullptr ? nullptr : addressBookRef_->personWithRecordID(intValue(id));
}

std::optional<std::string> ZephylViewController::nameForPerson(const Member& id) {
  const ABPersonRef person = recordRefFromRecordId(id);
  return person == nullptr ? std::nullopt : person->compositeName;
}

void ZephylViewController::filterContactsAndConversations(const MemberSet* members) {
  contacts_.clear();
  conversations_.clear();
  for (const Member& id : membersOrNone(members)) {
    const MemberKind kind = memberKind(id);
    if (kind == MemberKind::kPerson) {
      // Kept: numbers kept as text come here, and whose record is not found is left out.
      if (auto name = nameForPerson(id)) {
        contacts_.push_back({std::move(*name), memberNumber(id)});
      }
    } else if (kind == MemberKind::kConversation) {
      constexpr int kLine = 132;
      if (const auto conversation = conversationOf(
              id, "-[ZephylViewController filterContactsAndConversations:]", kLine)) {
        conversations_.push_back({conversation->name(), id});
      }
    } else {
      contacts_.push_back({ZPUtils::formattedPhoneNumber(textOf(id)).value_or(textOf(id)), id});
    }
  }
  sortByName(contacts_);
  sortByName(conversations_);
}

// Kept: what the picker returns is the whole selection, in which there are people only: members
// that are numbers or addresses leave the group here.
void ZephylViewController::addContactsToZephyls(const std::vector<Member>& ids) {
  contacts_.clear();
  for (const Member& id : ids) {
    if (memberKind(id) != MemberKind::kPerson) {
      continue;
    }
    if (auto name = nameForPerson(id)) {
      contacts_.push_back({std::move(*name), memberNumber(id)});
    }
  }
  sortByName(contacts_);
  tableView()->reloadSections({kMembersSection}, UITableViewRowAnimation::kAutomatic);
  setContactsAndConversationsToZephyls();
}

// Kept: texts that are no chat GUIDs are looked up as well; what is not found is logged only.
void ZephylViewController::addConversationsToZephyls(const std::vector<Member>& ids) {
  conversations_.clear();
  for (const Member& id : ids) {
    if (memberKind(id) == MemberKind::kPerson) {
      continue;
    }
    constexpr int kLine = 337;
    if (const auto conversation =
            conversationOf(id, "-[ZephylViewController addConversationsToZephyls:]", kLine)) {
      conversations_.push_back({conversation->name(), id});
    }
  }
  sortByName(conversations_);
  tableView()->reloadSections({kMembersSection}, UITableViewRowAnimation::kAutomatic);
  setContactsAndConversationsToZephyls();
}

// Kept: the rows become the members, so whoever has none, a person without a name, a conversation
// that is gone or a number kept as text, leaves the group here.
void ZephylViewController::setContactsAndConversationsToZephyls() {
  const auto members = std::make_shared<MemberSet>();
  for (const MemberEntries* const entries : {&contacts_, &conversations_}) {
    for (const MemberEntry& entry : *entries) {
      members->add(entry.id);
    }
  }
  zephyl_->setContacts(members);
  updateNavigationBarItems();
}

void ZephylViewController::deleteContactOrConvoFromZephyl(
    std::int64_t index, const std::function<void()>& success,
    const std::function<void(const NSError*)>& failure) {
  MemberEntries& entries =
      currentSelectionSegment_ == kConversationsSegment ? conversations_ : contacts_;
  if (index < 0 || static_cast<std::size_t>(index) >= entries.size()) {
    if (failure) {
      // Kept: without an error, so that the alert says nothing.
      failure(nullptr);
    }
    return;
  }
  const auto entry = entries.begin() + index;
  MemberSet members = membersOrNone(zephyl_->contacts().get());
  // Kept: a record id kept as text stays, since its row is for the number, which is not in the set.
  members.remove(entry->id);
  zephyl_->setContacts(std::make_shared<const MemberSet>(std::move(members)));
  entries.erase(entry);
  if (success) {
    success();
  }
}

void ZephylViewController::didReturnWithSelectedConversation(
    ZPConversationSelectionViewController& /*picker*/, const std::set<std::string>& selected) {
  addConversationsToZephyls({selected.begin(), selected.end()});
}

// Kept: rows from the masking section on, so that the masked message offers Delete too.
bool ZephylViewController::canEditRowAtIndexPath(UITableView& /*tableView*/,
                                                 const NSIndexPath& indexPath) {
  return indexPath.section >= kMaskingSection && indexPath.row > 0;
}

UITableViewCellEditingStyle ZephylViewController::editingStyleForRowAtIndexPath(
    UITableView& tableView, const NSIndexPath& indexPath) {
  return canEditRowAtIndexPath(tableView, indexPath) ? UITableViewCellEditingStyle::kDelete
                                                     : UITableViewCellEditingStyle::kNone;
}

void ZephylViewController::commitEditingStyle(UITableView& tableView,
                                              UITableViewCellEditingStyle style,
                                              const NSIndexPath& indexPath) {
  if (style != UITableViewCellEditingStyle::kDelete) {
    return;
  }
  // Kept: whatever the section, so that deleting the masked message removes the first member; the
  // table finds that its rows do not add up then, and reloads.
  deleteContactOrConvoFromZephyl(
      indexPath.row - 1,
      [&] {
        tableView.beginUpdates();
        tableView.deleteRowsAtIndexPaths({indexPath}, UITableViewRowAnimation::kAutomatic);
        tableView.endUpdates();
        updateNavigationBarItems();
      },
      [this](const NSError* error) {
        zp__showError(shared_from_this(),
                      error == nullptr ? std::string() : error->localizedDescription());
      });
}

void ZephylViewController::didReturnWithSelectedPeople(
    ZLPeoplePickerViewController& /*peoplePicker*/, const MemberSet& people) {
  addContactsToZephyls({people.begin(), people.end()});
}

const std::shared_ptr<ZLPeoplePickerViewController>& ZephylViewController::contactsPicker() const {
  return contactsPicker_;
}

void ZephylViewController::pickMembers() {
  const MemberSet members = membersOrNone(zephyl_->contacts().get());
  if (currentSelectionSegment_ != kConversationsSegment) {
    // All of the group's members are ticked, whatever they are; what comes back is looked at.
    contactsPicker_ =
        ZLPeoplePickerViewController::presentPeoplePickerViewControllerForParentViewController(
            shared_from_this(), members);
    contactsPicker_->setDelegate(
        std::shared_ptr<ZLPeoplePickerViewControllerDelegate>(shared_from_this(), this));
    contactsPicker_->setFiledMask(APContactFieldAll);
    contactsPicker_->setNumberOfSelectedPeople(-1);
    contactsPicker_->setAllowAddPeople(false);
    return;
  }
  // A copy has none loaded, and the picker marks what belongs to the group through a person too.
  zephyl_->loadAffiliatedConversations(/*inBackground=*/false);
  const auto picker = std::make_shared<ZPConversationSelectionViewController>(
      std::vector<Member>(members.begin(), members.end()), zephyl_);
  host().conversationList().shouldShowAllConversations(true);
  picker->setConversationDelegate(
      std::shared_ptr<ZPConversationSelectionViewControllerDelegate>(shared_from_this(), this));
  presentViewController(UINavigationController::initWithRootViewController(picker),
                        /*animated=*/true);
}

}  // namespace zephyl
