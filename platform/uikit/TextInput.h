// Typing into a text field: input methods, selection and the clipboard are the host's. A seam; main
// thread.

#pragma once

#include <memory>
#include <string>

#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/NSAttributedString.h"

namespace zephyl {

class UIView;

enum class UIReturnKeyType { kDefault, kDone, kNext, kSearch };
enum class UIKeyboardType { kDefault, kEmailAddress, kPhonePad };
enum class UITextAutocorrectionType { kDefault, kNo, kYes };

// What is typed into. It outlives the typing, or ends it first.
class TextInputClient {
 public:
  virtual ~TextInputClient() = default;

  // Where the text stands, in the coordinates of `textInputView`, and how it looks there.
  [[nodiscard]] virtual UIView& textInputView() = 0;
  [[nodiscard]] virtual CGRect textInputRect() const = 0;
  [[nodiscard]] virtual NSAttributedString::Attributes textInputAttributes() const = 0;
  [[nodiscard]] virtual NSTextAlignment textInputAlignment() const = 0;
  [[nodiscard]] virtual std::string textInputText() const = 0;
  [[nodiscard]] virtual UIReturnKeyType textInputReturnKey() const = 0;

  // The user changed the text to `text`.
  virtual void textInputDidChange(const std::string& text) = 0;
  // The user pressed Return.
  virtual void textInputDidReturn() = 0;
  // The user went elsewhere with Tab: the next field forwards, or the one before.
  virtual void textInputDidTab(bool forwards) = 0;
};

class TextInput {
 public:
  virtual ~TextInput() = default;

  // Typing goes to `client` from now on, no longer to the one before.
  virtual void begin(TextInputClient& client) = 0;
  // The client's text, place or look changed otherwise than by typing.
  virtual void update(TextInputClient& client) = 0;
  // Does nothing when typing goes elsewhere.
  virtual void end(TextInputClient& client) = 0;
  // Whether it draws the client's text while it is typed, caret and selection with it. Else the
  // client draws its text itself.
  [[nodiscard]] virtual bool drawsText() = 0;
};

}  // namespace zephyl
