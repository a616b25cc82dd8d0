#include "platform/uikit/controllers/UIPresentationController.h"

#include <utility>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/UIWindow.h"

namespace zephyl {

class UIPresentationController::Container : public UIView {
 public:
  Container(const CGRect& frame, std::weak_ptr<UIPresentationController> presentation)
      : UIView(frame), presentation_(std::move(presentation)) {
    setAutoresizingMask(kFlexibleWidth | kFlexibleHeight);
  }

  void setBlocked(bool blocked) { blocked_ = blocked; }

  [[nodiscard]] UIView* hitTest(CGPoint point) override {
    if (blocked_) {
      return pointInside(point) ? this : nullptr;
    }
    return UIView::hitTest(point);
  }
  void touchesEnded(const UITouch& /*touch*/) override {
    const auto self = shared_from_this();
    if (const auto presentation = presentation_.lock(); presentation && !blocked_) {
      presentation->touchedOutside();
    }
  }
  [[nodiscard]] bool accessibilityViewIsModal() const override { return true; }
  void layoutSubviews() override {
    if (const auto presentation = presentation_.lock()) {
      presentation->layoutPresentedView();
    }
  }
  [[nodiscard]] const char* className() const override { return "UITransitionView"; }

 private:
  std::weak_ptr<UIPresentationController> presentation_;
  bool blocked_ = false;
};

UIPresentationController::UIPresentationController(
    const std::shared_ptr<UIViewController>& presented)
    : presented_(presented) {}

UIPresentationController::~UIPresentationController() {
  if (holder_ != nullptr) {
    holder_->removeFromSuperview();
  }
}

UIEdgeInsets UIPresentationController::safeAreaInsets() const {
  return UIScreen::mainScreen().safeAreaInsets();
}

CGRect UIPresentationController::frameOfPresentedView() const {
  return container_->bounds();
}

double UIPresentationController::duration(bool /*appearing*/) const {
  return 0.4;
}

void UIPresentationController::showGone(bool /*appearing*/) {
  moveBelow();
}

void UIPresentationController::moveBelow() {
  const CGFloat below = container_->bounds().maxY() - frameOfPresentedView().y();
  presented_->view()->setTransform(CGAffineTransformMakeTranslation(0, below));
}

void UIPresentationController::showPresented() {
  presented_->view()->setTransform(CGAffineTransformIdentity);
}

void UIPresentationController::layoutPresentedView() {
  const auto& view = presented_->viewIfLoaded();
  if (view != nullptr && view->superview() == container_.get()) {
    view->setFrame(frameOfPresentedView());
  }
}

void UIPresentationController::setTransition(bool running) {
  holder_->setBlocked(running);
}

void UIPresentationController::present(const std::shared_ptr<UIViewController>& presenting,
                                       UIWindow& window, bool animated, Completion completion) {
  const auto self = shared_from_this();
  presenting_ = presenting;
  state_ = State::kPresenting;
  completions_.push_back(std::move(completion));
  presenting->presentation_ = self;
  presented_->presentedBy_ = self;
  takeFirstResponder(window);

  holder_ = std::make_shared<Container>(window.bounds(), weak_from_this());
  container_ = holder_;
  setTransition(true);
  const auto view = presented_->view();
  if (shouldRemovePresentersView()) {
    presenting->beginAppearanceTransition(/*appearing=*/false, animated);
  }
  presented_->beginAppearanceTransition(/*appearing=*/true, animated);
  performWithoutAnimation([&] {
    window.addSubview(container_);
    presentationWillBegin();
    container_->addSubview(view);
    layoutPresentedView();
    if (animated) {
      showGone(/*appearing=*/true);
    } else {
      showPresented();
    }
    container_->layoutIfNeeded();
  });
  presentationHasBegun();
  if (!animated) {
    finishPresenting();
    return;
  }
  animateWithDuration(
      duration(/*appearing=*/true), [this] { showPresented(); },
      [self](bool) { self->finishPresenting(); });
}

void UIPresentationController::finishPresenting() {
  if (state_ != State::kPresenting) {
    return;
  }
  const auto self = shared_from_this();
  state_ = State::kPresented;
  setTransition(false);
  coverPresenter();
  presented_->endAppearanceTransition();
  if (const auto presenting = presenting_.lock(); presenting && shouldRemovePresentersView()) {
    presenting->endAppearanceTransition();
  }
  for (const auto& completion : std::exchange(completions_, {})) {
    if (completion) {
      completion();
    }
  }
  if (dismissal_ && state_ == State::kPresented) {
    const bool animated = *dismissal_;
    auto completions = std::exchange(dismissalCompletions_, {});
    dismiss(animated, [completions = std::move(completions)] {
      for (const auto& completion : completions) {
        if (completion) {
          completion();
        }
      }
    });
  }
}

void UIPresentationController::dismiss(bool animated, Completion completion, bool uncover) {
  if (state_ == State::kPresenting) {
    dismissal_ = animated;
    uncover_ = uncover;
    dismissalCompletions_.push_back(std::move(completion));
    return;
  }
  completions_.push_back(std::move(completion));
  if (state_ != State::kPresented) {
    return;
  }
  const auto self = shared_from_this();
  state_ = State::kDismissing;
  uncover_ = uncover_ && uncover;
  setTransition(true);
  if (const auto above = presented_->presentation_) {
    // Only the topmost screen is seen to go; what lies between goes beneath it.
    beginDismissing(/*animated=*/false);
    container_->setHidden(true);
    above->dismiss(
        animated, [self] { self->finishDismissing(); }, /*uncover=*/false);
    return;
  }
  beginDismissing(animated);
  if (!animated) {
    finishDismissing();
    return;
  }
  animateWithDuration(
      duration(/*appearing=*/false), [this] { showGone(/*appearing=*/false); },
      [self](bool) { self->finishDismissing(); });
}

void UIPresentationController::beginDismissing(bool animated) {
  presented_->beginAppearanceTransition(/*appearing=*/false, animated);
  if (const auto presenting = presenting_.lock();
      presenting && uncover_ && shouldRemovePresentersView()) {
    uncoverPresenter();
    presenting->beginAppearanceTransition(/*appearing=*/true, animated);
  }
}

void UIPresentationController::finishDismissing() {
  if (state_ != State::kDismissing) {
    return;
  }
  const auto self = shared_from_this();
  const auto presenting = presenting_.lock();
  state_ = State::kGone;
  container_->removeFromSuperview();
  if (presented_->viewIfLoaded() != nullptr) {
    presented_->viewIfLoaded()->removeFromSuperview();
    performWithoutAnimation([this] {
      showPresented();
      presentationDidEnd();
    });
  }
  presented_->presentedBy_.reset();
  if (presenting != nullptr && presenting->presentation_ == self) {
    presenting->presentation_ = nullptr;
  }
  if (presenting != nullptr && uncover_ && shouldRemovePresentersView()) {
    presenting->endAppearanceTransition();
  }
  presented_->endAppearanceTransition();
  giveFirstResponderBack();
  for (const auto& completion : std::exchange(completions_, {})) {
    if (completion) {
      completion();
    }
  }
  if (presenting != nullptr) {
    presenting->presentWaiting();
  }
}

void UIPresentationController::abandon() {
  const auto self = shared_from_this();
  if (const auto above = presented_->presentation_) {
    above->abandon();
  }
  state_ = State::kGone;
  completions_.clear();
  dismissalCompletions_.clear();
  if (container_ != nullptr) {
    container_->removeFromSuperview();
  }
  presented_->presentedBy_.reset();
  if (const auto presenting = presenting_.lock()) {
    presenting->presentation_ = nullptr;
  }
}

void UIPresentationController::coverPresenter() {
  const auto presenting = presenting_.lock();
  if (presenting == nullptr || !shouldRemovePresentersView()) {
    return;
  }
  const auto view = presenting->view();
  if (view->superview() != nullptr) {
    presentersSuperview_ = view->superview()->weak_from_this();
    view->removeFromSuperview();
  }
}

void UIPresentationController::uncoverPresenter() {
  const auto presenting = presenting_.lock();
  const auto superview = presentersSuperview_.lock();
  if (presenting == nullptr || superview == nullptr) {
    return;
  }
  // The lowest of a window; above what a presentation put beneath it.
  const bool lowest = superview->window() == superview.get();
  const auto& view = presenting->view();
  superview->insertSubview(view, lowest ? 0 : superview->subviews().size());
  if (lowest) {
    view->setFrame(superview->bounds());
  }
  superview->setNeedsLayout();
}

void UIPresentationController::takeFirstResponder(UIWindow& window) {
  auto* const view = dynamic_cast<UIView*>(window.firstResponder());
  if (view != nullptr) {
    firstResponder_ = view->weak_from_this();
    view->resignFirstResponder();
  }
}

void UIPresentationController::giveFirstResponderBack() {
  const auto view = firstResponder_.lock();
  if (view != nullptr && view->window() != nullptr && view->window()->firstResponder() == nullptr) {
    view->becomeFirstResponder();
  }
}

}  // namespace zephyl
