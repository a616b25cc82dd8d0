// For the tests of the manage cell: one cell, outside of a window until it is shown.

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/uikit/text/UIImageView.h"
#include "platform/uikit/text/UILabel.h"

#include "ui/groups/GroupCellTest.h"
#include "ui/groups/ZephylsManageTableViewCell.h"

namespace zephyl::test {

class ManageCellTest : public GroupCellTest {
 protected:
  using Cell = ZephylsManageTableViewCell;

  [[nodiscard]] std::shared_ptr<UILabel> label(std::int64_t tag) const {
    return std::dynamic_pointer_cast<UILabel>(cell_->viewWithTag(tag));
  }
  [[nodiscard]] std::string text(std::int64_t tag) const { return label(tag)->text(); }
  [[nodiscard]] UIImageRef lock() const {
    return std::dynamic_pointer_cast<UIImageView>(cell_->viewWithTag(Cell::kLockTag))->image();
  }
  std::shared_ptr<UIView> addMarker() {
    auto marker = std::make_shared<UIView>(CGRectMake(0, 0, 5, 44));
    marker->setTag(Cell::kMarkerTag);
    cell_->contentView()->addSubview(marker);
    return marker;
  }
  void fill(const ZephylRef& group) {
    cell_->setZephyl(group);
    window_->layoutWindow();
  }

  std::shared_ptr<Cell> cell_ =
      std::make_shared<Cell>(UITableViewCellStyle::kDefault, "defaultCell");
};

}  // namespace zephyl::test
