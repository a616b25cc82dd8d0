// A stack of screens, the topmost seen below a bar with its title and buttons. Main thread.
//
// A change of the stack while another is still seen to happen first ends that one.

#pragma once

#include <memory>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/controllers/UIViewController.h"

namespace zephyl {

class UINavigationBar;
class UIScreenEdgePanGestureRecognizer;

class ZP_EXPORT UINavigationController : public UIViewController {
 public:
  using Controllers = std::vector<std::shared_ptr<UIViewController>>;

  // Without a screen.
  UINavigationController();
  ~UINavigationController() override;
  [[nodiscard]] static std::shared_ptr<UINavigationController> initWithRootViewController(
      const std::shared_ptr<UIViewController>& root);

  // From the root to the top.
  [[nodiscard]] const Controllers& viewControllers() const { return stack_; }
  void setViewControllers(const Controllers& controllers, bool animated = false);
  // Null when there is none.
  [[nodiscard]] std::shared_ptr<UIViewController> topViewController() const;

  // A screen that is on the stack already, or null, is not pushed.
  void pushViewController(const std::shared_ptr<UIViewController>& controller, bool animated);
  // What was taken away; null or empty when only the root is there. The root stays.
  std::shared_ptr<UIViewController> popViewControllerAnimated(bool animated);
  Controllers popToRootViewControllerAnimated(bool animated);
  Controllers popToViewController(const std::shared_ptr<UIViewController>& controller,
                                  bool animated);

  [[nodiscard]] const std::shared_ptr<UINavigationBar>& navigationBar();
  [[nodiscard]] bool isInTransition() const { return transition_ != nullptr; }

  void loadView() override;
  void viewDidLoad() override;
  void viewWillLayoutSubviews() override;
  [[nodiscard]] UIEdgeInsets safeAreaInsetsForChild(const UIViewController& child) const override;
  // The Cancel button of the top screen, else the way back.
  bool accessibilityPerformEscape() override;
  [[nodiscard]] std::shared_ptr<UIViewController> childForKeys() override;
  [[nodiscard]] const char* className() const override { return "UINavigationController"; }

 protected:
  [[nodiscard]] std::vector<std::shared_ptr<UIViewController>> childrenForAppearance() override;

 private:
  struct Transition;
  [[nodiscard]] CGFloat barHeight() const;
  // Where screens lie in the view, which is loaded.
  [[nodiscard]] CGRect areaForChild() const;
  void replaceStack(Controllers stack, bool animated, bool forwards);
  void show(const std::shared_ptr<UIViewController>& from,
            const std::shared_ptr<UIViewController>& to, Controllers leaving, bool animated,
            bool forwards);
  void putInOrder(Transition& transition);
  void slide(const std::shared_ptr<Transition>& transition);
  void finishLater(const std::shared_ptr<Transition>& transition, double duration,
                   CGFloat progress);
  void swipe(const UIScreenEdgePanGestureRecognizer& recognizer);
  [[nodiscard]] bool canSwipe() const;
  void beginSwipe();
  void endSwipe(bool back, CGFloat progress);
  void finishTransition();
  void place(UIViewController& controller);
  void remove(const Controllers& controllers);
  void updateBar(bool animated, bool forwards);

  Controllers stack_;
  std::shared_ptr<UINavigationBar> bar_;
  std::shared_ptr<Transition> transition_;
};

}  // namespace zephyl
