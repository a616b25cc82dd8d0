// A Linux device with a phone's screen, installed for as long as it lives, and a list of groups on
// it: a bar with a title and two buttons, and rows with everything that a row can show.
//
// Main thread.

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/tables/UITableViewController.h"

#include "hosts/linux/screen/LinuxUIKit.h"
#include "hosts/linux/screen/ScreenDevice_testing.h"
#include "hosts/linux/screen/WindowPicture.h"
#include "model/Zephyl.h"

namespace zephyl {
class UIZPBadgeView;
}

namespace zephyl::bench {

// Light, nothing moves by itself.
class BenchScreen {
 public:
  static constexpr CGSize kSize{390, 844};
  static constexpr CGFloat kScale = 3;

  BenchScreen();

  [[nodiscard]] linux_host::LinuxUIKit& kit() { return device_.kit(); }
  [[nodiscard]] static linux_host::WindowPicture::Update update(linux_host::WindowPicture& picture);

 private:
  linux_host::ScreenDevice device_;
};

// What one row shows.
struct ShownGroup {
  std::string title;
  std::string subtitle;
  bool locked = false;
  bool active = false;
};

// Every third is locked, and the second is the active one.
[[nodiscard]] std::vector<ShownGroup> shownGroups(std::size_t count);

class GroupList : public UITableViewController {
 public:
  explicit GroupList(std::size_t count);

  std::int64_t numberOfRowsInSection(UITableView& table, std::int64_t section) override;
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& table,
                                                         const NSIndexPath& path) override;

 private:
  std::vector<ZephylRef> groups_;
};

// The list in a window, laid out, with a badge of 7 in the row of `kBadgeRow`.
class ListWindow {
 public:
  static constexpr std::int64_t kBadgeRow = 4;
  static constexpr CGPoint kBadgeCenter{300, 22};
  static constexpr char kTitle[] = "Zephyls";

  explicit ListWindow(BenchScreen& screen, std::size_t count = 1000);

  [[nodiscard]] UIWindow& window() { return *window_; }
  [[nodiscard]] UITableView& table() { return *list_->tableView(); }
  [[nodiscard]] UIZPBadgeView& badge() { return *badge_; }
  [[nodiscard]] linux_host::WindowPicture& picture() { return picture_; }

 private:
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRect{{}, BenchScreen::kSize});
  std::shared_ptr<GroupList> list_;
  std::shared_ptr<UIZPBadgeView> badge_;
  linux_host::WindowPicture picture_;
};

}  // namespace zephyl::bench
