// What a people picker tells; none need be taken. Main thread.

#pragma once

#include <cstdint>

#include "platform/Export.h"
#include "platform/addressbook/ABPerson.h"

#include "model/MemberSet.h"

namespace zephyl {

class ZLPeoplePickerViewController;

class ZP_EXPORT ZLPeoplePickerViewControllerDelegate {
 public:
  virtual ~ZLPeoplePickerViewControllerDelegate() = default;

  // A person who can be picked was tapped: before the tick changes, and if it does not.
  virtual void didSelectPerson(ZLPeoplePickerViewController& /*peoplePicker*/,
                               std::int64_t /*recordID*/) {}
  // The user leaves the picker. `people` is a copy.
  virtual void didReturnWithSelectedPeople(ZLPeoplePickerViewController& /*peoplePicker*/,
                                           const MemberSet& /*people*/) {}
  // Null when the user took it back.
  virtual void newPersonViewControllerDidCompleteWithNewPerson(const ABPersonRef& /*person*/) {}
};

}  // namespace zephyl
