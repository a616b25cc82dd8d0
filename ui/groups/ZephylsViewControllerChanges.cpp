// What the list of groups changes: it deletes groups, and adds members to them.

#include <algorithm>
#include <utility>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"
#include "platform/uikit/controllers/UIAlertController.h"

#include "model/ZPLocalizedText.h"
#include "services/GroupProtection.h"
#include "services/UIViewControllerZephyls.h"
#include "services/ZPUtils.h"
#include "store/ZephylsDataController.h"
#include "ui/groups/ZephylsViewController.h"

namespace zephyl {

namespace {

// The box over the screen while one operation runs. Handed about by the background work, but what
// it holds is the main thread's.
struct BusyBox {
  std::shared_ptr<UIAlertController> alert;
};

void present(BusyBox& box, const std::shared_ptr<UIViewController>& screen,
             const std::string& title) {
  box.alert = zp__showActivityIndicator(screen, title, zpLocalizedText("Please wait..."));
}

// `completion` may be empty.
void dismiss(const BusyBox& box, const std::function<void()>& completion) {
  if (box.alert != nullptr) {
    box.alert->dismissViewControllerAnimated(/*animated=*/true, completion);
  } else if (completion) {
    completion();
  }
}

void addMembers(Zephyl& group, const std::vector<Member>& members) {
  MemberSet next = membersOrNone(group.contacts().get());
  for (const Member& member : members) {
    next.add(member);
  }
  group.setContacts(std::make_shared<const MemberSet>(std::move(next)));
}

std::vector<Member> membersToAdd(const ZephylsViewController& screen) {
  std::vector<Member> members;
  if (screen.conversation() != nullptr) {
    members.emplace_back(screen.conversation()->guid());
  } else if (screen.recipients()) {
    for (const auto& recipient : *screen.recipients()) {
      members.push_back(recipient->contactId() >= 1 ? Member(recipient->contactId())
                                                    : Member(recipient->plainPhoneNumber()));
    }
  } else if (screen.conversations()) {
    for (const CKConversationRef& conversation : *screen.conversations()) {
      members.emplace_back(conversation->guid());
    }
  }
  return members;
}

}  // namespace

void ZephylsViewController::authenticate(const std::string& reason, Action action) {
  // Nothing covers the screen while a finger is awaited.
  if (std::exchange(isBusy_, true)) {
    return;
  }
  // Answered on any thread.
  ZPUtils::requestForAuthentication(reason, [screen = weakSelf(), action = std::move(action)](
                                                bool success, const NSError* error) {
    const bool recognized = error == nullptr && success;
    const auto failure = recognized ? std::nullopt : whyNotRecognized(error);
    onMain(screen, [recognized, failure, action](ZephylsViewController& self) {
      self.isBusy_ = false;
      if (recognized) {
        action(self);
      } else if (failure) {
        zp__showError(self.shared_from_this(), *failure);
      }
    });
  });
}

void ZephylsViewController::deleteGroup(const ZephylRef& group) {
  ZephylsDataController::sharedInstance()->deleteZephyl(
      group, nullptr, [this](const NSError& error) {
        zp__showError(shared_from_this(), error.localizedDescription());
      });
}

void ZephylsViewController::deleteButtonAction() {
  if (isBusy_) {
    return;
  }
  ZephylVector groups;
  std::vector<std::string> protectedTitles;
  // Kept: without biometrics nothing is collected, and the button then deletes nothing. Swiping
  // deletes all the same.
  if (ZPUtils::supportsTouchID()) {
    for (const NSIndexPath& path : tableView()->indexPathsForSelectedRows()) {
      const ZephylRef group = sections_->groupAt(path);
      if (group == nullptr) {
        continue;
      }
      groups.push_back(group);
      if (group->isPasswordProtected()) {
        protectedTitles.push_back(group->title());
      }
    }
  }
  if (protectedTitles.empty()) {
    deleteGroups(groups);
  } else {
    authenticate(reasonToDeleteGroups(protectedTitles),
                 [groups](ZephylsViewController& self) { self.deleteGroups(groups); });
  }
}

void ZephylsViewController::deleteGroups(const ZephylVector& groups) {
  isBusy_ = true;
  host().dispatch().globalAsync(QueuePriority::kDefault, [screen = weakSelf(), groups] {
    auto box = std::make_shared<BusyBox>();
    // Kept: shown from here, and not queued as when groups are updated: the work begins when the
    // box is there.
    host().dispatch().mainSync([&] { present(*box, screen.lock(), zpLocalizedText("Deleting")); });
    ZephylsDataController::sharedInstance()->deleteZephyls(
        groups, [box] { host().dispatch().mainAsync([box] { dismiss(*box, nullptr); }); },
        [screen, box](const NSError& error) {
          host().dispatch().mainAsync([screen, box, text = error.localizedDescription()] {
            dismiss(*box, [screen, text] { zp__showError(screen.lock(), text); });
          });
        });
    // The last who has the box is the main thread.
    host().dispatch().mainAsync([screen, box = std::move(box)] {
      if (const auto self = screen.lock()) {
        self->isBusy_ = false;
        // The user may have left it before the finger was recognized.
        self->setMarking(false);
      }
    });
  });
}

void ZephylsViewController::doneButtonAction() {
  if (isBusy_) {
    return;
  }
  const bool asks =
      ZPUtils::supportsTouchID() &&
      std::any_of(selectedGroups_.begin(), selectedGroups_.end(),
                  [](const ZephylRef& group) { return group->isPasswordProtected(); });
  if (asks) {
    authenticate(reasonToAddToGroups(),
                 [](ZephylsViewController& self) { self.updateSelectedGroups(); });
  } else {
    updateSelectedGroups();
  }
}

void ZephylsViewController::updateSelectedGroups() {
  isBusy_ = true;
  host().dispatch().globalAsync(
      QueuePriority::kDefault,
      [screen = weakSelf(), groups = selectedGroups_, members = membersToAdd(*this)] {
        auto box = std::make_shared<BusyBox>();
        // The work goes on meanwhile; what comes of it is queued behind this.
        host().dispatch().mainAsync(
            [screen, box] { present(*box, screen.lock(), zpLocalizedText("Updating")); });
        for (const ZephylRef& group : groups) {
          addMembers(*group, members);
        }
        // The store answers once for each group, the screen once for all: it closes when nothing
        // failed, and else stays and tells of the first failure.
        std::optional<std::string> failure;
        ZephylsDataController::sharedInstance()->updateZephyls(
            groups, nullptr, [&failure](const NSError& error) {
              failure = failure.value_or(error.localizedDescription());
            });
        host().dispatch().mainAsync([screen, box = std::move(box), failure] {
          dismiss(*box, [screen, failure] {
            const auto self = screen.lock();
            if (self == nullptr) {
              return;
            }
            self->isBusy_ = false;
            if (failure) {
              zp__showError(self, *failure);
            } else {
              self->cancelButtonAction();
            }
          });
        });
      });
}

}  // namespace zephyl
