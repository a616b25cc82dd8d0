#include "platform/addressbook/ui/ABNewPersonViewController.h"

#include <algorithm>

#include "platform/Host.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/foundation/WhiteSpace.h"
#include "platform/uikit/UIKitText.h"
#include "platform/uikit/controllers/UIAlertController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/text/UITextField.h"

namespace zephyl {

namespace {

constexpr CGFloat kMargin = 16;
constexpr CGFloat kRowHeight = 44;
constexpr CGFloat kFontSize = 17;
// Names and company, phone, e-mail.
constexpr std::array<std::int64_t, 3> kRows = {3, 1, 1};

std::size_t fieldAt(const NSIndexPath& path) {
  std::int64_t field = path.row;
  for (std::int64_t section = 0; section < path.section && section < std::ssize(kRows); ++section) {
    field += kRows.at(static_cast<std::size_t>(section));
  }
  return static_cast<std::size_t>(field);
}

std::shared_ptr<UITextField> makeField(const std::string& placeholder, UIKeyboardType keyboard,
                                       std::size_t number) {
  auto field = std::make_shared<UITextField>(
      CGRectMake(kMargin, 0, UITableViewCell().bounds().width() - 2 * kMargin, kRowHeight));
  field->setPlaceholder(placeholder);
  field->setKeyboardType(keyboard);
  field->setFont(UIFont::systemFontOfSize(kFontSize));
  field->setAutocorrectionType(UITextAutocorrectionType::kNo);
  field->setClearButtonMode(UITextFieldViewMode::kWhileEditing);
  field->setReturnKeyType(number + 1 < ABNewPersonViewController::kFieldCount
                              ? UIReturnKeyType::kNext
                              : UIReturnKeyType::kDone);
  field->setAutoresizingMask(kFlexibleWidth | kFlexibleHeight);
  field->setTag(ABNewPersonViewController::kFirstTag + static_cast<std::int64_t>(number));
  return field;
}

}  // namespace

ABNewPersonViewController::ABNewPersonViewController()
    : UITableViewController(UITableViewStyle::kGrouped) {}

ABNewPersonViewController::~ABNewPersonViewController() = default;

void ABNewPersonViewController::viewDidLoad() {
  UITableViewController::viewDidLoad();
  if (title().empty()) {
    setTitle(uikitText("New Contact"));
  }
  makeFields();
  makeButtons();
  updateSaveButton();
}

void ABNewPersonViewController::makeFields() {
  fields_ = {makeField(uikitText("First name"), UIKeyboardType::kDefault, 0),
             makeField(uikitText("Last name"), UIKeyboardType::kDefault, 1),
             makeField(uikitText("Company"), UIKeyboardType::kDefault, 2),
             makeField(uikitText("Phone"), UIKeyboardType::kPhonePad, 3),
             makeField(uikitText("Email"), UIKeyboardType::kEmailAddress, 4)};
  const auto self = std::static_pointer_cast<ABNewPersonViewController>(shared_from_this());
  for (const auto& field : fields_) {
    field->setDelegate(self);
    field->addAction(
        [weak = std::weak_ptr<ABNewPersonViewController>(self)](UIControl&) {
          if (const auto screen = weak.lock()) {
            screen->updateSaveButton();
          }
        },
        kEditingChanged);
    auto cell = std::make_shared<UITableViewCell>();
    cell->setSelectionStyle(UITableViewCellSelectionStyle::kNone);
    const CGRect area = cell->contentView()->bounds();
    field->setFrame(CGRectMake(kMargin, 0, std::max(area.width() - 2 * kMargin, 0.0),
                               std::max(area.height(), kRowHeight)));
    cell->contentView()->addSubview(field);
    cells_.push_back(std::move(cell));
  }
}

void ABNewPersonViewController::makeButtons() {
  navigationItem()->setLeftBarButtonItem(
      std::make_shared<UIBarButtonItem>(UIBarButtonSystemItem::kCancel, shared_from_this(),
                                        [this](UIBarButtonItem&) { cancelAction(); }));
  navigationItem()->setRightBarButtonItem(
      std::make_shared<UIBarButtonItem>(UIBarButtonSystemItem::kSave, shared_from_this(),
                                        [this](UIBarButtonItem&) { saveAction(); }));
}

void ABNewPersonViewController::viewDidAppear(bool animated) {
  UITableViewController::viewDidAppear(animated);
  field(Field::kFirstName)->becomeFirstResponder();
}

std::int64_t ABNewPersonViewController::numberOfSectionsInTableView(UITableView& /*tableView*/) {
  return std::ssize(kRows);
}

std::int64_t ABNewPersonViewController::numberOfRowsInSection(UITableView& /*tableView*/,
                                                              std::int64_t section) {
  return section >= 0 && section < std::ssize(kRows) ? kRows.at(static_cast<std::size_t>(section))
                                                     : 0;
}

std::shared_ptr<UITableViewCell> ABNewPersonViewController::cellForRowAtIndexPath(
    UITableView& /*tableView*/, const NSIndexPath& indexPath) {
  const std::size_t at = fieldAt(indexPath);
  return at < cells_.size() ? cells_[at] : nullptr;
}

void ABNewPersonViewController::didSelectRowAtIndexPath(UITableView& tableView,
                                                        const NSIndexPath& indexPath) {
  tableView.deselectRowAtIndexPath(indexPath, /*animated=*/false);
  const std::size_t at = fieldAt(indexPath);
  if (at < fields_.size()) {
    fields_.at(at)->becomeFirstResponder();
  }
}

bool ABNewPersonViewController::textFieldShouldReturn(UITextField& textField) {
  const auto next = static_cast<std::size_t>(textField.tag() - kFirstTag) + 1;
  if (next < kFieldCount) {
    fields_.at(next)->becomeFirstResponder();
  } else {
    textField.resignFirstResponder();
  }
  return false;
}

std::string ABNewPersonViewController::entered(Field which) const {
  return std::string(trimmedOfWhiteSpaceAndNewlines(field(which)->text()));
}

ABPerson ABNewPersonViewController::person() const {
  ABPerson person;
  person.firstName = entered(Field::kFirstName);
  person.lastName = entered(Field::kLastName);
  person.organization = entered(Field::kCompany);
  person.isCompany =
      person.firstName.empty() && person.lastName.empty() && !person.organization.empty();
  if (std::string phone = entered(Field::kPhone); !phone.empty()) {
    person.phones.push_back({"_$!<Mobile>!$_", std::move(phone)});
  }
  if (std::string email = entered(Field::kEmail); !email.empty()) {
    person.emails.push_back({"_$!<Home>!$_", std::move(email)});
  }
  return person;
}

void ABNewPersonViewController::updateSaveButton() {
  bool isBlank = true;
  for (std::size_t i = 0; i < kFieldCount; ++i) {
    isBlank = isBlank && entered(static_cast<Field>(i)).empty();
  }
  navigationItem()->rightBarButtonItem()->setEnabled(!isBlank);
}

void ABNewPersonViewController::saveAction() {
  if (!navigationItem()->rightBarButtonItem()->isEnabled()) {
    return;
  }
  NSError error;
  const ABPersonRef added = host().addressBook()->addPerson(person(), error);
  if (added == nullptr) {
    tellFailure(error.localizedDescription());
  } else {
    complete(added);
  }
}

void ABNewPersonViewController::cancelAction() {
  complete(nullptr);
}

void ABNewPersonViewController::complete(const ABPersonRef& person) {
  const auto self = shared_from_this();
  if (const auto delegate = delegate_.lock()) {
    delegate->didCompleteWithNewPerson(*this, person);
  }
}

void ABNewPersonViewController::tellFailure(const std::string& reason) {
  const auto alert = UIAlertController::alertControllerWithTitle(
      uikitText("Unable to save the contact."), reason, UIAlertControllerStyle::kAlert);
  alert->addAction(
      UIAlertAction::actionWithTitle(uikitText("OK"), UIAlertActionStyle::kCancel, nullptr));
  presentViewController(alert, /*animated=*/true);
}

}  // namespace zephyl
