// Loading, the header with the title, and the text fields.

#include "ui/editor/ZephylViewController.h"

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"
#include "platform/uikit/CALayer.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/tables/UITableViewHeaderFooterView.h"

#include "model/ZPLocalizedText.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"
#include "ui/components/ZPFloatingLabeledTextField.h"
#include "ui/editor/EditorLook.h"

namespace zephyl {

namespace {

constexpr CGFloat kHeaderHeight = 44;
constexpr CGFloat kTitleX = 30;
constexpr CGFloat kTitleY = 3.5;
// What the title leaves free of the screen's width.
constexpr CGFloat kTitleFree = 50;
constexpr double kFocusDelay = 0.5;
constexpr CGFloat kLineAlpha = 0.6;

// The background of the table before version 13.
UIColor oldBackgroundColor() {
  return UIColor::colorWithRed(215.0 / 255, 217.0 / 255, 223.0 / 255, 1);
}

void focusTitleSoon(const std::weak_ptr<ZephylViewController>& screen) {
  host().dispatch().mainAfter(kFocusDelay, [screen] {
    const auto shown = screen.lock();
    const auto title =
        shown == nullptr ? nullptr : shown->view()->viewWithTag(ZephylViewController::kTitleTag);
    if (title != nullptr) {
      title->becomeFirstResponder();
    }
  });
}

}  // namespace

ZephylViewController::ZephylViewController(UITableViewStyle style) : UITableViewController(style) {}

ZephylViewController::~ZephylViewController() = default;

std::weak_ptr<ZephylViewController> ZephylViewController::weakSelf() {
  return std::static_pointer_cast<ZephylViewController>(shared_from_this());
}

void ZephylViewController::setZephyl(const ZephylRef& zephyl) {
  zephyl_ = zephyl == nullptr ? nullptr : zephyl->copy();
}

const std::string& ZephylViewController::zephylTmpMaskedMessage() const {
  return zephylTmpMaskedMessage_;
}

void ZephylViewController::viewDidLoad() {
  UITableViewController::viewDidLoad();
  shouldDisplayMarkerColor_ = false;
  addressBookRef_ = host().addressBook();
  navigationItem()->setRightBarButtonItem(
      std::make_shared<UIBarButtonItem>(UIBarButtonSystemItem::kSave, weakSelf(),
                                        [this](UIBarButtonItem&) { saveGroupAction(); }),
      /*animated=*/true);
  if (zephyl_ == nullptr) {
    makeNewGroup();
  }
  zephylTmpMaskedMessage_ = zephyl_->maskedMessage();
  updateNavigationBarItems();
  tableView()->setAllowsSelectionDuringEditing(true);
  if (!ZPUtils::isIOS13()) {
    tableView()->setBackgroundColor(oldBackgroundColor());
  }
  tableView()->registerHeaderFooterClass(
      [](const std::string& identifier) {
        return std::make_shared<UITableViewHeaderFooterView>(identifier);
      },
      editor::kFooterIdentifier);
  filterContactsAndConversations(zephyl_->contacts().get());
  setTitle(isNewGroup_ ? zpLocalizedText("New Group") : zephyl_->title());
  if (!isNewGroup_) {
    // There is nothing to save before the first change.
    navigationItem()->rightBarButtonItem()->setEnabled(false);
  }
}

void ZephylViewController::makeNewGroup() {
  setZephyl(
      std::make_shared<Zephyl>(Dictionary{{keys::kEnabled, true},
                                          {keys::kPasswordProtected, ZPUtils::supportsTouchID()},
                                          {keys::kHidesInDefaultGroups, false}}));
  isNewGroup_ = true;
  navigationItem()->setLeftBarButtonItem(
      std::make_shared<UIBarButtonItem>(UIBarButtonSystemItem::kCancel, weakSelf(),
                                        [this](UIBarButtonItem&) { cancelButtonAction(); }),
      /*animated=*/true);
}

const std::shared_ptr<UIView>& ZephylViewController::headerView() {
  if (headerView_ != nullptr) {
    return headerView_;
  }
  // At the left of the title there is room for no more than a mark: a picture of the group and its
  // caption need 60 points each way and would cover the title. So none is made here; an app that
  // has the room adds one to this view, tagged for `updateProfileImage`.
  headerView_ = std::make_shared<UIView>(CGRectMake(0, 0, view()->bounds().width(), kHeaderHeight));
  headerView_->setBackgroundColor(editor::backgroundColor());
  headerView_->setAutoresizingMask(kFlexibleWidth);
  const CGFloat width = UIScreen::mainScreen().bounds().width() - kTitleFree;
  const auto title = std::make_shared<ZPFloatingLabeledTextField>(CGRectMake(
      editor::leadingX(kTitleX, width, width + kTitleFree), kTitleY, width, kHeaderHeight));
  title->setTag(kTitleTag);
  headerView_->addSubview(title);
  setPropertiesToTextField(*title, zpLocalizedText("Title"), UIFont::systemFontOfSize(15),
                           UIFont::systemFontOfSize(11), /*shouldAddBottomLine=*/true);
  title->setReturnKeyType(UIReturnKeyType::kDone);
  title->setText(zephyl_ == nullptr ? std::string() : zephyl_->title());
  if (isNewGroup_) {
    focusTitleSoon(weakSelf());
  }
  return headerView_;
}

void ZephylViewController::setPropertiesToTextField(ZPFloatingLabeledTextField& field,
                                                    const std::string& placeHolder,
                                                    const UIFont& font,
                                                    const UIFont& floatingLabelFont,
                                                    bool shouldAddBottomLine) {
  field.setPlaceholder(placeHolder);
  field.setBorderStyle(UITextBorderStyle::kNone);
  field.setAutocorrectionType(UITextAutocorrectionType::kDefault);
  field.setKeyboardType(UIKeyboardType::kDefault);
  field.setReturnKeyType(UIReturnKeyType::kNext);
  field.setClearButtonMode(UITextFieldViewMode::kWhileEditing);
  field.setContentVerticalAlignment(UIControlContentVerticalAlignment::kCenter);
  field.setDelegate(std::shared_ptr<UITextFieldDelegate>(shared_from_this(), this));
  field.setFont(font);
  field.addTarget(
      weakSelf(), [this](UIControl& sender) { editingChanged(sender); }, kEditingChanged);
  field.setFloatingLabelFont(floatingLabelFont);
  field.setFloatingLabelTextColor(ZPUtils::isIOS13() ? UIColor::systemGrayColor()
                                                     : UIColor::grayColor());
  if (!shouldAddBottomLine || field.superview() == nullptr) {
    return;
  }
  const CGRect frame = field.frame();
  const CGFloat width = UIScreen::mainScreen().bounds().width();
  const CGFloat x = UIScreen::mainScreen().isRightToLeft() ? frame.maxX() - width : frame.x();
  const auto line = std::make_shared<CALayer>();
  line->setFrame(CGRectMake(x, frame.y() + frame.height() - 1, width, 1));
  line->setBorderWidth(1);
  line->setBorderColor((ZPUtils::isIOS13() ? UIColor::systemGrayColor() : UIColor::lightGrayColor())
                           .colorWithAlphaComponent(kLineAlpha));
  field.superview()->layer()->addSublayer(line);
  field.layer()->setMasksToBounds(true);
}

}  // namespace zephyl
