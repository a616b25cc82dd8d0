#include "ui/components/ZPColorPickerViewController.h"

#include <utility>

#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"

#include "ui/components/HRBrightnessSlider.h"
#include "ui/components/HRColorMapView.h"
#include "ui/components/HRColorPickerView.h"

namespace zephyl {

namespace {

// Kept: the picker is moved to the right and not made narrower, so that it stands out by as much.
constexpr CGFloat kShift = 5;

}  // namespace

ZPColorPickerViewController::ZPColorPickerViewController(const UIColor& color) : color_(color) {}

ZPColorPickerViewController::~ZPColorPickerViewController() = default;

void ZPColorPickerViewController::setResultCallback(ResultCallback callback) {
  resultCallback_ = std::move(callback);
}

const std::shared_ptr<HRColorPickerView>& ZPColorPickerViewController::colorPickerView() {
  if (colorPickerView_ == nullptr) {
    colorPickerView_ = std::make_shared<HRColorPickerView>();
    colorPickerView_->colorMapView()->setSaturationUpperLimit(1);
    colorPickerView_->brightnessSlider()->setBrightnessLowerLimit(0);
  }
  return colorPickerView_;
}

void ZPColorPickerViewController::showInViewController(
    const std::shared_ptr<UIViewController>& controller, const std::string& title,
    ResultCallback resultCallback) {
  const auto self = std::static_pointer_cast<ZPColorPickerViewController>(shared_from_this());
  setTitle(title);
  setResultCallback(std::move(resultCallback));
  if (const auto navigation =
          controller == nullptr ? nullptr : controller->navigationController()) {
    navigation->pushViewController(self, /*animated=*/true);
  }
  navigationItem()->setLeftBarButtonItem(std::make_shared<UIBarButtonItem>(
      UIBarButtonSystemItem::kCancel, self,
      [this](UIBarButtonItem& sender) { cancelAction(&sender); }));
  navigationItem()->setRightBarButtonItem(
      std::make_shared<UIBarButtonItem>(UIBarButtonSystemItem::kDone, self,
                                        [this](UIBarButtonItem& sender) { doneAction(&sender); }));
}

void ZPColorPickerViewController::cancelAction(const UIBarButtonItem* /*sender*/) {
  if (const auto navigation = navigationController()) {
    navigation->popViewControllerAnimated(/*animated=*/true);
  }
}

void ZPColorPickerViewController::doneAction(const UIBarButtonItem* /*sender*/) {
  const auto self = shared_from_this();
  // The callback may set another one.
  if (const ResultCallback callback = resultCallback_) {
    callback(colorPickerView()->color());
  }
  cancelAction(nullptr);
}

void ZPColorPickerViewController::loadView() {
  UIViewController::loadView();
  viewIfLoaded()->setBackgroundColor(UIColor::whiteColor());
  viewIfLoaded()->addSubview(colorPickerView());
}

void ZPColorPickerViewController::viewDidLoad() {
  UIViewController::viewDidLoad();
  colorPickerView()->setColor(color_);
}

void ZPColorPickerViewController::viewDidLayoutSubviews() {
  UIViewController::viewDidLayoutSubviews();
  const CGSize size = view()->frame().size;
  const auto& picker = colorPickerView();
  picker->setFrame({{}, size});
  if (respondsToTopLayoutGuide()) {
    const CGFloat top = topLayoutGuide().length;
    picker->setFrame(CGRectMake(kShift, top, size.width, size.height - top));
  }
}

}  // namespace zephyl
