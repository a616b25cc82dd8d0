// What a table asks of others: its data source, what there is; its delegate, how it is shown and
// what to do about it. Main thread.
//
// Counts, titles and heights are asked for once per reload; a cell is when its row comes into view.
// Whatever is answered does no harm: counts below 0 are 0, heights that are none are 0, and a row
// without a cell is empty. During any of these calls the table may be told to reload, which it then
// does afterwards.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/tables/NSIndexPath.h"
#include "platform/uikit/tables/UIScrollView.h"
#include "platform/uikit/tables/UITableViewEnumerations.h"

namespace zephyl {

class UITableView;
class UITableViewCell;

// Not found, among numbers.
constexpr std::int64_t NSNotFound = std::numeric_limits<std::int64_t>::max();
// The entry of a section index that is shown as a magnifying glass.
constexpr const char* UITableViewIndexSearch = "{search}";

class ZP_EXPORT UITableViewDataSource {
 public:
  virtual ~UITableViewDataSource() = default;

  [[nodiscard]] virtual std::int64_t numberOfSectionsInTableView(UITableView& /*tableView*/) {
    return 1;
  }
  [[nodiscard]] virtual std::int64_t numberOfRowsInSection(UITableView& tableView,
                                                           std::int64_t section) = 0;
  [[nodiscard]] virtual std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(
      UITableView& tableView, const NSIndexPath& indexPath) = 0;

  // Empty for none.
  [[nodiscard]] virtual std::string titleForHeaderInSection(UITableView& /*tableView*/,
                                                            std::int64_t /*section*/) {
    return {};
  }
  [[nodiscard]] virtual std::string titleForFooterInSection(UITableView& /*tableView*/,
                                                            std::int64_t /*section*/) {
    return {};
  }

  // The entries of the bar on the trailing side; none, no bar. And where one leads to: a section,
  // or NSNotFound when the data source has seen to it itself.
  [[nodiscard]] virtual std::vector<std::string> sectionIndexTitlesForTableView(
      UITableView& /*tableView*/) {
    return {};
  }
  [[nodiscard]] virtual std::int64_t sectionForSectionIndexTitle(UITableView& /*tableView*/,
                                                                 const std::string& /*title*/,
                                                                 std::int64_t index) {
    return index;
  }

  // Unlike on the phone no row can be edited unless the data source says so: C++ cannot see whether
  // the next one is there.
  [[nodiscard]] virtual bool canEditRowAtIndexPath(UITableView& /*tableView*/,
                                                   const NSIndexPath& /*indexPath*/) {
    return false;
  }
  // The user deletes the row, or inserts one at its place: it is the data source's to do so, and to
  // tell the table, now or later.
  virtual void commitEditingStyle(UITableView& /*tableView*/, UITableViewCellEditingStyle /*style*/,
                                  const NSIndexPath& /*indexPath*/) {}
};

class ZP_EXPORT UITableViewDelegate : public UIScrollViewDelegate {
 public:
  // Nothing when the rows have no heights of their own: that is answered for all of them or none,
  // and after the first such answer no more asked until the next reload.
  [[nodiscard]] virtual std::optional<CGFloat> heightForRowAtIndexPath(
      UITableView& /*tableView*/, const NSIndexPath& /*indexPath*/) {
    return std::nullopt;
  }
  // Nothing, or UITableViewAutomaticDimension, is the table's own choice, by the title.
  [[nodiscard]] virtual std::optional<CGFloat> heightForHeaderInSection(UITableView& /*tableView*/,
                                                                        std::int64_t /*section*/) {
    return std::nullopt;
  }
  [[nodiscard]] virtual std::optional<CGFloat> heightForFooterInSection(UITableView& /*tableView*/,
                                                                        std::int64_t /*section*/) {
    return std::nullopt;
  }
  // Goes before the title. Null for none. Asked when the section comes into view.
  [[nodiscard]] virtual std::shared_ptr<UIView> viewForHeaderInSection(UITableView& /*tableView*/,
                                                                       std::int64_t /*section*/) {
    return nullptr;
  }
  [[nodiscard]] virtual std::shared_ptr<UIView> viewForFooterInSection(UITableView& /*tableView*/,
                                                                       std::int64_t /*section*/) {
    return nullptr;
  }

  // Only what the user does is asked and told; nothing refuses.
  [[nodiscard]] virtual std::optional<NSIndexPath> willSelectRowAtIndexPath(
      UITableView& /*tableView*/, const NSIndexPath& indexPath) {
    return indexPath;
  }
  virtual void didSelectRowAtIndexPath(UITableView& /*tableView*/,
                                       const NSIndexPath& /*indexPath*/) {}
  virtual void didDeselectRowAtIndexPath(UITableView& /*tableView*/,
                                         const NSIndexPath& /*indexPath*/) {}

  // Of rows that can be edited.
  [[nodiscard]] virtual UITableViewCellEditingStyle editingStyleForRowAtIndexPath(
      UITableView& /*tableView*/, const NSIndexPath& /*indexPath*/) {
    return UITableViewCellEditingStyle::kDelete;
  }
  [[nodiscard]] virtual bool shouldIndentWhileEditingRowAtIndexPath(
      UITableView& /*tableView*/, const NSIndexPath& /*indexPath*/) {
    return true;
  }
  // Empty for the system's word.
  [[nodiscard]] virtual std::string titleForDeleteConfirmationButtonForRowAtIndexPath(
      UITableView& /*tableView*/, const NSIndexPath& /*indexPath*/) {
    return {};
  }
};

}  // namespace zephyl
