// A screen, or a container of screens: it makes its view when that is first asked for, is told when
// the view appears and goes, and shows other screens over itself. Main thread.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/UIResponder.h"

namespace zephyl {

class UINavigationController;
class UINavigationItem;
class UIPresentationController;
class UIView;

// With the platform's values. Automatic is a sheet from version 13 on, and the full screen before.
enum class UIModalPresentationStyle { kAutomatic = -2, kFullScreen = 0, kPageSheet = 1 };

// How much of a screen's view bars and the edges of the device cover.
struct UILayoutGuide {
  CGFloat length = 0;
};

class ZP_EXPORT UIViewController : public std::enable_shared_from_this<UIViewController>,
                                   public UIResponder {
 public:
  using Completion = std::function<void()>;

  UIViewController();
  ~UIViewController() override;
  UIViewController(const UIViewController&) = delete;
  UIViewController& operator=(const UIViewController&) = delete;

  // Loads the view at the first call; a `loadView` that makes none leaves an empty one.
  const std::shared_ptr<UIView>& view();
  [[nodiscard]] const std::shared_ptr<UIView>& viewIfLoaded() const { return view_; }
  [[nodiscard]] bool isViewLoaded() const { return view_ != nullptr; }
  void setView(const std::shared_ptr<UIView>& view);
  virtual void loadView();
  virtual void viewDidLoad() {}

  // Appearance. Each `will` is followed by its `did`, unless the opposite `will` comes between.
  virtual void viewWillAppear(bool /*animated*/) {}
  virtual void viewDidAppear(bool /*animated*/) {}
  virtual void viewWillDisappear(bool /*animated*/) {}
  virtual void viewDidDisappear(bool /*animated*/) {}
  virtual void viewWillLayoutSubviews() {}  // the two around each layout of the view
  virtual void viewDidLayoutSubviews() {}

  [[nodiscard]] const std::string& title() const { return title_; }
  virtual void setTitle(const std::string& title);  // the navigation item's too
  // Made at the first call, with the title.
  const std::shared_ptr<UINavigationItem>& navigationItem();
  [[nodiscard]] bool isEditing() const { return editing_; }
  virtual void setEditing(bool editing, bool animated = false);

  // Containers. A child leaves the parent it was in; its view is the container's to place. Adding
  // tells `willMove`, removing `didMove`; the container tells the other one.
  [[nodiscard]] std::shared_ptr<UIViewController> parentViewController() const;
  [[nodiscard]] const std::vector<std::shared_ptr<UIViewController>>& childViewControllers() const {
    return children_;
  }
  void addChildViewController(const std::shared_ptr<UIViewController>& child);
  void removeFromParentViewController();
  virtual void willMoveToParentViewController(UIViewController* /*parent*/) {}
  virtual void didMoveToParentViewController(UIViewController* /*parent*/) {}
  // The nearest one that this screen is in; null when there is none.
  [[nodiscard]] std::shared_ptr<UINavigationController> navigationController() const;
  // For containers: passed on to the children that are seen.
  void beginAppearanceTransition(bool appearing, bool animated);
  void endAppearanceTransition();
  [[nodiscard]] bool isAppearing() const { return appearance_ == Appearance::kAppearing; }
  [[nodiscard]] bool hasAppeared() const { return appearance_ == Appearance::kAppeared; }
  [[nodiscard]] UIEdgeInsets safeAreaInsets() const;  // what covers the edges of the view
  [[nodiscard]] UILayoutGuide topLayoutGuide() const { return {safeAreaInsets().top}; }
  [[nodiscard]] UILayoutGuide bottomLayoutGuide() const { return {safeAreaInsets().bottom}; }
  [[nodiscard]] static bool respondsToTopLayoutGuide();  // since version 7
  [[nodiscard]] virtual UIEdgeInsets safeAreaInsetsForChild(const UIViewController& child) const;

  // Presentation, by the outermost container that this screen is in, which must be in a window. A
  // presenter that is just dismissing presents afterwards; one that already presents refuses, as
  // for a screen that is shown elsewhere: `completion` is then dropped, and the system log says so.
  void presentViewController(const std::shared_ptr<UIViewController>& controller, bool animated,
                             Completion completion = nullptr);
  // Dismisses what this screen presents with all above it, else this screen itself. With neither,
  // `completion` runs at once; while that goes already, after it; while it still comes, both later.
  void dismissViewControllerAnimated(bool animated, Completion completion = nullptr);
  [[nodiscard]] std::shared_ptr<UIViewController> presentedViewController() const;
  [[nodiscard]] std::shared_ptr<UIViewController> presentingViewController() const;
  void abandonPresented();  // For windows: it is gone at once, and nobody is told.
  [[nodiscard]] UIModalPresentationStyle modalPresentationStyle() const { return style_; }
  void setModalPresentationStyle(UIModalPresentationStyle style) { style_ = style; }
  // Whether what a search within this screen finds covers it alone, and nothing around it.
  [[nodiscard]] bool definesPresentationContext() const { return definesContext_; }
  void setDefinesPresentationContext(bool defines) { definesContext_ = defines; }
  // How this screen comes and goes when it is presented.
  [[nodiscard]] virtual std::shared_ptr<UIPresentationController> makePresentationController();

  // Escape, or a screen reader's gesture for it: the way out of the screen. Whether there is one.
  virtual bool accessibilityPerformEscape() { return false; }
  bool pressesBegan(const UIKeyPress& press) override;
  // What the screen's view is in. Kept from the presenting screen: its keys are not meant.
  [[nodiscard]] UIResponder* nextResponder() const override;
  // The screen that keys go to while nothing is typed into: the one presented last.
  [[nodiscard]] std::shared_ptr<UIViewController> topmostViewController();
  // Within a container, the child that keys go to; else this one.
  [[nodiscard]] virtual std::shared_ptr<UIViewController> childForKeys();

  [[nodiscard]] virtual const char* className() const { return "UIViewController"; }

 protected:
  // The children that appear and go with this one; all of them by default.
  [[nodiscard]] virtual std::vector<std::shared_ptr<UIViewController>> childrenForAppearance();

 private:
  friend class UIPresentationController;
  enum class Appearance { kGone, kAppearing, kAppeared, kDisappearing };
  struct Request {
    std::shared_ptr<UIViewController> controller;
    bool animated;
    Completion completion;
  };

  [[nodiscard]] std::shared_ptr<UIViewController> outermost() const;
  void presentWaiting();

  std::shared_ptr<UIView> view_;
  std::string title_;
  std::shared_ptr<UINavigationItem> navigationItem_;
  std::weak_ptr<UIViewController> parent_;
  std::vector<std::shared_ptr<UIViewController>> children_;
  // What this screen presents, and what presents it.
  std::shared_ptr<UIPresentationController> presentation_;
  std::weak_ptr<UIPresentationController> presentedBy_;
  std::vector<Request> waiting_;
  UIModalPresentationStyle style_ = UIModalPresentationStyle::kAutomatic;
  Appearance appearance_ = Appearance::kGone;
  bool appearanceAnimated_ = false;
  bool loading_ = false;
  bool editing_ = false;
  bool definesContext_ = false;
};

}  // namespace zephyl
