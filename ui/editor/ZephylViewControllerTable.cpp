// The table: which rows there are, what they show, and what stands above and below them.

#include <algorithm>
#include <cmath>

#include "platform/uikit/CALayer.h"
#include "platform/uikit/NSAttributedString.h"
#include "platform/uikit/TextLayout.h"
#include "platform/uikit/UIKitHost.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/controls/UISegmentedControl.h"
#include "platform/uikit/controls/UISwitch.h"
#include "platform/uikit/tables/UITableViewHeaderFooterView.h"
#include "platform/uikit/text/UILabel.h"

#include "model/ZPLocalizedText.h"
#include "services/ZPUtils.h"
#include "ui/components/ZPFloatingLabeledTextField.h"
#include "ui/editor/EditorLook.h"
#include "ui/editor/ZephylViewController.h"

namespace zephyl {

using editor::kFlagsSection;
using editor::kHidingSection;
using editor::kMaskingSection;
using editor::kMembersSection;
using editor::kTitleSection;

namespace {

constexpr char kCellIdentifier[] = "defaultCell";
constexpr CGFloat kRowHeight = 44;
constexpr CGFloat kSegmentsHeight = 34;
constexpr CGFloat kSegmentsY = 5;
constexpr CGFloat kFooterFontSize = 13;
constexpr CGRect kFooterInset{{10, 5}, {20, 80}};
constexpr float kFooterScale = 0.8333333F;
constexpr CGFloat kSwatchInset = 45;
constexpr CGSize kSwatch{70, 24};
constexpr CGFloat kFieldX = 15;

CGFloat screenWidth() {
  return UIScreen::mainScreen().bounds().width();
}

// Of the text in a footer as wide as the screen.
CGFloat footerTextHeight(const std::string& text) {
  const NSAttributedString attributed(
      text, {UIFont::systemFontOfSize(kFooterFontSize), UIColor::labelColor()});
  TextStyle style;
  style.area.width = screenWidth() - kFooterInset.width();
  return uikitHost().textSystem().layout(attributed, style)->size().height;
}

// Of the rows that are no members: the table's own.
UIColor ownRowColor() {
  return UIColor::secondarySystemGroupedBackgroundColor();
}

// The line under a field belongs to no view.
void removeLines(const UIView& view) {
  const auto& views = view.subviews();
  const auto layers = view.layer()->sublayers();
  for (const auto& layer : layers) {
    const bool isLine = std::none_of(views.begin(), views.end(),
                                     [&](const auto& each) { return each->layer() == layer; });
    if (isLine) {
      layer->removeFromSuperlayer();
    }
  }
}

// A cell that was another row before must not keep what only that row has.
void removeOwnViews(UITableViewCell& cell, const UIView* header, std::int64_t keptTag) {
  const auto views = cell.contentView()->subviews();
  for (const auto& view : views) {
    const bool isOwn = view.get() == header ||
                       view->tag() == ZephylViewController::kMaskedMessageTag ||
                       view->tag() == ZephylViewController::kMarkerColorTag;
    if (isOwn && (keptTag == 0 || view->tag() != keptTag)) {
      view->removeFromSuperview();
      removeLines(*cell.contentView());
    }
  }
}

// What follows the width of a row must come into it when the row has its own: later it would grow
// by what an accessory took, or by what a new cell lacked.
void layOutWithoutAccessory(UITableViewCell& cell) {
  cell.setNeedsLayout();
  cell.layoutIfNeeded();
}

std::string footerText(const Zephyl& zephyl, std::int64_t section) {
  if (section == kHidingSection) {
    return zpLocalizedText(
        "Hide actual messages/conversations from default groups (All, All Groups, Favorites & "
        "Unknown).\n\nNote: Removing this group does not delete its grouped conversations.");
  }
  std::string text = zpLocalizedText(
      "This will mask the message on Lock Screen as well as on Notification Center.");
  if (zephyl.shouldHideConversationsOnLockScreen()) {
    text.append("\n\n").append(zpLocalizedText("Masked Message:"));
    text.append(" '").append(zephyl.maskedMessage()).append("'");
  }
  return text;
}

const MemberEntries& shownMembers(const ZephylViewController& screen) {
  return screen.currentSelectionSegment() == 1 ? screen.conversations() : screen.contacts();
}

}  // namespace

// What each row shows.
struct ZephylViewController::Rows {
  static void configureSwitch(ZephylViewController& screen, UITableViewCell& cell, std::int64_t tag,
                              bool isOn);
  static void configureMarkerColor(const Zephyl& zephyl, UITableViewCell& cell);
  static void configureMaskedMessage(ZephylViewController& screen, UITableViewCell& cell);
  static void configureMember(const ZephylViewController& screen, UITableViewCell& cell,
                              std::int64_t row);
};

std::int64_t ZephylViewController::numberOfSectionsInTableView(UITableView& /*tableView*/) {
  return editor::kSectionCount;
}

std::int64_t ZephylViewController::numberOfRowsInSection(UITableView& /*tableView*/,
                                                         std::int64_t section) {
  switch (section) {
    case kTitleSection:
    case kHidingSection:
      return 1;
    case kFlagsSection:
      return (ZPUtils::supportsTouchID() ? 2 : 1) + (shouldDisplayMarkerColor_ ? 1 : 0);
    case kMaskingSection:
      return zephyl_->shouldHideConversationsOnLockScreen() ? 2 : 1;
    case kMembersSection:
      return static_cast<std::int64_t>(shownMembers(*this).size()) + 1;
    default:
      return 0;
  }
}

std::shared_ptr<UITableViewCell> ZephylViewController::cellForRowAtIndexPath(
    UITableView& tableView, const NSIndexPath& indexPath) {
  auto cell = tableView.dequeueReusableCellWithIdentifier(kCellIdentifier);
  if (cell == nullptr) {
    cell = std::make_shared<UITableViewCell>(UITableViewCellStyle::kValue1, kCellIdentifier);
    // What is put into it lies by its size from the start.
    cell->setFrame(CGRectMake(0, 0, tableView.bounds().width(), kRowHeight));
  }
  if (indexPath.section != kTitleSection) {
    configureTableCell(*cell, indexPath);
    return cell;
  }
  removeOwnViews(*cell, nullptr, 0);
  cell->setBackgroundColor(ownRowColor());
  cell->textLabel()->setText("");
  cell->setAccessoryView(nullptr);
  cell->setAccessoryType(UITableViewCellAccessoryType::kNone);
  layOutWithoutAccessory(*cell);
  cell->contentView()->addSubview(headerView());
  cell->setSelectionStyle(UITableViewCellSelectionStyle::kNone);
  return cell;
}

void ZephylViewController::configureTableCell(UITableViewCell& cell, const NSIndexPath& indexPath) {
  const auto& label = cell.textLabel();
  const bool isMessage = indexPath == NSIndexPath{kMaskingSection, 1};
  // Kept: told by the row alone, so that without biometrics the second row is the password's even
  // where there are two rows because of the marker's colour.
  const bool isMarker = indexPath == NSIndexPath{kFlagsSection, 2};
  removeOwnViews(cell, headerView_.get(),
                 isMessage ? kMaskedMessageTag : (isMarker ? kMarkerColorTag : 0));
  label->setNumberOfLines(1);
  if (indexPath.section == kMembersSection) {
    Rows::configureMember(*this, cell, indexPath.row);
    return;
  }
  label->setText("");
  cell.setBackgroundColor(ownRowColor());
  cell.setSelectionStyle(UITableViewCellSelectionStyle::kNone);
  if (isMarker) {
    Rows::configureMarkerColor(*zephyl_, cell);
  } else if (isMessage) {
    Rows::configureMaskedMessage(*this, cell);
  } else if (indexPath == NSIndexPath{kFlagsSection, 0}) {
    label->setText(zpLocalizedText("Enable"));
    Rows::configureSwitch(*this, cell, kEnableTag, zephyl_->isEnabled());
  } else if (indexPath == NSIndexPath{kFlagsSection, 1}) {
    label->setText(zpLocalizedText("Password protected"));
    Rows::configureSwitch(*this, cell, kPasswordProtectedTag, zephyl_->isPasswordProtected());
  } else if (indexPath.section == kHidingSection) {
    label->setNumberOfLines(0);
    label->setText(zpLocalizedText("Hide Conversations in Default Groups"));
    Rows::configureSwitch(*this, cell, kHideInDefaultGroupsTag,
                          zephyl_->shouldHideConversationsInDefaultGroups());
  } else if (indexPath.section == kMaskingSection) {
    label->setNumberOfLines(0);
    label->setText(zpLocalizedText("Mask on Lock Screen"));
    Rows::configureSwitch(*this, cell, kMaskOnLockScreenTag,
                          zephyl_->shouldHideConversationsOnLockScreen());
  }
}

void ZephylViewController::Rows::configureSwitch(ZephylViewController& screen,
                                                 UITableViewCell& cell, std::int64_t tag,
                                                 bool isOn) {
  auto control = std::dynamic_pointer_cast<UISwitch>(cell.viewWithTag(tag));
  if (control == nullptr) {
    control = std::make_shared<UISwitch>(CGRect{});
    control->addTarget(
        screen.weakSelf(), [&screen](UIControl& sender) { screen.switchSelectionAction(sender); },
        kValueChanged);
  }
  cell.setAccessoryView(control);
  control->setTag(tag);
  control->setOn(isOn);
}

void ZephylViewController::Rows::configureMarkerColor(const Zephyl& zephyl, UITableViewCell& cell) {
  cell.textLabel()->setText(zpLocalizedText("Marker Color"));
  cell.setAccessoryView(nullptr);
  cell.setAccessoryType(UITableViewCellAccessoryType::kDisclosureIndicator);
  auto swatch = cell.contentView()->viewWithTag(kMarkerColorTag);
  if (swatch == nullptr) {
    const CGSize size = cell.frame().size;
    // Kept: it is wider than what is left of the row, and stands out.
    const CGFloat x = editor::leadingX(size.width - kSwatchInset, kSwatch.width,
                                       cell.contentView()->bounds().width());
    swatch = std::make_shared<UIView>(
        CGRectMake(x, (size.height - kSwatch.height) / 2, kSwatch.width, kSwatch.height));
    swatch->setTag(kMarkerColorTag);
    // What is beside the content takes its room where the row ends.
    if (UIScreen::mainScreen().isRightToLeft()) {
      swatch->setAutoresizingMask(kFlexibleLeftMargin);
    }
    cell.contentView()->addSubview(swatch);
  }
  const std::string& code = zephyl.markerCode();
  swatch->setBackgroundColor(code.empty() ? UIColor::clearColor()
                                          : UIColor::__zpColorWithHexString(code));
}

void ZephylViewController::Rows::configureMaskedMessage(ZephylViewController& screen,
                                                        UITableViewCell& cell) {
  cell.setAccessoryView(nullptr);
  cell.setAccessoryType(UITableViewCellAccessoryType::kNone);
  auto field = std::dynamic_pointer_cast<ZPFloatingLabeledTextField>(
      cell.contentView()->viewWithTag(kMaskedMessageTag));
  if (field == nullptr) {
    layOutWithoutAccessory(cell);
    const CGRect frame = cell.frame();
    const CGFloat width = frame.width() - kFieldX;
    field = std::make_shared<ZPFloatingLabeledTextField>(CGRectMake(
        editor::leadingX(frame.x() + kFieldX, width, frame.width()), 0, width, frame.height()));
    field->setTag(kMaskedMessageTag);
    field->setAutoresizingMask(kFlexibleWidth);
    cell.contentView()->addSubview(field);
    screen.setPropertiesToTextField(*field, zpLocalizedText("Masked Message"),
                                    UIFont::systemFontOfSize(15), UIFont::systemFontOfSize(11),
                                    /*shouldAddBottomLine=*/true);
    field->setReturnKeyType(UIReturnKeyType::kDone);
  }
  field->setText(screen.zephyl_->maskedMessage());
}

void ZephylViewController::Rows::configureMember(const ZephylViewController& screen,
                                                 UITableViewCell& cell, std::int64_t row) {
  cell.setAccessoryView(nullptr);
  cell.setAccessoryType(UITableViewCellAccessoryType::kNone);
  cell.setSelectionStyle(UITableViewCellSelectionStyle::kNone);
  cell.setBackgroundColor(editor::backgroundColor());
  const auto views = cell.contentView()->subviews();
  for (const auto& view : views) {
    view->removeFromSuperview();
  }
  std::string text;
  const auto& members = shownMembers(screen);
  if (row == 0) {
    cell.setSelectionStyle(UITableViewCellSelectionStyle::kDefault);
    text = screen.currentSelectionSegment_ == 1 ? zpLocalizedText("Add Conversations")
                                                : zpLocalizedText("Add Contacts");
  } else if (static_cast<std::size_t>(row) <= members.size()) {
    text = members[static_cast<std::size_t>(row) - 1].name;
  }
  cell.textLabel()->setText(text);
}

std::optional<CGFloat> ZephylViewController::heightForRowAtIndexPath(UITableView& /*tableView*/,
                                                                     const NSIndexPath& indexPath) {
  return indexPath.section == kTitleSection ? headerView()->frame().height() : kRowHeight;
}

std::optional<CGFloat> ZephylViewController::heightForHeaderInSection(UITableView& /*tableView*/,
                                                                      std::int64_t section) {
  return section == kMembersSection ? kSegmentsHeight : 0;
}

std::shared_ptr<UIView> ZephylViewController::viewForHeaderInSection(UITableView& /*tableView*/,
                                                                     std::int64_t section) {
  if (section != kMembersSection) {
    return nullptr;
  }
  auto segments = std::make_shared<UISegmentedControl>(
      std::vector<std::string>{zpLocalizedText("Contacts"), zpLocalizedText("Conversations")});
  segments->setFrame(CGRectMake(0, kSegmentsY, screenWidth(), kSegmentsHeight));
  segments->addTarget(
      weakSelf(), [this](UIControl& sender) { segmentSelectionAction(sender); }, kValueChanged);
  segments->setTag(kPasswordProtectedTag);
  segments->setBackgroundColor(editor::backgroundColor());
  segments->setSelectedSegmentIndex(static_cast<int>(currentSelectionSegment_));
  return segments;
}

std::optional<CGFloat> ZephylViewController::heightForFooterInSection(UITableView& /*tableView*/,
                                                                      std::int64_t section) {
  const bool isNew = ZPUtils::isIOS11();
  switch (section) {
    case kTitleSection:
    case kFlagsSection:
      return isNew ? 35 : 20;
    case kHidingSection:
      return isNew ? 100 : 75;
    case kMaskingSection:
      if (zephyl_->shouldHideConversationsOnLockScreen()) {
        return footerTextHeight(zephyl_->maskedMessage()) + 65;
      }
      return isNew ? 65 : 45;
    default:
      return 0;
  }
}

std::shared_ptr<UIView> ZephylViewController::viewForFooterInSection(UITableView& tableView,
                                                                     std::int64_t section) {
  if (section != kHidingSection && section != kMaskingSection) {
    return nullptr;
  }
  auto footer = tableView.dequeueReusableHeaderFooterViewWithIdentifier(editor::kFooterIdentifier);
  const CGFloat width = tableView.bounds().width() - kFooterInset.width();
  auto label = std::dynamic_pointer_cast<UILabel>(footer->viewWithTag(kFooterLabelTag));
  if (label == nullptr) {
    label = std::make_shared<UILabel>(
        CGRectMake(kFooterInset.x(), kFooterInset.y(), width, kFooterInset.height()));
    label->setTag(kFooterLabelTag);
    label->setFont(UIFont::systemFontOfSize(kFooterFontSize));
    label->setNumberOfLines(0);
    label->setClipsToBounds(true);
    label->setMinimumScaleFactor(kFooterScale);
    label->setBackgroundColor(UIColor::clearColor());
    label->setTextColor(ZPUtils::isIOS13() ? UIColor::secondaryLabelColor() : UIColor::grayColor());
    label->setTextAlignment(UIScreen::mainScreen().isRightToLeft() ? NSTextAlignment::kRight
                                                                   : NSTextAlignment::kLeft);
    footer->contentView()->addSubview(label);
  }
  label->setBaselineAdjustment(section == kHidingSection ? UIBaselineAdjustment::kAlignCenters
                                                         : UIBaselineAdjustment::kAlignBaselines);
  const std::string text = footerText(*zephyl_, section);
  label->setText(text);
  label->setFrame(CGRectMake(kFooterInset.x(), kFooterInset.y(), width, footerTextHeight(text)));
  return footer;
}

}  // namespace zephyl
