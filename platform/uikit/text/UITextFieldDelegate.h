// Decides about typing into a text field and is told of it. Main thread. The default is yes.

#pragma once

#include "platform/Export.h"

namespace zephyl {

class UITextField;

class ZP_EXPORT UITextFieldDelegate {
 public:
  virtual ~UITextFieldDelegate() = default;

  virtual bool textFieldShouldBeginEditing(UITextField& /*textField*/) { return true; }
  virtual void textFieldDidBeginEditing(UITextField& /*textField*/) {}
  virtual bool textFieldShouldEndEditing(UITextField& /*textField*/) { return true; }
  virtual void textFieldDidEndEditing(UITextField& /*textField*/) {}
  // The clear button was pressed.
  virtual bool textFieldShouldClear(UITextField& /*textField*/) { return true; }
  // Return was pressed. Yes sends kEditingDidEndOnExit; the field stays the first responder.
  virtual bool textFieldShouldReturn(UITextField& /*textField*/) { return true; }
};

}  // namespace zephyl
