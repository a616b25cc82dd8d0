// One screen shown over another: the view that both share a window in, where the upper one lies,
// how it comes and goes, and how far that is. By itself: over the whole screen, from below. Main
// thread.

#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/controllers/UIViewController.h"

namespace zephyl {

class UIWindow;

class ZP_EXPORT UIPresentationController
    : public std::enable_shared_from_this<UIPresentationController> {
 public:
  using Completion = UIViewController::Completion;

  explicit UIPresentationController(const std::shared_ptr<UIViewController>& presented);
  virtual ~UIPresentationController();
  UIPresentationController(const UIPresentationController&) = delete;
  UIPresentationController& operator=(const UIPresentationController&) = delete;

  [[nodiscard]] const std::shared_ptr<UIViewController>& presentedViewController() const {
    return presented_;
  }
  // Null once it is gone.
  [[nodiscard]] std::shared_ptr<UIViewController> presentingViewController() const {
    return presenting_.lock();
  }
  // Fills the window, above all that was there; takes every touch that nothing in it takes, and
  // every touch at all during transitions.
  [[nodiscard]] const std::shared_ptr<UIView>& containerView() const { return container_; }
  [[nodiscard]] bool isPresenting() const { return state_ == State::kPresenting; }
  [[nodiscard]] bool isDismissing() const { return state_ == State::kDismissing; }

  // What covers the edges of the presented view.
  [[nodiscard]] virtual UIEdgeInsets safeAreaInsets() const;

  // From view controllers: once, `presenting` in the window.
  void present(const std::shared_ptr<UIViewController>& presenting, UIWindow& window, bool animated,
               Completion completion);
  // Without `uncover` the presenting screen is left as it is: it goes too.
  void dismiss(bool animated, Completion completion, bool uncover = true);
  // Takes everything away at once, telling nobody.
  void abandon();

 protected:
  // In the container. Asked again whenever that is laid out.
  [[nodiscard]] virtual CGRect frameOfPresentedView() const;
  // Whether the presenting screen cannot be seen meanwhile.
  [[nodiscard]] virtual bool shouldRemovePresentersView() const { return true; }
  // In seconds.
  [[nodiscard]] virtual double duration(bool appearing) const;
  // Puts into the container what lies below the presented view.
  virtual void presentationWillBegin() {}
  // The presented view is in the window now.
  virtual void presentationHasBegun() {}
  // Gives the presented view back as it was.
  virtual void presentationDidEnd() {}
  // A touch on the container that nothing in it takes.
  virtual void touchedOutside() {}
  // How it looks before it comes and after it has gone, and meanwhile. Both only change values that
  // can be animated.
  virtual void showGone(bool appearing);
  virtual void showPresented();
  // Moves the presented view down out of the container.
  void moveBelow();

 private:
  class Container;
  enum class State { kNew, kPresenting, kPresented, kDismissing, kGone };

  void layoutPresentedView();
  void setTransition(bool running);
  void finishPresenting();
  void beginDismissing(bool animated);
  void finishDismissing();
  void coverPresenter();
  void uncoverPresenter();
  void takeFirstResponder(UIWindow& window);
  void giveFirstResponderBack();

  std::shared_ptr<UIViewController> presented_;
  std::weak_ptr<UIViewController> presenting_;
  std::shared_ptr<Container> holder_;
  std::shared_ptr<UIView> container_;
  std::weak_ptr<UIView> presentersSuperview_;
  std::weak_ptr<UIView> firstResponder_;
  std::vector<Completion> completions_;
  // A dismissal that was asked for before the screen had come: whether it is animated.
  std::optional<bool> dismissal_;
  std::vector<Completion> dismissalCompletions_;
  State state_ = State::kNew;
  bool uncover_ = true;
};

}  // namespace zephyl
