// The screen on which the user picks a group's marker colour: a colour picker below the navigation
// bar, Cancel and Done in the bar. Both go back; Done first hands over the picked colour. Main
// thread.

#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Export.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/controllers/UIViewController.h"

namespace zephyl {

class HRColorPickerView;
class UIBarButtonItem;

class ZP_EXPORT ZPColorPickerViewController : public UIViewController {
 public:
  // Gets the colour as the picker holds it, always with alpha 1.
  using ResultCallback = std::function<void(const UIColor& color)>;

  explicit ZPColorPickerViewController(const UIColor& color);
  ~ZPColorPickerViewController() override;

  // The colour that the screen opens with; picking does not change it.
  [[nodiscard]] const UIColor& color() const { return color_; }
  void setColor(const UIColor& color) { color_ = color; }
  [[nodiscard]] const ResultCallback& resultCallback() const { return resultCallback_; }
  void setResultCallback(ResultCallback callback);
  // Made at the first call, with all saturations and all brightnesses down to black.
  const std::shared_ptr<HRColorPickerView>& colorPickerView();

  // Pushed onto the navigation controller of `controller`, animated.
  void showInViewController(const std::shared_ptr<UIViewController>& controller,
                            const std::string& title, ResultCallback resultCallback);

  // The sender is not looked at. Null is fine.
  void cancelAction(const UIBarButtonItem* sender);
  void doneAction(const UIBarButtonItem* sender);

  void loadView() override;
  void viewDidLoad() override;
  void viewDidLayoutSubviews() override;
  [[nodiscard]] const char* className() const override { return "ZPColorPickerViewController"; }

 private:
  UIColor color_;
  std::shared_ptr<HRColorPickerView> colorPickerView_;
  ResultCallback resultCallback_;
};

}  // namespace zephyl
