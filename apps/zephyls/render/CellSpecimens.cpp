// The cells of the group list.

#include <memory>
#include <string>

#include "platform/uikit/CGContext.h"
#include "platform/uikit/UIImage.h"
#include "platform/uikit/text/UILabel.h"

#include "apps/zephyls/render/SampleGroup.h"
#include "apps/zephyls/render/Stage.h"
#include "apps/zephyls/render/StagedComponents.h"
#include "ui/groups/ZephylsManageTableViewCell.h"
#include "ui/groups/ZephylsTableViewCell.h"

namespace zephyl::app::render {

namespace {

using Row = ZephylsManageTableViewCell;
using Tile = ZephylsTableViewCell;

constexpr char kLong[] =
    "A group whose title goes on and on, much further than any row of a phone is wide";

// Hills under a sun.
UIImageRef landscape() {
  return UIImage::hr_imageWithSize(
      {96, 96}, /*opaque=*/true, [](CGContext& context, const CGRect& rect) {
        context.fillGradient({rect}, {{{0, UIColor::colorWithRed(0.35, 0.65, 0.95, 1)},
                                       {1, UIColor::colorWithRed(0.95, 0.85, 0.7, 1)}},
                                      {48, 0},
                                      {48, 80}});
        context.fillEllipse(CGRectMake(60, 16, 18, 18), UIColor::colorWithRed(1, 0.9, 0.4, 1));
        context.fillEllipse(CGRectMake(-40, 54, 110, 90), UIColor::colorWithRed(0.3, 0.55, 0.3, 1));
        context.fillEllipse(CGRectMake(30, 62, 110, 80), UIColor::colorWithRed(0.4, 0.65, 0.35, 1));
      });
}

std::shared_ptr<Row> addRow(Stage& stage, const std::string& caption, const SampleGroup& group,
                            std::int64_t mode = 0, CGFloat height = 44) {
  auto cell = std::make_shared<Row>(UITableViewCellStyle::kDefault, "defaultCell");
  cell->setZephylsMode(mode);
  stage.add(caption, cell, {Stage::kWidth, height});
  stage.breakLine();
  cell->setZephyl(group.make());
  return cell;
}

std::shared_ptr<Tile> addTile(Stage& stage, const std::string& caption, const SampleGroup& group) {
  auto cell = std::make_shared<Tile>(UITableViewCellStyle::kValue1, "defaultCell");
  stage.add(caption, cell, {109, 104});
  cell->setZephyl(group.make());
  return cell;
}

// With the view for the marker that a host may add.
void addMarker(Row& row) {
  const auto marker = std::make_shared<UIView>(CGRectMake(0, 0, 4, row.frame().height()));
  marker->setTag(Row::kMarkerTag);
  row.contentView()->addSubview(marker);
  row.setZephyl(row.zephyl());
}

}  // namespace

void stageRowCell(Stage& stage) {
  addRow(stage, "user group", SampleGroup("Family").subtitle("Everyone at home"));
  addRow(stage, "title alone", SampleGroup("Family"));
  addRow(stage, "active", SampleGroup("Family").subtitle("Everyone at home").active());
  addRow(stage, "3 unread", SampleGroup("Family").subtitle("Everyone at home").unread(3));
  addRow(stage, "1000 unread", SampleGroup("Family").unread(1000));
  addRow(stage, "protected", SampleGroup("Secret").subtitle("Not for all eyes").locked());
  addRow(stage, "system group, protected",
         SampleGroup("All").subtitle("All messages grouped under this group.").locked().system(1));
  addRow(stage, "disabled", SampleGroup("Asleep").disabled());
  addRow(stage, "disabled, with a subtitle",
         SampleGroup("Asleep").subtitle("Until May").disabled());
  addRow(stage, "long", SampleGroup(kLong).subtitle(kLong).unread(12).active());
  addRow(
      stage, "another script",
      SampleGroup("\xD7\x9E\xD7\xA9\xD7\xA4\xD7\x97\xD7\x94").subtitle("\xE5\xAE\xB6\xE6\x97\x8F"));
  addRow(stage, "highlighted", SampleGroup("Family").subtitle("Everyone at home"))
      ->setHighlighted(true, /*animated=*/false);
  addRow(stage, "selected", SampleGroup("Family").subtitle("Everyone at home"))
      ->setSelected(true, /*animated=*/false);
  const auto marked =
      addRow(stage, "marker of the host, highlighted", SampleGroup("Work").marker("ff9500ff"));
  addMarker(*marked);
  marked->setHighlighted(true, /*animated=*/false);
  addMarker(*addRow(stage, "malformed marker", SampleGroup("Work").marker("#ff9500")));
}

void stageManagedRowCell(Stage& stage) {
  addRow(stage, "managing, active", SampleGroup("Family").subtitle("Everyone at home").active(), 1)
      ->setAccessoryType(UITableViewCellAccessoryType::kDisclosureIndicator);
  addRow(stage, "managing, system group: no interaction",
         SampleGroup("All").subtitle("All messages grouped under this group.").system(1), 1)
      ->setUserInteractionEnabled(false);
  addRow(stage, "managing, title alone", SampleGroup("Friends").unread(2), 1)
      ->setAccessoryType(UITableViewCellAccessoryType::kDisclosureIndicator);
  addRow(stage, "choosing, chosen", SampleGroup("Friends").subtitle("From school"), 2)
      ->setAccessoryType(UITableViewCellAccessoryType::kCheckmark);
  addRow(stage, "choosing", SampleGroup("Family").subtitle("Everyone at home").locked(), 2);
  addRow(stage, "higher row", SampleGroup("Friends").subtitle("From school"), 0, 60);
}

void stageTileCell(Stage& stage) {
  const UIImageRef picture = landscape();
  addTile(stage, "picture", SampleGroup("Family").marker("ff9500ff").picture(picture));
  addTile(stage, "colour alone", SampleGroup("Work").marker("34c759ff"));
  addTile(stage, "neither", SampleGroup("Plain"));
  addTile(stage, "active", SampleGroup("Family").marker("ff9500ff").picture(picture).active());
  addTile(stage, "3 unread", SampleGroup("Family").marker("ff9500ff").picture(picture).unread(3));
  addTile(stage, "1000 unread", SampleGroup("Work").marker("34c759ff").unread(1000));
  addTile(stage, "system group", SampleGroup("All").marker("007affff").system(1).unread(12));
  addTile(stage, "long title", SampleGroup(kLong).marker("5856d6ff"));
  addTile(stage, "malformed marker", SampleGroup("Work").marker("34c759f"));
  addTile(stage, "highlighted", SampleGroup("Family").marker("ff9500ff").picture(picture))
      ->setHighlighted(true, /*animated=*/false);
  addTile(stage, "selected", SampleGroup("Work").marker("34c759ff"))
      ->setSelected(true, /*animated=*/false);
}

}  // namespace zephyl::app::render
