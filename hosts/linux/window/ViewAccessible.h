// Screen readers on the desktop: an interface of Qt's for each element of the view tree, made when
// it is asked for. Main thread.

#pragma once

#include <QAccessible>
#include <QAccessibleWidget>
#include <map>
#include <memory>
#include <vector>

#include "platform/uikit/UIView.h"

class QWidget;

namespace zephyl::linux_host {

class AccessibleTree;

// One element. Lives in Qt's registry of interfaces; invalid once the view is gone.
class ViewAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  ViewAccessible(AccessibleTree& tree, const std::shared_ptr<UIView>& view)
      : tree_(tree), view_(view) {}

  [[nodiscard]] bool isValid() const override { return !view_.expired(); }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QWindow* window() const override;
  [[nodiscard]] QAccessibleInterface* parent() const override;
  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
  // On the desktop, in its own pixels.
  [[nodiscard]] QRect rect() const override;
  [[nodiscard]] QAccessible::Role role() const override;
  [[nodiscard]] QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& name) override;
  [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
    return {};
  }

  [[nodiscard]] std::shared_ptr<UIView> view() const { return view_.lock(); }

 private:
  AccessibleTree& tree_;
  std::weak_ptr<UIView> view_;
};

// The elements of one window, below the widget that shows it.
class AccessibleTree {
 public:
  // `zoom` is pixels of Qt's a point.
  AccessibleTree(QWidget& widget, UIView& root, double zoom);
  ~AccessibleTree();
  AccessibleTree(const AccessibleTree&) = delete;
  AccessibleTree& operator=(const AccessibleTree&) = delete;

  [[nodiscard]] QWidget& widget() const { return widget_; }
  [[nodiscard]] double zoom() const { return zoom_; }
  void setZoom(double zoom) { zoom_ = zoom; }

  // The elements below, or below all of the window where `view` is null.
  [[nodiscard]] std::vector<std::shared_ptr<UIView>> elementsIn(UIView* view) const;
  [[nodiscard]] QAccessibleInterface* interfaceFor(const std::shared_ptr<UIView>& view);

  // Tells the desktop what is not as it was at the last call: elements that came or went, names,
  // values and states. Costs nothing while no screen reader runs.
  void announceChanges();

 private:
  struct Known {
    std::weak_ptr<UIView> view;
    QAccessible::Id id = 0;
    QString name;
    QString value;
    UIAccessibilityState state;
  };

  void forgetTheDead();

  QWidget& widget_;
  UIView& root_;
  double zoom_;
  std::map<const UIView*, Known> known_;
  std::vector<const UIView*> lastOrder_;
};

// The widget itself, whose children are the window's elements.
class WindowAccessible : public QAccessibleWidget {
 public:
  WindowAccessible(QWidget* widget, AccessibleTree& tree)
      : QAccessibleWidget(widget, QAccessible::Client), tree_(tree) {}

  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
  [[nodiscard]] QAccessibleInterface* focusChild() const override;

 private:
  AccessibleTree& tree_;
};

}  // namespace zephyl::linux_host
