// Tables: plain and grouped, edited, swiped, indexed.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/tables/UIRefreshControl.h"
#include "platform/uikit/tables/UITableView.h"
#include "platform/uikit/tables/UITableViewCell.h"
#include "platform/uikit/tables/UITableViewController.h"
#include "platform/uikit/text/UILabel.h"

#include "apps/zephyls/render/Stage.h"
#include "apps/zephyls/render/StagedComponents.h"

namespace zephyl::app::render {

namespace {

using Accessory = UITableViewCellAccessoryType;

struct SampleRow {
  std::string text;
  std::string detail = {};
  UITableViewCellStyle style = UITableViewCellStyle::kDefault;
  Accessory accessory = Accessory::kNone;
};

struct SampleSection {
  std::string header;
  std::vector<SampleRow> rows;
  std::string footer = {};
};

class SampleTable : public UITableViewController {
 public:
  SampleTable(UITableViewStyle style, std::vector<SampleSection> sections)
      : UITableViewController(style), sections_(std::move(sections)) {}

  void setEditable(UITableViewCellEditingStyle style) {
    editable_ = true;
    editingStyle_ = style;
  }
  void setIndexed() { indexed_ = true; }

  std::int64_t numberOfSectionsInTableView(UITableView& /*tableView*/) override {
    return std::ssize(sections_);
  }
  std::int64_t numberOfRowsInSection(UITableView& /*tableView*/, std::int64_t section) override {
    return std::ssize(at(section).rows);
  }
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& /*tableView*/,
                                                         const NSIndexPath& path) override {
    const SampleRow& row = at(path.section).rows.at(static_cast<std::size_t>(path.row));
    auto cell = std::make_shared<UITableViewCell>(row.style, "cell");
    cell->textLabel()->setText(row.text);
    if (const auto& detail = cell->detailTextLabel()) {
      detail->setText(row.detail);
    }
    cell->setAccessoryType(row.accessory);
    return cell;
  }
  std::string titleForHeaderInSection(UITableView& /*tableView*/, std::int64_t section) override {
    return at(section).header;
  }
  std::string titleForFooterInSection(UITableView& /*tableView*/, std::int64_t section) override {
    return at(section).footer;
  }
  std::vector<std::string> sectionIndexTitlesForTableView(UITableView& /*tableView*/) override {
    std::vector<std::string> titles;
    if (indexed_) {
      titles.emplace_back(UITableViewIndexSearch);
      for (char letter = 'A'; letter <= 'Z'; ++letter) {
        titles.emplace_back(1, letter);
      }
      titles.emplace_back("#");
    }
    return titles;
  }
  bool canEditRowAtIndexPath(UITableView& /*tableView*/, const NSIndexPath& path) override {
    return editable_ && path.row > 0;
  }
  UITableViewCellEditingStyle editingStyleForRowAtIndexPath(UITableView& /*tableView*/,
                                                            const NSIndexPath& /*path*/) override {
    return editingStyle_;
  }

 private:
  [[nodiscard]] const SampleSection& at(std::int64_t section) const {
    return sections_.at(static_cast<std::size_t>(section));
  }

  std::vector<SampleSection> sections_;
  UITableViewCellEditingStyle editingStyle_ = UITableViewCellEditingStyle::kDelete;
  bool editable_ = false;
  bool indexed_ = false;
};

std::vector<SampleSection> people() {
  return {{"A", {{"Ann Larkspur"}, {"Arthur Quill"}}},
          {"B", {{"Bea Morrow"}, {"Ben Ash"}, {"Bruno Vale"}}},
          {"L", {{"Linh Tran"}}},
          {"#", {{"+1 (555) 555-0100"}}}};
}

std::vector<SampleSection> settings() {
  return {
      {"Group",
       {{"Title", "Family", UITableViewCellStyle::kValue1},
        {"Marker Color", "Orange", UITableViewCellStyle::kValue1, Accessory::kDisclosureIndicator},
        {"Enabled", "", UITableViewCellStyle::kDefault, Accessory::kCheckmark}},
       "Groups that are not enabled are kept, but not shown. What they hide is seen again."},
      {"Styles",
       {{"Default"},
        {"Value 1", "detail", UITableViewCellStyle::kValue1},
        {"Value 2", "detail", UITableViewCellStyle::kValue2},
        {"Subtitle", "detail", UITableViewCellStyle::kSubtitle},
        {"A text that is much longer than any row is wide, so that it ends early",
         "a detail "
         "that is long as well",
         UITableViewCellStyle::kValue1, Accessory::kDisclosureIndicator}},
       ""}};
}

std::shared_ptr<SampleTable> show(Stage& stage, UITableViewStyle style,
                                  std::vector<SampleSection> sections) {
  auto table = std::make_shared<SampleTable>(style, std::move(sections));
  table->setTitle("Table");
  stage.show(UINavigationController::initWithRootViewController(table));
  return table;
}

std::vector<SampleSection> manyRows() {
  SampleSection section;
  for (int row = 1; row <= 40; ++row) {
    section.rows.push_back({"Conversation " + std::to_string(row)});
  }
  return {section};
}

// A finger that goes sideways from the middle of a row, and stays.
void drag(UIWindow& window, CGPoint from, CGFloat dx) {
  constexpr int kSteps = 8;
  window.sendTouch({0, UITouchPhase::kBegan, from, 0, false});
  for (int step = 1; step <= kSteps; ++step) {
    window.sendTouch(
        {0, UITouchPhase::kMoved, {from.x + dx * step / kSteps, from.y}, 0.05 * step, false});
  }
  window.sendTouch({0, UITouchPhase::kEnded, {from.x + dx, from.y}, 2, false});
}

}  // namespace

void stageTablePlain(Stage& stage) {
  const auto table = show(stage, UITableViewStyle::kPlain, people());
  stage.then([table](UIWindow&) {
    table->tableView()->selectRowAtIndexPath({1, 1}, false, UITableViewScrollPosition::kNone);
  });
}

void stageTableGrouped(Stage& stage) {
  show(stage, UITableViewStyle::kGrouped, settings());
}

void stageTableScrolled(Stage& stage) {
  const auto table = show(stage, UITableViewStyle::kPlain, manyRows());
  stage.then([table](UIWindow&) {
    table->tableView()->scrollToRowAtIndexPath({0, 20}, UITableViewScrollPosition::kTop, false);
    table->tableView()->flashScrollIndicators();
  });
}

void stageTableIndexed(Stage& stage) {
  show(stage, UITableViewStyle::kPlain, people())->setIndexed();
}

void stageTableDeleting(Stage& stage) {
  const auto table = show(stage, UITableViewStyle::kGrouped, settings());
  table->setEditable(UITableViewCellEditingStyle::kDelete);
  stage.then([table](UIWindow&) { table->setEditing(true); });
}

void stageTableTicking(Stage& stage) {
  const auto table = show(stage, UITableViewStyle::kPlain, people());
  table->setEditable(UITableViewCellEditingStyle::kMultiSelect);
  table->tableView()->setAllowsMultipleSelectionDuringEditing(true);
  stage.then([table](UIWindow&) {
    table->setEditing(true);
    table->tableView()->selectRowAtIndexPath({1, 1}, false, UITableViewScrollPosition::kNone);
  });
}

void stageTableSwiped(Stage& stage) {
  const auto table = show(stage, UITableViewStyle::kPlain, people());
  table->setEditable(UITableViewCellEditingStyle::kDelete);
  stage.then([table](UIWindow& window) {
    const CGRect row = table->tableView()->rectForRowAtIndexPath({1, 2});
    const CGPoint middle =
        table->tableView()->convertPointToView({row.midX(), row.midY()}, nullptr);
    drag(window, middle, UIScreen::mainScreen().isRightToLeft() ? 90 : -90);
  });
}

void stageTableRefreshing(Stage& stage) {
  const auto table = show(stage, UITableViewStyle::kPlain, people());
  const auto wheel = std::make_shared<UIRefreshControl>();
  table->setRefreshControl(wheel);
  stage.then([wheel](UIWindow&) { wheel->beginRefreshing(); });
}

void stageTableEmpty(Stage& stage) {
  show(stage, UITableViewStyle::kPlain, {{}});
}

}  // namespace zephyl::app::render
