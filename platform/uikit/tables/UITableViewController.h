// A screen that is a table: its view is the table, of which it is data source and delegate. Main
// thread.
//
// When it appears, it clears the selection, shows the scroll indicator for a moment and is what
// keys go to; while something in a row is typed into, it keeps that row in sight.

#pragma once

#include <memory>

#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/tables/UITableView.h"

namespace zephyl {

class UIRefreshControl;

class ZP_EXPORT UITableViewController : public UIViewController,
                                        public UITableViewDataSource,
                                        public UITableViewDelegate {
 public:
  explicit UITableViewController(UITableViewStyle style = UITableViewStyle::kPlain);
  ~UITableViewController() override;

  // Loads the view.
  const std::shared_ptr<UITableView>& tableView();
  [[nodiscard]] bool clearsSelectionOnViewWillAppear() const { return clearsSelection_; }
  void setClearsSelectionOnViewWillAppear(bool clears) { clearsSelection_ = clears; }
  [[nodiscard]] std::shared_ptr<UIRefreshControl> refreshControl();
  void setRefreshControl(const std::shared_ptr<UIRefreshControl>& control);

  void loadView() override;
  void viewWillAppear(bool animated) override;
  void viewDidAppear(bool animated) override;
  void viewDidLayoutSubviews() override;
  void setEditing(bool editing, bool animated = false) override;
  // Those that no one nearer used are the table's.
  bool pressesBegan(const UIKeyPress& press) override;

  // Without rows, until a screen says otherwise.
  std::int64_t numberOfRowsInSection(UITableView& tableView, std::int64_t section) override;
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& tableView,
                                                         const NSIndexPath& indexPath) override;

  [[nodiscard]] const char* className() const override { return "UITableViewController"; }

 private:
  UITableViewStyle style_;
  std::shared_ptr<UITableView> tableView_;
  // What was typed into at the last layout, by its address.
  const void* editedView_ = nullptr;
  bool clearsSelection_ = true;
};

}  // namespace zephyl
