// The screen on which the user enters a new person: names, company, a phone number and an e-mail
// address. Save adds the person to the address book. Main thread.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Export.h"
#include "platform/addressbook/ABPerson.h"
#include "platform/uikit/tables/UITableViewController.h"
#include "platform/uikit/text/UITextFieldDelegate.h"

namespace zephyl {

class ABNewPersonViewController;
class UITextField;

class ZP_EXPORT ABNewPersonViewControllerDelegate {
 public:
  virtual ~ABNewPersonViewControllerDelegate() = default;
  // The person as the address book has it; null when the user took it back. Dismissing the screen
  // is the delegate's to do.
  virtual void didCompleteWithNewPerson(ABNewPersonViewController& newPersonViewController,
                                        const ABPersonRef& person) = 0;
};

class ZP_EXPORT ABNewPersonViewController : public UITableViewController,
                                            public UITextFieldDelegate {
 public:
  // From the top; each is the tag of its field, after the first one's.
  enum class Field { kFirstName, kLastName, kCompany, kPhone, kEmail };
  static constexpr std::size_t kFieldCount = 5;
  static constexpr std::int64_t kFirstTag = 100;

  ABNewPersonViewController();
  ~ABNewPersonViewController() override;

  void setNewPersonViewDelegate(std::weak_ptr<ABNewPersonViewControllerDelegate> delegate) {
    delegate_ = std::move(delegate);
  }
  // Of the loaded view.
  [[nodiscard]] const std::shared_ptr<UITextField>& field(Field field) const {
    return fields_.at(static_cast<std::size_t>(field));
  }

  // Nothing is saved while all fields are blank. What the address book refuses is told, and the
  // screen stays.
  void saveAction();
  void cancelAction();

  void viewDidLoad() override;
  void viewDidAppear(bool animated) override;
  std::int64_t numberOfSectionsInTableView(UITableView& tableView) override;
  std::int64_t numberOfRowsInSection(UITableView& tableView, std::int64_t section) override;
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& tableView,
                                                         const NSIndexPath& indexPath) override;
  void didSelectRowAtIndexPath(UITableView& tableView, const NSIndexPath& indexPath) override;
  bool textFieldShouldReturn(UITextField& textField) override;
  [[nodiscard]] const char* className() const override { return "ABNewPersonViewController"; }

 private:
  void makeFields();
  void makeButtons();
  void updateSaveButton();
  // Without white space around it.
  [[nodiscard]] std::string entered(Field which) const;
  [[nodiscard]] ABPerson person() const;
  void tellFailure(const std::string& reason);
  void complete(const ABPersonRef& person);

  std::weak_ptr<ABNewPersonViewControllerDelegate> delegate_;
  std::array<std::shared_ptr<UITextField>, kFieldCount> fields_;
  std::vector<std::shared_ptr<UITableViewCell>> cells_;
};

}  // namespace zephyl
