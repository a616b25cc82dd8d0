#include "apps/zephyls/render/Screens.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/Host.h"
#include "platform/chatkit/CKConversationList.h"

#include "apps/common/CommandError.h"
#include "apps/common/GroupsNavigationController.h"
#include "apps/zephyls/Consent.h"
#include "apps/zephyls/Session.h"
#include "model/ZPLocalizedText.h"
#include "store/ZephylsDataController.h"
#include "ui/components/ZPColorPickerViewController.h"
#include "ui/editor/ZPConversationSelectionViewController.h"
#include "ui/editor/ZPSelectRecipientsTableViewController.h"
#include "ui/editor/ZephylViewController.h"
#include "ui/groups/ZephylsViewController.h"
#include "ui/people/ZLPeoplePickerViewController.h"

namespace zephyl::app::render {

namespace {

using GroupList = std::shared_ptr<ZephylsViewController>;

ShownScreen inNavigation(const std::shared_ptr<UIViewController>& screen,
                         std::shared_ptr<const void> kept = nullptr) {
  return {GroupsNavigationController::initWithRootViewController(screen), std::move(kept), nullptr};
}

// The one that was named, else the first that will do.
CKConversationRef chosenConversation(Session& session,
                                     const std::function<bool(const CKConversation&)>& willDo) {
  if (const auto& name = session.options().render.conversation) {
    return session.conversationNamed(*name);
  }
  const CKConversationArray all = host().conversationList().conversations();
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const CKConversationRef& one) { return willDo(*one); });
  if (found == all.end()) {
    throw CommandError("there is no conversation to show; name one with --conversation");
  }
  return *found;
}

GroupList makeManaging() {
  auto list = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain);
  list->setZephylsMode(ZephylsModeManage);
  return list;
}

// The host's part is to show the groups to be managed.
ShownScreen makeGroups(Session& /*session*/) {
  const auto list = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain);
  const auto delegate = std::make_shared<ZephylsViewControllerDelegate>();
  delegate->zp__manageAllGroups = [weak = std::weak_ptr(list)] {
    if (const auto shown = weak.lock()) {
      shown->presentViewController(inNavigation(makeManaging()).controller, /*animated=*/true);
    }
  };
  delegate->zp__addNewGroup = addingNewGroup(list);
  list->setZephylsDelegate(delegate);
  return inNavigation(list, delegate);
}

ShownScreen makeManage(Session& /*session*/) {
  return inNavigation(makeManaging());
}

ShownScreen makeAdd(Session& session) {
  const auto conversation =
      chosenConversation(session, [](const CKConversation& /*any*/) { return true; });
  const auto list = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain, conversation);
  const auto delegate = std::make_shared<ZephylsViewControllerDelegate>();
  delegate->zp__addNewGroup = addingNewGroup(list);
  list->setZephylsDelegate(delegate);
  return inNavigation(list, delegate);
}

ShownScreen makeRecipients(Session& session) {
  const auto conversation = chosenConversation(
      session, [](const CKConversation& one) { return one.isGroupConversation(); });
  return inNavigation(std::make_shared<ZPSelectRecipientsTableViewController>(
      UITableViewStyle::kPlain, conversation));
}

// Over the groups to be managed.
std::shared_ptr<GroupsNavigationController> makeEditing(Session& session) {
  const auto editor = std::make_shared<ZephylViewController>();
  editor->setZephyl(groupToShow(session));
  auto navigation = GroupsNavigationController::initWithRootViewController(makeManaging());
  navigation->pushViewController(editor, /*animated=*/false);
  return navigation;
}

ShownScreen makeEditor(Session& session) {
  return {makeEditing(session), nullptr, nullptr};
}

ShownScreen makeNewGroup(Session& /*session*/) {
  return inNavigation(std::make_shared<ZephylViewController>());
}

ShownScreen makeConversations(Session& session) {
  const ZephylRef group = groupToShow(session);
  const auto members = group->contacts();
  host().conversationList().shouldShowAllConversations(true);
  return inNavigation(std::make_shared<ZPConversationSelectionViewController>(
      members == nullptr ? std::vector<Member>()
                         : std::vector<Member>(members->begin(), members->end()),
      group));
}

ShownScreen makeColour(Session& session) {
  const auto navigation = makeEditing(session);
  const auto picker = std::make_shared<ZPColorPickerViewController>(
      UIColor::__zpColorWithHexString(groupToShow(session)->markerCode()));
  picker->showInViewController(navigation->topViewController(), zpLocalizedText("Marker Color"),
                               nullptr);
  return {navigation, nullptr, nullptr};
}

// As the editor of the group opens it.
ShownScreen makePicking(Session& session, bool searching) {
  auto navigation = makeEditing(session);
  const auto editor =
      std::static_pointer_cast<ZephylViewController>(navigation->topViewController());
  return {navigation, nullptr, [editor, searching] {
            constexpr NSIndexPath kAddContacts{4, 0};
            editor->didSelectRowAtIndexPath(*editor->tableView(), kAddContacts);
            editor->contactsPicker()->setSearchControllerWasActive(searching);
            editor->contactsPicker()->setSearchControllerSearchFieldWasFirstResponder(searching);
          }};
}

ShownScreen makeContacts(Session& session) {
  return makePicking(session, /*searching=*/false);
}

ShownScreen makeSearch(Session& session) {
  return makePicking(session, /*searching=*/true);
}

}  // namespace

ZephylRef groupToShow(Session& session) {
  if (const auto& name = session.options().render.group) {
    return session.groupNamed(*name);
  }
  const ZephylVector groups = ZephylsDataController::sharedInstance()->enabledUserCreatedZephyls();
  if (groups.empty()) {
    throw CommandError("there is no group to show; make one with `zephyls groups create`");
  }
  const auto open = std::find_if(groups.begin(), groups.end(),
                                 [](const ZephylRef& group) { return !isLocked(group); });
  return open == groups.end() ? groups.front() : *open;
}

const std::vector<Screen>& allScreens() {
  static const std::vector<Screen> kScreens = {
      {"groups", "the groups to browse", makeGroups},
      {"manage", "the groups to manage", makeManage},
      {"add", "the groups to which a conversation is added", makeAdd, ScreenSubject::kConversation},
      {"recipients", "the participants of a conversation", makeRecipients,
       ScreenSubject::kConversation},
      {"editor", "a group to be changed", makeEditor, ScreenSubject::kGroup},
      {"new-group", "a group in the making", makeNewGroup},
      {"contacts", "the people to be ticked for a group", makeContacts, ScreenSubject::kGroup},
      {"search", "the same while they are searched: give the words with --type", makeSearch,
       ScreenSubject::kGroup},
      {"conversations", "the conversations to be ticked for a group", makeConversations,
       ScreenSubject::kGroup},
      {"colour", "the colour of a group to be picked", makeColour, ScreenSubject::kGroup},
  };
  return kScreens;
}

const Screen* screenNamed(std::string_view name) {
  const auto& screens = allScreens();
  const auto found = std::find_if(screens.begin(), screens.end(),
                                  [name](const Screen& screen) { return screen.name == name; });
  return found == screens.end() ? nullptr : &*found;
}

}  // namespace zephyl::app::render
