// For tests: a table of texts in a window, whose data source counts what it is asked, and whose
// delegate writes down what it is told.

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/tables/UITableView.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UILabel.h"

#include "hosts/fake/Device.h"

namespace zephyl::test {

inline std::string textOf(const NSIndexPath& path) {
  return std::to_string(path.section) + "." + std::to_string(path.row);
}

class TableSource : public UITableViewDataSource {
 public:
  std::int64_t numberOfSectionsInTableView(UITableView& /*tableView*/) override {
    ++sectionCalls;
    return std::ssize(rows);
  }
  std::int64_t numberOfRowsInSection(UITableView& /*tableView*/, std::int64_t section) override {
    ++rowCalls;
    const auto at = static_cast<std::size_t>(section);
    return at < rows.size() ? std::ssize(rows[at]) : 0;
  }
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& tableView,
                                                         const NSIndexPath& path) override {
    ++cellCalls;
    if (meanwhile) {
      meanwhile(tableView);
    }
    auto cell = tableView.dequeueReusableCellWithIdentifier("cell");
    if (cell == nullptr) {
      cell = std::make_shared<UITableViewCell>(UITableViewCellStyle::kDefault, "cell");
      ++cellsMade;
    }
    cell->textLabel()->setText(
        rows.at(static_cast<std::size_t>(path.section)).at(static_cast<std::size_t>(path.row)));
    return cell;
  }
  std::string titleForHeaderInSection(UITableView& /*tableView*/, std::int64_t section) override {
    return headers.contains(section) ? headers.at(section) : std::string();
  }
  std::string titleForFooterInSection(UITableView& /*tableView*/, std::int64_t section) override {
    return footers.contains(section) ? footers.at(section) : std::string();
  }
  std::vector<std::string> sectionIndexTitlesForTableView(UITableView& /*tableView*/) override {
    return indexTitles;
  }
  std::int64_t sectionForSectionIndexTitle(UITableView& /*tableView*/, const std::string& title,
                                           std::int64_t index) override {
    log += "index " + title + " ";
    return sectionOfIndex ? sectionOfIndex(index) : index;
  }
  bool canEditRowAtIndexPath(UITableView& /*tableView*/, const NSIndexPath& path) override {
    return canEdit && canEdit(path);
  }
  void commitEditingStyle(UITableView& tableView, UITableViewCellEditingStyle style,
                          const NSIndexPath& path) override {
    log += (style == UITableViewCellEditingStyle::kDelete ? "delete " : "insert ") + textOf(path) +
           " ";
    if (committed) {
      committed(tableView, path);
    }
  }

  // So many rows "0", "1"...
  void setRows(std::size_t count) {
    rows = {{}};
    for (std::size_t i = 0; i < count; ++i) {
      rows[0].push_back(std::to_string(i));
    }
  }

  std::vector<std::vector<std::string>> rows;
  std::map<std::int64_t, std::string> headers;
  std::map<std::int64_t, std::string> footers;
  std::vector<std::string> indexTitles;
  std::function<std::int64_t(std::int64_t)> sectionOfIndex;
  std::function<bool(const NSIndexPath&)> canEdit;
  std::function<void(UITableView&, const NSIndexPath&)> committed;
  std::function<void(UITableView&)> meanwhile;
  int sectionCalls = 0;
  int rowCalls = 0;
  int cellCalls = 0;
  int cellsMade = 0;
  std::string log;
};

class TableRules : public UITableViewDelegate {
 public:
  std::optional<CGFloat> heightForRowAtIndexPath(UITableView& /*tableView*/,
                                                 const NSIndexPath& path) override {
    ++heightCalls;
    return rowHeight ? std::optional(rowHeight(path)) : std::nullopt;
  }
  std::optional<CGFloat> heightForHeaderInSection(UITableView& /*tableView*/,
                                                  std::int64_t section) override {
    return headerHeight ? headerHeight(section) : std::nullopt;
  }
  std::optional<CGFloat> heightForFooterInSection(UITableView& /*tableView*/,
                                                  std::int64_t section) override {
    return footerHeight ? footerHeight(section) : std::nullopt;
  }
  std::shared_ptr<UIView> viewForHeaderInSection(UITableView& /*tableView*/,
                                                 std::int64_t section) override {
    ++viewCalls;
    return headerView ? headerView(section) : nullptr;
  }
  std::shared_ptr<UIView> viewForFooterInSection(UITableView& /*tableView*/,
                                                 std::int64_t section) override {
    ++viewCalls;
    return footerView ? footerView(section) : nullptr;
  }
  std::optional<NSIndexPath> willSelectRowAtIndexPath(UITableView& /*tableView*/,
                                                      const NSIndexPath& path) override {
    return refused.contains(path) ? std::nullopt : std::optional(path);
  }
  void didSelectRowAtIndexPath(UITableView& tableView, const NSIndexPath& path) override {
    log += "select " + textOf(path) + " ";
    if (selected) {
      selected(tableView, path);
    }
  }
  void didDeselectRowAtIndexPath(UITableView& /*tableView*/, const NSIndexPath& path) override {
    log += "deselect " + textOf(path) + " ";
  }
  UITableViewCellEditingStyle editingStyleForRowAtIndexPath(UITableView& /*tableView*/,
                                                            const NSIndexPath& /*path*/) override {
    return editingStyle;
  }

  std::function<CGFloat(const NSIndexPath&)> rowHeight;
  std::function<std::optional<CGFloat>(std::int64_t)> headerHeight;
  std::function<std::optional<CGFloat>(std::int64_t)> footerHeight;
  std::function<std::shared_ptr<UIView>(std::int64_t)> headerView;
  std::function<std::shared_ptr<UIView>(std::int64_t)> footerView;
  std::function<void(UITableView&, const NSIndexPath&)> selected;
  std::set<NSIndexPath> refused;
  UITableViewCellEditingStyle editingStyle = UITableViewCellEditingStyle::kDelete;
  int heightCalls = 0;
  int viewCalls = 0;
  std::string log;
};

// A table of 320 by 440 points, ten rows high, at the upper left corner of a window.
class TableTest : public ::testing::Test {
 protected:
  explicit TableTest(UITableViewStyle style = UITableViewStyle::kPlain)
      : table_(std::make_shared<UITableView>(CGRectMake(0, 0, 320, 440), style)) {
    table_->setDataSource(source_);
    table_->setDelegate(rules_);
    window_->addSubview(table_);
  }

  void layout() { window_->layoutWindow(); }
  void settle() {
    device_.uikit()->displayLink().runUntilIdle();
    layout();
  }
  // In the window.
  [[nodiscard]] CGPoint middleOfRow(const NSIndexPath& path) {
    const CGRect row = table_->rectForRowAtIndexPath(path);
    return {160, row.midY() - table_->contentOffset().y};
  }
  void tapRow(const NSIndexPath& path) { tap(*window_, middleOfRow(path)); }
  // A finger that goes sideways over a row in ten steps, rests, and leaves.
  void swipeRow(const NSIndexPath& path, CGFloat dx) {
    const CGPoint from = middleOfRow(path);
    double time = 100;
    touch(*window_, UITouchPhase::kBegan, from, time);
    for (int i = 1; i <= 10; ++i) {
      time += 1.0 / 60;
      touch(*window_, UITouchPhase::kMoved, {from.x + dx * i / 10, from.y}, time);
    }
    touch(*window_, UITouchPhase::kEnded, {from.x + dx, from.y}, time + 1);
    layout();
  }
  bool press(UIKey key) {
    const bool used = table_->pressesBegan({key, "", false, false});
    layout();
    return used;
  }
  // What the visible rows show, from the top.
  [[nodiscard]] std::string shown() {
    layout();
    std::string text;
    for (const NSIndexPath& path : table_->indexPathsForVisibleRows()) {
      const auto cell = table_->cellForRowAtIndexPath(path);
      text += (cell == nullptr ? "-" : cell->textLabel()->text()) + " ";
    }
    return text;
  }
  std::shared_ptr<UITableViewCell> cell(std::int64_t row, std::int64_t section = 0) {
    return table_->cellForRowAtIndexPath({section, row});
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<TableSource> source_ = std::make_shared<TableSource>();
  std::shared_ptr<TableRules> rules_ = std::make_shared<TableRules>();
  std::shared_ptr<UITableView> table_;
};

}  // namespace zephyl::test
