#include "services/UIViewControllerZephyls.h"

#include <utility>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controls/UIActivityIndicatorView.h"

#include "model/ZPLocalizedText.h"

namespace zephyl {

namespace {

// In the box, in points. Kept: fixed, whatever the height of the box.
constexpr CGPoint kSpinnerCenter{130.5, 80.5};
constexpr CGPoint kSpinnerCenterBelowDetail{130.5, 90.5};
// The room for the spinner below the text.
constexpr char kRoom[] = "\n\n\n";

std::shared_ptr<UIAlertController> makeBusyBox(const std::string& message, CGPoint spinnerCenter) {
  auto box = UIAlertController::alertControllerWithTitle(
      /*title=*/"", message, UIAlertControllerStyle::kAlert);
  const auto spinner =
      std::make_shared<UIActivityIndicatorView>(UIActivityIndicatorViewStyle::kWhiteLarge);
  spinner->setCenter(spinnerCenter);
  spinner->setColor(UIColor::blackColor());
  spinner->startAnimating();
  box->view()->addSubview(spinner);
  return box;
}

std::shared_ptr<UIAlertController> showBusyBox(const std::shared_ptr<UIViewController>& controller,
                                               const std::string& message, CGPoint spinnerCenter) {
  std::shared_ptr<UIAlertController> box;
  const auto show = [&] {
    box = makeBusyBox(message, spinnerCenter);
    const auto navigation = controller == nullptr ? nullptr : controller->navigationController();
    if (navigation != nullptr) {
      navigation->presentViewController(box, /*animated=*/false);
    }
  };
  // Views are the main thread's. Some callers are elsewhere, and go on once the box is shown.
  if (host().dispatch().isMainThread()) {
    show();
  } else {
    host().dispatch().mainSync(show);
  }
  return box;
}

}  // namespace

void zp__showInformation(const std::shared_ptr<UIViewController>& controller,
                         const std::string& message) {
  zp__showAlertWithTitle(controller, zpLocalizedText("Information"), message, nullptr);
}

void zp__showWarning(const std::shared_ptr<UIViewController>& controller,
                     const std::string& message) {
  zp__showAlertWithTitle(controller, zpLocalizedText("Warning"), message, nullptr);
}

void zp__showError(const std::shared_ptr<UIViewController>& controller,
                   const std::string& message) {
  zp__showError(controller, message, nullptr);
}

void zp__showError(const std::shared_ptr<UIViewController>& controller, const std::string& message,
                   UIAlertAction::Handler okAction) {
  zp__showAlertWithTitle(controller, zpLocalizedText("Error"), message, std::move(okAction));
}

void zp__showAlertWithTitle(const std::shared_ptr<UIViewController>& controller,
                            const std::string& title, const std::string& alertMessage,
                            UIAlertAction::Handler ok) {
  host().dispatch().mainAsync(
      [weak = std::weak_ptr(controller), title, alertMessage, handler = std::move(ok)] {
        const auto screen = weak.lock();
        if (screen == nullptr) {
          return;
        }
        const auto alert = UIAlertController::alertControllerWithTitle(
            title, alertMessage, UIAlertControllerStyle::kAlert);
        alert->addAction(UIAlertAction::actionWithTitle(zpLocalizedText("OK"),
                                                        UIAlertActionStyle::kDefault, handler));
        screen->presentViewController(alert, /*animated=*/true);
      });
}

std::shared_ptr<UIAlertController> zp__showActivityIndicator(
    const std::shared_ptr<UIViewController>& controller) {
  return showBusyBox(controller, kRoom, kSpinnerCenter);
}

std::shared_ptr<UIAlertController> zp__showActivityIndicator(
    const std::shared_ptr<UIViewController>& controller, const std::string& title) {
  return showBusyBox(controller, title + kRoom, kSpinnerCenter);
}

std::shared_ptr<UIAlertController> zp__showActivityIndicator(
    const std::shared_ptr<UIViewController>& controller, const std::string& title,
    const std::string& detailedMessage) {
  std::string message = title;
  message.append("\n").append(detailedMessage).append(kRoom);
  return showBusyBox(controller, message, kSpinnerCenterBelowDetail);
}

}  // namespace zephyl
