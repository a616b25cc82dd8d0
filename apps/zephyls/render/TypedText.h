// The keys of a text field for who types without a window: where the caret stands, what is marked,
// and what a key makes of the text. Main thread.

#pragma once

#include <cstddef>
#include <string>

#include "platform/uikit/UITouch.h"

namespace zephyl {
class TextInputClient;
}

namespace zephyl::app::render {

class TypedText {
 public:
  // In place of what is marked, else before the caret. In a field that was not typed into last, or
  // whose text has changed since, the caret stands at the end.
  void type(TextInputClient& client, const std::string& text);

  // Whether it is one of the keys of a text: Space, Left, Right, Home, End, Backspace, Delete, and
  // Ctrl+A, which marks everything. With Shift the keys that move the caret mark.
  [[nodiscard]] bool press(TextInputClient& client, const UIKeyPress& key);

 private:
  void follow(TextInputClient& client);
  void replaceMarked(TextInputClient& client, const std::string& text);
  void moveTo(std::size_t place, bool marks);
  bool move(const UIKeyPress& key);
  [[nodiscard]] std::size_t before(std::size_t place) const;
  [[nodiscard]] std::size_t after(std::size_t place) const;

  // Only to be told from others: it may be gone.
  const TextInputClient* client_ = nullptr;
  std::string text_;
  // In bytes, between characters as a user counts them; the marked part is between the two.
  std::size_t caret_ = 0;
  std::size_t anchor_ = 0;
};

}  // namespace zephyl::app::render
