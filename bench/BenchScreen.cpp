#include "bench/BenchScreen.h"

#include <utility>

#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/controllers/UIBarButtonItem.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"

#include "model/TestGroups.h"
#include "ui/components/UIZPBadgeView.h"
#include "ui/groups/ZephylsManageTableViewCell.h"

namespace zephyl::bench {

namespace {

using Cell = ZephylsManageTableViewCell;

constexpr UIUserInterfaceStyle kStyle = UIUserInterfaceStyle::kLight;

UIBarButtonItemRef barButton(UIBarButtonSystemItem item) {
  return std::make_shared<UIBarButtonItem>(item, std::weak_ptr<const void>(), nullptr);
}

linux_host::UIKitOptions screenOptions() {
  linux_host::UIKitOptions options = linux_host::stillScreen(BenchScreen::kScale);
  options.screen.size = BenchScreen::kSize;
  return options;
}

linux_host::DeviceOptions deviceOptions() {
  linux_host::DeviceOptions options;
  options.overlay = ZEPHYLS_OVERLAY;
  // Else nothing would be shown as protected.
  options.hasBiometrics = true;
  return options;
}

}  // namespace

BenchScreen::BenchScreen() : device_(screenOptions(), deviceOptions()) {}

linux_host::WindowPicture::Update BenchScreen::update(linux_host::WindowPicture& picture) {
  return picture.update(kScale, kStyle);
}

std::vector<ShownGroup> shownGroups(std::size_t count) {
  std::vector<ShownGroup> groups;
  groups.reserve(count);
  for (std::size_t index = 0; index < count; ++index) {
    const std::string number = std::to_string(index + 1);
    groups.push_back({"Conversation group " + number, "What number " + number + " is kept for",
                      index % 3 == 0, index == 1});
  }
  return groups;
}

GroupList::GroupList(std::size_t count) {
  std::int64_t number = 0;
  groups_.reserve(count);
  for (const ShownGroup& shown : shownGroups(count)) {
    test::GroupBuilder group(++number, shown.title);
    group.with(keys::kSubTitle, shown.subtitle).with(keys::kPasswordProtected, shown.locked);
    group.with(keys::kActive, shown.active);
    groups_.push_back(std::make_shared<Zephyl>(static_cast<Dictionary>(group)));
  }
}

std::int64_t GroupList::numberOfRowsInSection(UITableView& /*table*/, std::int64_t /*section*/) {
  return std::ssize(groups_);
}

std::shared_ptr<UITableViewCell> GroupList::cellForRowAtIndexPath(UITableView& table,
                                                                  const NSIndexPath& path) {
  auto cell = std::static_pointer_cast<Cell>(table.dequeueReusableCellWithIdentifier("group"));
  if (cell == nullptr) {
    cell = std::make_shared<Cell>(UITableViewCellStyle::kDefault, "group");
  }
  const ZephylRef& group = groups_.at(static_cast<std::size_t>(path.row));
  // Where the mark of the active group stands, there is room for nothing else.
  cell->setAccessoryType(group->isActive() ? UITableViewCellAccessoryType::kNone
                                           : UITableViewCellAccessoryType::kDisclosureIndicator);
  cell->setZephyl(group);
  return cell;
}

ListWindow::ListWindow(BenchScreen& screen, std::size_t count)
    : list_(std::make_shared<GroupList>(count)), picture_(*window_, screen.kit().paintCaches()) {
  list_->setTitle(kTitle);
  list_->navigationItem()->setLeftBarButtonItem(barButton(UIBarButtonSystemItem::kEdit));
  list_->navigationItem()->setRightBarButtonItem(barButton(UIBarButtonSystemItem::kAdd));
  window_->setRootViewController(UINavigationController::initWithRootViewController(list_));
  window_->layoutWindow();
  badge_ = std::make_shared<UIZPBadgeView>();
  badge_->setBadgeValue(7);
  table().cellForRowAtIndexPath({0, kBadgeRow})->contentView()->addSubview(badge_);
  badge_->setCenter(kBadgeCenter);
  finishAllAnimations();
  window_->layoutWindow();
}

}  // namespace zephyl::bench
