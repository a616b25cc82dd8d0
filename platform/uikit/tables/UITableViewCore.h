// What a table knows, and what it does with it, by subject: layout, reuse, selection, editing,
// changes, the section index and the keyboard have a source each. Private to the table.

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/uikit/tables/TableGeometry.h"
#include "platform/uikit/tables/TableUpdate.h"
#include "platform/uikit/tables/UITableView.h"

namespace zephyl {

class TableBlankRows;
class TableSectionIndex;
class UIPanGestureRecognizer;

struct UITableView::Core {
  using Views = std::vector<std::shared_ptr<UIView>>;

  // A header or footer that is seen.
  struct Banner {
    std::shared_ptr<UIView> view;
    // The view's own class, to be used again; null for one of the delegate's that is none.
    std::shared_ptr<UITableViewHeaderFooterView> reusable;
  };
  // A finger on a row, which is highlighted when it rests there.
  struct Press {
    NSIndexPath path;
    double begun = 0;
    bool highlighted = false;
  };
  // The row that is swiped aside.
  struct Swipe {
    Cell cell;
    // Of its button.
    std::string title;
    CGFloat start = 0;
    bool dragged = false;
  };
  // What was changed since `beginUpdates`.
  struct Changes {
    int depth = 0;
    TableChanges changes;
    std::set<std::int64_t> headerFooters;
    bool animated = false;
  };
  // While rows and sections find their new places.
  struct Transition {
    const TableUpdate& update;
    TableGeometry before;
  };
  struct Editing {
    bool canEdit = false;
    UITableViewCellEditingStyle style = UITableViewCellEditingStyle::kNone;
    bool indents = true;
  };

  explicit Core(UITableView& owner, UITableViewStyle tableStyle)
      : table(owner), style(tableStyle) {}

  // Data (UITableViewData.cpp).
  [[nodiscard]] std::shared_ptr<UITableViewDataSource> source() const;
  [[nodiscard]] std::shared_ptr<UITableViewDelegate> rules() const;
  void loadIfNeeded();
  void load();
  [[nodiscard]] std::vector<TableGeometry::Section> askSections();
  [[nodiscard]] CGFloat headerHeight(std::int64_t section);
  [[nodiscard]] CGFloat footerHeight(std::int64_t section);
  [[nodiscard]] CGFloat titleHeight(const std::string& title, bool isFooter) const;
  void heightsChanged();

  // Layout (UITableViewLayout.cpp).
  void layout();
  void layoutBackdrop();
  void layoutRows();
  void layoutBanners();
  void layoutBanner(std::int64_t section, bool isFooter);
  [[nodiscard]] CGRect bannerFrame(std::int64_t section, bool isFooter) const;
  void layoutIndex();
  void layoutBlankRows();
  [[nodiscard]] std::size_t frontIndex() const;
  void placeRow(const NSIndexPath& path);
  [[nodiscard]] CGRect rowFrame(const NSIndexPath& path) const;
  [[nodiscard]] CGRect frameOf(const TableSpan& span) const;
  // All but how it is edited.
  [[nodiscard]] TableCellSurroundings surroundingsOf(const NSIndexPath& path,
                                                     TableCellSurroundings present) const;
  void updateCells(bool animated);
  [[nodiscard]] bool holdsFirstResponder(const UIView& view) const;
  [[nodiscard]] std::size_t indexForCell(const NSIndexPath& path) const;
  void scrollTo(CGFloat y, bool animated);

  // Reuse (UITableViewReuse.cpp).
  [[nodiscard]] Cell makeCell(const NSIndexPath& path);
  void prepare(const Cell& cell, const NSIndexPath& path);
  void recycle(const Cell& cell);
  void recycle(const Banner& banner);
  void recycleAll();
  [[nodiscard]] Banner makeBanner(std::int64_t section, bool isFooter);

  // Selection (UITableViewSelection.cpp).
  [[nodiscard]] bool canSelect(const NSIndexPath& path);
  [[nodiscard]] bool selectsMany(const NSIndexPath& path);
  void markSelected(const NSIndexPath& path, bool selected, bool animated);
  bool tap(const NSIndexPath& path);
  void highlightPress();
  void endPress();

  // Editing (UITableViewEditing.cpp, UITableViewSwipe.cpp).
  [[nodiscard]] Editing editingOf(const NSIndexPath& path);
  void editControlTapped(const UITableViewCell& cell);
  void commit(const UITableViewCell& cell, UITableViewCellEditingStyle how);
  void addSwipeRecognizer();
  [[nodiscard]] bool canSwipe(const NSIndexPath& path);
  void swiped();
  void openSwipe(const Cell& cell);
  void closeSwipe(bool animated);
  void moveSwiped(CGFloat offset, bool animated);
  [[nodiscard]] std::string deleteTitle(const NSIndexPath& path);

  // Changes (UITableViewUpdates.cpp).
  void apply(const std::function<void(TableChanges&)>& note, Animation animation);
  void runUpdates();
  void remap(const TableUpdate& update, Views& leaving);
  void remapBanners(const TableUpdate& update, const std::set<std::int64_t>& anew, Views& leaving);
  // As a cell, a header or a footer.
  [[nodiscard]] bool isShown(const UIView& view) const;

  // Section index and keyboard (UITableViewIndex.cpp, UITableViewKeyboard.cpp).
  void makeRoom(CGFloat room);
  void loadIndex();
  void pickIndex(std::int64_t entry);
  void focus(const std::optional<NSIndexPath>& path, bool scrolls);
  bool moveFocus(std::int64_t by);
  bool deleteFocused();
  [[nodiscard]] bool key(const UIKeyPress& stroke);
  [[nodiscard]] bool keyWhileSwiped(const UIKeyPress& stroke);
  void layoutFocusRing();

  UITableView& table;
  const UITableViewStyle style;
  std::weak_ptr<UITableViewDataSource> dataSource;
  std::weak_ptr<UITableViewDelegate> delegate;

  TableGeometry geometry;
  bool needsLoad = true;
  // And the cells are of no more use.
  bool needsCells = false;
  // Inside a question to data source or delegate.
  bool asking = false;
  bool layingOut = false;
  CGFloat loadedWidth = 0;

  CGFloat rowHeight = 44;
  CGFloat sectionHeaderHeight = UITableViewAutomaticDimension;
  CGFloat sectionFooterHeight = UITableViewAutomaticDimension;
  UITableViewCellSeparatorStyle separatorStyle = UITableViewCellSeparatorStyle::kSingleLine;
  UIEdgeInsets separatorInset{0, -1, 0, 0};
  std::shared_ptr<UIView> headerView;
  std::shared_ptr<UIView> footerView;
  std::shared_ptr<UIView> backgroundView;
  std::shared_ptr<TableBlankRows> blankRows;
  std::shared_ptr<UIRefreshControl> refresh;
  std::shared_ptr<TableSectionIndex> index;
  std::vector<std::string> indexTitles;

  std::map<NSIndexPath, Cell> cells;
  std::map<std::int64_t, Banner> headers;
  std::map<std::int64_t, Banner> footers;
  std::map<std::string, CellMaker> cellMakers;
  std::map<std::string, HeaderFooterMaker> bannerMakers;
  std::map<std::string, std::vector<Cell>> spareCells;
  std::map<std::string, std::vector<std::shared_ptr<UITableViewHeaderFooterView>>> spareBanners;

  bool allowsSelection = true;
  bool allowsSelectionDuringEditing = false;
  bool allowsMultipleSelection = false;
  bool allowsMultipleSelectionDuringEditing = false;
  std::set<NSIndexPath> selected;
  std::optional<Press> press;
  int pressNumber = 0;
  bool touchOnlyStopped = false;

  bool editing = false;
  std::optional<Swipe> swipe;
  std::shared_ptr<UIPanGestureRecognizer> swipePan;

  Changes changes;
  const Transition* running = nullptr;

  std::optional<NSIndexPath> focusedRow;
  std::shared_ptr<UIView> focusRing;
  bool focusShown = false;
};

}  // namespace zephyl
