#include "apps/zephyls/render/Screens.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/Host.h"
#include "platform/chatkit/CKConversationList.h"
#include "platform/uikit/controllers/UINavigationController.h"

#include "apps/common/CommandError.h"
#include "apps/zephyls/Session.h"
#include "ui/editor/ZPSelectRecipientsTableViewController.h"
#include "ui/groups/ZephylsViewController.h"

namespace zephyl::app::render {

namespace {

using GroupList = std::shared_ptr<ZephylsViewController>;

ShownScreen inNavigation(const std::shared_ptr<UIViewController>& screen,
                         std::shared_ptr<const void> kept = nullptr) {
  return {UINavigationController::initWithRootViewController(screen), std::move(kept)};
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
  list->setZephylsDelegate(delegate);
  return inNavigation(list, delegate);
}

ShownScreen makeManage(Session& /*session*/) {
  return inNavigation(makeManaging());
}

ShownScreen makeAdd(Session& session) {
  const auto conversation =
      chosenConversation(session, [](const CKConversation& /*any*/) { return true; });
  return inNavigation(
      std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain, conversation));
}

ShownScreen makeRecipients(Session& session) {
  const auto conversation = chosenConversation(
      session, [](const CKConversation& one) { return one.isGroupConversation(); });
  return inNavigation(std::make_shared<ZPSelectRecipientsTableViewController>(
      UITableViewStyle::kPlain, conversation));
}

}  // namespace

const std::vector<Screen>& allScreens() {
  static const std::vector<Screen> kScreens = {
      {"groups", "the groups to browse", makeGroups},
      {"manage", "the groups to manage", makeManage},
      {"add", "the groups to which a conversation is added", makeAdd},
      {"recipients", "the participants of a conversation", makeRecipients},
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
