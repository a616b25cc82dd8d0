#include "hosts/fake/uikit/FakeTextInput.h"

#include <algorithm>

#include "platform/foundation/Utf8.h"

namespace zephyl::fake {

void FakeTextInput::begin(TextInputClient& client) {
  client_ = &client;
  ++begun_;
}

void FakeTextInput::update(TextInputClient& client) {
  if (client_ == &client) {
    ++updated_;
  }
}

void FakeTextInput::end(TextInputClient& client) {
  if (client_ == &client) {
    client_ = nullptr;
  }
}

bool FakeTextInput::type(std::string_view text) {
  TextInputClient* const typedInto = client_;
  for (std::size_t at = 0; at < text.size() && client_ != nullptr && client_ == typedInto;) {
    const std::size_t length = std::max<std::size_t>(utf8CharacterAt(text, at).length, 1);
    client_->textInputDidChange(client_->textInputText().append(text.substr(at, length)));
    at += length;
  }
  return typedInto != nullptr;
}

bool FakeTextInput::deleteBackward() {
  if (client_ == nullptr) {
    return false;
  }
  std::string text = client_->textInputText();
  while (!text.empty()) {
    const bool inside = (static_cast<unsigned char>(text.back()) & 0xC0U) == 0x80U;
    text.pop_back();
    if (!inside) {
      client_->textInputDidChange(text);
      break;
    }
  }
  return true;
}

bool FakeTextInput::replace(const std::string& text) {
  if (client_ == nullptr) {
    return false;
  }
  client_->textInputDidChange(text);
  return true;
}

bool FakeTextInput::pressReturn() {
  if (client_ == nullptr) {
    return false;
  }
  client_->textInputDidReturn();
  return true;
}

bool FakeTextInput::tab(bool forwards) {
  if (client_ == nullptr) {
    return false;
  }
  client_->textInputDidTab(forwards);
  return true;
}

}  // namespace zephyl::fake
