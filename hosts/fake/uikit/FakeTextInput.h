// Who types: a test, by these calls. Main thread.

#pragma once

#include <string>
#include <string_view>

#include "platform/uikit/TextInput.h"

namespace zephyl::fake {

class FakeTextInput : public TextInput {
 public:
  void begin(TextInputClient& client) override;
  void update(TextInputClient& client) override;
  void end(TextInputClient& client) override;
  bool drawsText() override { return drawsText_; }

  void setDrawsText(bool draws) { drawsText_ = draws; }

  // What is typed into; null for nothing.
  [[nodiscard]] TextInputClient* client() const { return client_; }
  [[nodiscard]] int begun() const { return begun_; }
  [[nodiscard]] int updated() const { return updated_; }

  // These return whether there was a client. Characters are typed one by one, at the end of the
  // text; the rest is lost when the client goes in the middle of it.
  bool type(std::string_view text);
  bool deleteBackward();
  // All of the text at once, as from the clipboard.
  bool replace(const std::string& text);
  bool pressReturn();
  bool tab(bool forwards = true);

 private:
  TextInputClient* client_ = nullptr;
  bool drawsText_ = false;
  int begun_ = 0;
  int updated_ = 0;
};

}  // namespace zephyl::fake
