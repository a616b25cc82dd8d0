#include "ui/groups/ZephylsViewController.h"

#include <atomic>
#include <utility>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"
#include "platform/foundation/NSNotificationCenter.h"

#include "model/ZPLocalizedText.h"
#include "model/ZPSettings.h"
#include "store/ZephylsDataController.h"

namespace zephyl {

namespace {

constexpr CGFloat kRowHeight = 44;
constexpr CGFloat kTileHeight = 100;

GroupSections currentSections(std::int64_t mode) {
  const auto store = ZephylsDataController::sharedInstance();
  const auto settings = ZPSettings::sharedSettings();
  const GroupOrder order{settings->zephylsSortBy() == 0, settings->zephylsSortOrder() == 0};
  return {mode == ZephylsModeManage ? *store->allZephyls()->snapshot() : store->activeZephyls(),
          /*withSystemGroups=*/mode != ZephylsModeAddToGroups, order};
}

}  // namespace

// Read and written on any thread.
struct ZephylsViewController::Rebuilds {
  std::atomic<std::int64_t> mode = ZephylsModeBrowse;
  // How many lists were begun.
  std::atomic<std::uint64_t> turns = 0;
};

ZephylsViewController::ZephylsViewController(UITableViewStyle style)
    : UITableViewController(style), rebuilds_(std::make_shared<Rebuilds>()) {}

ZephylsViewController::ZephylsViewController(UITableViewStyle style, CKConversationRef conversation)
    : ZephylsViewController(style) {
  conversation_ = std::move(conversation);
  setZephylsMode(conversation_ != nullptr ? ZephylsModeAddToGroups : ZephylsModeBrowse);
}

// Kept: an empty list of conversations adds to groups, an empty one of people does not.
ZephylsViewController::ZephylsViewController(UITableViewStyle style,
                                             std::optional<CKConversationArray> conversations)
    : ZephylsViewController(style) {
  conversations_ = std::move(conversations);
  setZephylsMode(conversations_ ? ZephylsModeAddToGroups : ZephylsModeBrowse);
}

ZephylsViewController::ZephylsViewController(UITableViewStyle style,
                                             std::optional<ZPRecipientArray> recipients)
    : ZephylsViewController(style) {
  recipients_ = std::move(recipients);
  setZephylsMode(recipients_ && !recipients_->empty() ? ZephylsModeAddToGroups : ZephylsModeBrowse);
}

ZephylsViewController::~ZephylsViewController() {
  NSNotificationCenter::defaultCenter()->removeObserver(this);
}

void ZephylsViewController::setZephylsDelegate(
    std::weak_ptr<const ZephylsViewControllerDelegate> delegate) {
  zephylsDelegate_ = std::move(delegate);
}

const std::optional<CKConversationArray>& ZephylsViewController::conversations() const {
  return conversations_;
}

void ZephylsViewController::setConversations(std::optional<CKConversationArray> value) {
  conversations_ = std::move(value);
}

std::int64_t ZephylsViewController::zephylsMode() const {
  return rebuilds_->mode;
}

void ZephylsViewController::setZephylsMode(std::int64_t mode) {
  rebuilds_->mode = mode;
}

ZephylsViewController::Self ZephylsViewController::weakSelf() {
  return std::static_pointer_cast<ZephylsViewController>(shared_from_this());
}

void ZephylsViewController::onMain(const Self& screen, Action action) {
  host().dispatch().mainAsync([screen, action = std::move(action)] {
    if (const auto self = screen.lock()) {
      action(*self);
    }
  });
}

void ZephylsViewController::viewDidLoad() {
  UITableViewController::viewDidLoad();
  shouldShowAsGrid_ = false;
  makeButtons();
  tableView()->setRowHeight(shouldShowAsGrid_ ? kTileHeight : kRowHeight);
  sections_ = std::make_shared<const GroupSections>();
  updateTableView();
  // Kept: only while browsing, which has no Edit button. Managing, rows are marked by their
  // editing style.
  tableView()->setAllowsMultipleSelectionDuringEditing(zephylsMode() == ZephylsModeBrowse);
  observeNotifications();
}

// Posted on any thread, where nothing may keep the screen: it is the main thread's to let go.
void ZephylsViewController::observeNotifications() {
  for (const char* const name :
       {kZephylAddedNotification, kZephylChangedNotification, kZephylDeletedNotification,
        kZephylDataUpdateNotification, kZephylsSettingsChangedNotification}) {
    NSNotificationCenter::defaultCenter()->addObserver(
        this, name, [screen = weakSelf(), rebuilds = rebuilds_](const NSNotification&) {
          rebuild(screen, rebuilds);
        });
  }
}

void ZephylsViewController::updateTableView() {
  rebuild(weakSelf(), rebuilds_);
}

void ZephylsViewController::rebuild(const Self& screen, const std::shared_ptr<Rebuilds>& rebuilds) {
  host().dispatch().globalAsync(QueuePriority::kDefault, [screen, rebuilds] {
    if (screen.expired()) {
      return;
    }
    const std::uint64_t turn = ++rebuilds->turns;
    auto sections = std::make_shared<const GroupSections>(currentSections(rebuilds->mode));
    onMain(screen, [turn, sections = std::move(sections)](ZephylsViewController& self) {
      self.show(turn, sections);
    });
  });
}

void ZephylsViewController::show(std::uint64_t turn,
                                 std::shared_ptr<const GroupSections> sections) {
  const std::set<std::int64_t> marked = markedGroups();
  if (turn > shownTurn_) {
    shownTurn_ = turn;
    sections_ = std::move(sections);
    followReplacedGroups();
  }
  if (isViewLoaded()) {
    tableView()->reloadData();
    markGroups(marked);
  }
}

// A group that was changed is another object: what was ticked is then that one, so that nothing of
// the change is undone when something is added.
void ZephylsViewController::followReplacedGroups() {
  for (ZephylRef& selected : selectedGroups_) {
    for (const auto& [key, groups] : sections_->groups()) {
      for (const ZephylRef& group : groups) {
        if (group->isEqual(*selected)) {
          selected = group;
        }
      }
    }
  }
}

}  // namespace zephyl
