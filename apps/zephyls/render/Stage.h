// What one picture shows: samples of views with a caption each, side by side on a board, or a whole
// screen. Main thread.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/uikit/UIView.h"
#include "platform/uikit/UIWindow.h"

namespace zephyl {
class UIViewController;
}

namespace zephyl::app::render {

class Stage {
 public:
  static constexpr CGFloat kWidth = 390;
  static constexpr CGSize kScreen{kWidth, 620};

  Stage();

  // The next sample, to the right of the one before where there is room, else below. One as wide
  // as the board goes from edge to edge.
  void add(const std::string& caption, const std::shared_ptr<UIView>& view, CGSize size);
  // At the size the view asks for.
  void add(const std::string& caption, const std::shared_ptr<UIView>& view);
  // The next sample begins a line.
  void breakLine();
  void setBackgroundColor(const UIColor& color);

  // The picture is that of this screen, not of a board.
  void show(const std::shared_ptr<UIViewController>& screen, CGSize size = kScreen);

  // Runs once the picture is in a window and laid out, after those given before: what a user would
  // do with it.
  void then(std::function<void(UIWindow& window)> action);

  // For whoever makes the picture. The window holds all that was put on the stage.
  [[nodiscard]] std::shared_ptr<UIWindow> makeWindow();
  [[nodiscard]] const std::vector<std::function<void(UIWindow&)>>& actions() const {
    return actions_;
  }

 private:
  std::shared_ptr<UIView> board_;
  std::shared_ptr<UIViewController> screen_;
  CGSize screenSize_;
  std::vector<std::function<void(UIWindow&)>> actions_;
  // Where the next sample goes, and how far the present line reaches down.
  CGFloat x_ = 0;
  CGFloat y_ = 0;
  CGFloat bottom_ = 0;
};

}  // namespace zephyl::app::render
