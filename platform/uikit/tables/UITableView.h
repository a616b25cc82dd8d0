// A list of rows in sections, of which only those that are seen exist as cells. Main thread.
//
// What there is, the data source says; how it looks and what a tap does, the delegate; neither is
// kept alive. After `reloadData`, and before the first layout, counts and heights are asked for
// once; a cell is asked for when its row comes into view, and used again when it has left. What is
// asked of the table by index path is answered as of the last reload.
//
// Keys: arrows, Home, End and the page keys move a focused row, Return and Space tap it, Delete
// and Backspace ask to delete it, which a second one does, and Escape lets be.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/uikit/tables/UIScrollView.h"
#include "platform/uikit/tables/UITableViewCell.h"
#include "platform/uikit/tables/UITableViewHeaderFooterView.h"
#include "platform/uikit/tables/UITableViewProtocols.h"

namespace zephyl {

class UIRefreshControl;

class ZP_EXPORT UITableView : public UIScrollView {
 public:
  using CellMaker = std::function<std::shared_ptr<UITableViewCell>(const std::string& identifier)>;
  using HeaderFooterMaker =
      std::function<std::shared_ptr<UITableViewHeaderFooterView>(const std::string& identifier)>;
  using Cell = std::shared_ptr<UITableViewCell>;
  using Paths = std::vector<NSIndexPath>;
  using Sections = std::vector<std::int64_t>;
  using Animation = UITableViewRowAnimation;

  explicit UITableView(const CGRect& frame = {}, UITableViewStyle style = UITableViewStyle::kPlain);
  ~UITableView() override;

  [[nodiscard]] UITableViewStyle style() const;
  void setDataSource(std::weak_ptr<UITableViewDataSource> source);
  void setDelegate(const std::weak_ptr<UITableViewDelegate>& delegate);
  // During a callback of the table's: afterwards.
  void reloadData();
  [[nodiscard]] std::int64_t numberOfSections();
  [[nodiscard]] std::int64_t numberOfRowsInSection(std::int64_t section);

  // Reuse. A registered class makes what there is none left of; else dequeuing gives null.
  void registerClass(CellMaker maker, const std::string& identifier);
  void registerHeaderFooterClass(HeaderFooterMaker maker, const std::string& identifier);
  [[nodiscard]] Cell dequeueReusableCellWithIdentifier(const std::string& identifier);
  [[nodiscard]] std::shared_ptr<UITableViewHeaderFooterView>
  dequeueReusableHeaderFooterViewWithIdentifier(const std::string& identifier);

  // Rows and places. Cells only of rows that are seen.
  [[nodiscard]] Cell cellForRowAtIndexPath(const NSIndexPath& indexPath);
  [[nodiscard]] std::optional<NSIndexPath> indexPathForCell(const UITableViewCell& cell) const;
  // Not where a header or footer is; in the table's coordinates.
  [[nodiscard]] std::optional<NSIndexPath> indexPathForRowAtPoint(CGPoint point);
  [[nodiscard]] Paths indexPathsForVisibleRows();
  [[nodiscard]] std::shared_ptr<UIView> headerViewForSection(std::int64_t section) const;
  [[nodiscard]] std::shared_ptr<UIView> footerViewForSection(std::int64_t section) const;
  [[nodiscard]] CGRect rectForRowAtIndexPath(const NSIndexPath& indexPath);
  [[nodiscard]] CGRect rectForSection(std::int64_t section);
  [[nodiscard]] CGRect rectForHeaderInSection(std::int64_t section);
  [[nodiscard]] CGRect rectForFooterInSection(std::int64_t section);
  // Nothing for a row that there is not.
  void scrollToRowAtIndexPath(const NSIndexPath& indexPath, UITableViewScrollPosition position,
                              bool animated);

  // Looks. Changing a height has an effect at once.
  [[nodiscard]] CGFloat rowHeight() const;
  void setRowHeight(CGFloat height);
  // Of every section for which the delegate has none.
  void setSectionHeaderHeight(CGFloat height);
  void setSectionFooterHeight(CGFloat height);
  void setSeparatorStyle(UITableViewCellSeparatorStyle style);
  void setSeparatorInset(const UIEdgeInsets& inset);
  // As high as they are when they are set, or when they are set again; as wide as the table.
  [[nodiscard]] const std::shared_ptr<UIView>& tableHeaderView() const;
  void setTableHeaderView(const std::shared_ptr<UIView>& view);
  [[nodiscard]] const std::shared_ptr<UIView>& tableFooterView() const;
  void setTableFooterView(const std::shared_ptr<UIView>& view);
  // Behind the rows; does not move with them.
  void setBackgroundView(const std::shared_ptr<UIView>& view);
  [[nodiscard]] const std::shared_ptr<UIRefreshControl>& refreshControl() const;
  void setRefreshControl(const std::shared_ptr<UIRefreshControl>& control);

  // Selection. What the program selects, the delegate is not told of.
  [[nodiscard]] bool allowsSelection() const;
  void setAllowsSelection(bool allows);
  void setAllowsSelectionDuringEditing(bool allows);
  void setAllowsMultipleSelection(bool allows);
  [[nodiscard]] bool allowsMultipleSelectionDuringEditing() const;
  void setAllowsMultipleSelectionDuringEditing(bool allows);
  [[nodiscard]] std::optional<NSIndexPath> indexPathForSelectedRow() const;
  [[nodiscard]] Paths indexPathsForSelectedRows() const;
  void selectRowAtIndexPath(const NSIndexPath& indexPath, bool animated,
                            UITableViewScrollPosition position);
  void deselectRowAtIndexPath(const NSIndexPath& indexPath, bool animated);

  // Changes, alone or gathered between `beginUpdates` and the last `endUpdates`. Deletions and
  // reloads are counted as it was before all of them, insertions as it is afterwards. When that
  // does not add up with what the data source says, the system log says so and all is reloaded.
  void beginUpdates();
  void endUpdates();
  void insertRowsAtIndexPaths(const Paths& paths, Animation animation);
  void deleteRowsAtIndexPaths(const Paths& paths, Animation animation);
  void reloadRowsAtIndexPaths(const Paths& paths, Animation animation);
  void insertSections(const Sections& sections, Animation animation);
  void deleteSections(const Sections& sections, Animation animation);
  void reloadSections(const Sections& sections, Animation animation);
  // Asks anew for the headers and footers of the sections and their heights.
  void _reloadSectionHeaderFooters(const Sections& sections, Animation animation);

  [[nodiscard]] bool isEditing() const;
  // Nothing is selected afterwards.
  void setEditing(bool editing, bool animated);
  // The row that is swiped aside, with its button to delete it.
  [[nodiscard]] std::optional<NSIndexPath> indexPathForSwipedRow() const;

  // The row that keys go to.
  [[nodiscard]] std::optional<NSIndexPath> indexPathForFocusedRow() const;

  void layoutSubviews() override;
  void setFrame(const CGRect& frame) override;
  void touchesBegan(const UITouch& touch) override;
  void touchesMoved(const UITouch& touch) override;
  void touchesEnded(const UITouch& touch) override;
  void touchesCancelled(const UITouch& touch) override;
  bool gestureRecognizerShouldBegin(const UIGestureRecognizer& gesture) override;
  bool contextMenuRequested(const UITouch& touch) override;
  bool pressesBegan(const UIKeyPress& press) override;
  // Whether the table itself used the key: for screens, which hand theirs over.
  bool handleKey(const UIKeyPress& press);
  [[nodiscard]] bool canBecomeFirstResponder() const override { return true; }
  bool becomeFirstResponder() override;
  bool resignFirstResponder() override;
  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kTable;
  }
  [[nodiscard]] const char* className() const override { return "UITableView"; }

 protected:
  void contentOffsetDidChange() override;
  void fingerDidTouch(bool stopped) override;
  void draggingDidBegin() override;
  void draggingDidEnd() override;

 private:
  // Everything else: UITableViewCore.h.
  struct Core;
  std::unique_ptr<Core> core_;
};

}  // namespace zephyl
