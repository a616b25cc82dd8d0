// A group as a row: a lock, the title with the unread count, the subtitle or that the group is
// disabled, and in the normal mode the check mark of the active group. Main thread.
//
// Its subviews are found by their tags, so that whoever shows the cell may take some away or put
// others in their place. The screen sets the mode before the group.

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Export.h"
#include "platform/uikit/tables/UITableViewCell.h"

namespace zephyl {

class UILabel;
class Zephyl;

class ZP_EXPORT ZephylsManageTableViewCell : public UITableViewCell {
 public:
  // The marker is never made here: who shows the cell may add a view with the tag.
  static constexpr std::int64_t kMarkerTag = 1;
  static constexpr std::int64_t kLockTag = 2;
  static constexpr std::int64_t kTitleTag = 3;
  static constexpr std::int64_t kSubtitleTag = 4;
  static constexpr std::int64_t kCheckTag = 5;

  ZephylsManageTableViewCell(UITableViewCellStyle style, const std::string& reuseIdentifier);

  // 0 is the normal mode, the only one with a check mark. Kept: in the others the cell keeps
  // whatever mark it had.
  [[nodiscard]] std::int64_t zephylsMode() const { return zephylsMode_; }
  void setZephylsMode(std::int64_t mode) { zephylsMode_ = mode; }

  // Fills the cell, also when it is the group that it has: the group may have changed. Null fills
  // nothing.
  [[nodiscard]] const std::shared_ptr<Zephyl>& zephyl() const { return zephyl_; }
  void setZephyl(const std::shared_ptr<Zephyl>& group);

  // Everything is placed from the left where the cell is made. Where the language runs the other
  // way, it is mirrored here.
  void layoutSubviews() override;
  // Both clear the backgrounds in a cell: the marker gets its colour back.
  void setHighlighted(bool highlighted, bool animated) override;
  // Kept: title and subtitle are filled again, but neither shown nor hidden.
  void setSelected(bool selected, bool animated) override;
  // Title and subtitle are dimmed while it is off.
  void setUserInteractionEnabled(bool enabled) override;

  // Checked by its check mark; called by what its labels and its lock show.
  [[nodiscard]] UIAccessibilityState accessibilityState() const override;
  [[nodiscard]] const char* className() const override { return "ZephylsManageTableViewCell"; }

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  void makeSubviews();
  void mirrorSubviews();
  void fillMarker();
  void fillLock();
  void fillCheck();
  void fillTitle();
  void fillSubtitle();
  void stretchTitle();
  // Null when there is none, or it is no label.
  [[nodiscard]] std::shared_ptr<UILabel> labelWithTag(std::int64_t tag) const;

  // Where the check begins before version 13.
  CGFloat firstWidth_;
  std::int64_t zephylsMode_ = 0;
  std::shared_ptr<Zephyl> zephyl_;
};

}  // namespace zephyl
