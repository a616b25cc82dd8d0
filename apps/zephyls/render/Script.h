// What is done with a screen before its picture is taken: taps, typing, swipes and keys, as a user
// would do them. Main thread.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/uikit/UIWindow.h"

#include "apps/zephyls/render/ScriptStep.h"
#include "apps/zephyls/render/TypedText.h"

namespace zephyl {
class TextInputClient;
}

namespace zephyl::app::render {

class Script {
 public:
  struct Stage {
    UIWindow& window;
    // What is typed into; null for nothing.
    std::function<TextInputClient*()> typedInto;
    // Lets everything happen that follows from a step.
    std::function<void()> settle;
    // The program's own keys, while nothing is typed into; whether it was one. Null for none.
    std::function<bool(const UIKeyPress&)> handleShortcut = nullptr;
  };

  // What the stage refers to must outlive this.
  explicit Script(Stage stage) : stage_(std::move(stage)) {}

  // One after the other. Throws CommandError, which names the step and what there is instead: for
  // an element that is not there or not within the window, for typing where nothing is typed into,
  // and for keys that there are not.
  void run(const std::vector<ScriptStep>& steps);

 private:
  void run(const ScriptStep& step);
  void tap(const UIView& element);
  void swipe(const UIView& element);
  void type(const std::string& text);
  void press(const std::string& name);
  // The element that is called `text`, else the first whose name holds it; of those that are called
  // alike the innermost, such as the switch in its row.
  [[nodiscard]] std::shared_ptr<UIView> find(const std::string& text) const;
  [[nodiscard]] std::vector<std::shared_ptr<UIView>> elements() const;

  Stage stage_;
  TypedText typed_;
};

}  // namespace zephyl::app::render
