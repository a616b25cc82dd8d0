// What every screen tells with: alerts with one button, and the box that is shown while something
// goes on.

#pragma once

#include <memory>
#include <string>

#include "platform/Export.h"
#include "platform/uikit/controllers/UIAlertController.h"

namespace zephyl {

// Alerts. Each returns before the alert is on the screen: it is made on the main queue, and shown
// by `controller`, animated, unless that has gone by then. Any thread. The message is shown as it
// is. The handler, which may be empty, runs once the alert has been answered and has gone.

// Titled "Information", "Warning" and "Error", localized.
ZP_EXPORT void zp__showInformation(const std::shared_ptr<UIViewController>& controller,
                                   const std::string& message);
ZP_EXPORT void zp__showWarning(const std::shared_ptr<UIViewController>& controller,
                               const std::string& message);
ZP_EXPORT void zp__showError(const std::shared_ptr<UIViewController>& controller,
                             const std::string& message);
ZP_EXPORT void zp__showError(const std::shared_ptr<UIViewController>& controller,
                             const std::string& message, UIAlertAction::Handler okAction);
// The title is shown as it is, too.
ZP_EXPORT void zp__showAlertWithTitle(const std::shared_ptr<UIViewController>& controller,
                                      const std::string& title, const std::string& alertMessage,
                                      UIAlertAction::Handler ok);

// The box with a spinner and no buttons: the navigation controller of `controller` shows it, not
// animated, before the call returns. The caller keeps it and dismisses it. Without a navigation
// controller it is not shown, and returned all the same.
//
// For the main thread. Elsewhere the call waits for the main thread, so never there while that
// waits for the caller.
ZP_EXPORT std::shared_ptr<UIAlertController> zp__showActivityIndicator(
    const std::shared_ptr<UIViewController>& controller);
ZP_EXPORT std::shared_ptr<UIAlertController> zp__showActivityIndicator(
    const std::shared_ptr<UIViewController>& controller, const std::string& title);
ZP_EXPORT std::shared_ptr<UIAlertController> zp__showActivityIndicator(
    const std::shared_ptr<UIViewController>& controller, const std::string& title,
    const std::string& detailedMessage);

}  // namespace zephyl
