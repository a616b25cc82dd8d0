#include "hosts/linux/window/ViewAccessible.h"

#include <QWidget>

#include "platform/uikit/AccessibilityTree.h"

namespace zephyl::linux_host {
namespace {

QAccessible::Role qtRole(UIAccessibilityRole role) {
  switch (role) {
    case UIAccessibilityRole::kNone:
      return QAccessible::Grouping;
    case UIAccessibilityRole::kStaticText:
      return QAccessible::StaticText;
    case UIAccessibilityRole::kImage:
      return QAccessible::Graphic;
    case UIAccessibilityRole::kButton:
      return QAccessible::Button;
    case UIAccessibilityRole::kLink:
      return QAccessible::Link;
    case UIAccessibilityRole::kSwitch:
      return QAccessible::CheckBox;
    case UIAccessibilityRole::kTextField:
    case UIAccessibilityRole::kSearchField:
      return QAccessible::EditableText;
    case UIAccessibilityRole::kSlider:
      return QAccessible::Slider;
    case UIAccessibilityRole::kSegment:
      return QAccessible::RadioButton;
    case UIAccessibilityRole::kTable:
      return QAccessible::List;
    case UIAccessibilityRole::kRow:
      return QAccessible::ListItem;
    case UIAccessibilityRole::kHeader:
      return QAccessible::Heading;
    case UIAccessibilityRole::kAlert:
      return QAccessible::AlertMessage;
    case UIAccessibilityRole::kProgress:
      return QAccessible::ProgressBar;
    case UIAccessibilityRole::kNavigationBar:
      return QAccessible::ToolBar;
    case UIAccessibilityRole::kWindow:
      return QAccessible::Client;
  }
  return QAccessible::Grouping;
}

bool isWithin(const QAccessibleInterface& element, int x, int y) {
  return element.rect().contains(x, y);
}

}  // namespace

QWindow* ViewAccessible::window() const {
  return tree_.widget().window()->windowHandle();
}

QAccessibleInterface* ViewAccessible::parent() const {
  const auto view = view_.lock();
  UIView* const above = view == nullptr ? nullptr : accessibilityContainerOf(*view);
  return above == nullptr ? QAccessible::queryAccessibleInterface(&tree_.widget())
                          : tree_.interfaceFor(above->shared_from_this());
}

int ViewAccessible::childCount() const {
  const auto view = view_.lock();
  return view == nullptr ? 0 : static_cast<int>(tree_.elementsIn(view.get()).size());
}

QAccessibleInterface* ViewAccessible::child(int index) const {
  const auto view = view_.lock();
  if (view == nullptr) {
    return nullptr;
  }
  const auto elements = tree_.elementsIn(view.get());
  const auto at = static_cast<std::size_t>(index);
  return index < 0 || at >= elements.size() ? nullptr : tree_.interfaceFor(elements[at]);
}

int ViewAccessible::indexOfChild(const QAccessibleInterface* child) const {
  for (int index = 0; index < childCount(); ++index) {
    if (this->child(index) == child) {
      return index;
    }
  }
  return -1;
}

QAccessibleInterface* ViewAccessible::childAt(int x, int y) const {
  for (int index = childCount() - 1; index >= 0; --index) {
    if (QAccessibleInterface* const element = child(index); isWithin(*element, x, y)) {
      return element;
    }
  }
  return nullptr;
}

QString ViewAccessible::text(QAccessible::Text kind) const {
  const auto view = view_.lock();
  if (view == nullptr) {
    return {};
  }
  switch (kind) {
    case QAccessible::Name:
      return QString::fromStdString(view->accessibilityLabel());
    case QAccessible::Value:
    case QAccessible::Description:
      return QString::fromStdString(view->accessibilityValue());
    default:
      return {};
  }
}

QRect ViewAccessible::rect() const {
  const auto view = view_.lock();
  if (view == nullptr) {
    return {};
  }
  const CGRect rect = view->convertRectToView(view->bounds(), nullptr);
  const QRectF inWidget(rect.x() * tree_.zoom(), rect.y() * tree_.zoom(),
                        rect.width() * tree_.zoom(), rect.height() * tree_.zoom());
  const QRect whole = inWidget.toAlignedRect();
  return {tree_.widget().mapToGlobal(whole.topLeft()), whole.size()};
}

QAccessible::Role ViewAccessible::role() const {
  const auto view = view_.lock();
  return view == nullptr ? QAccessible::NoRole : qtRole(view->accessibilityRole());
}

QAccessible::State ViewAccessible::state() const {
  QAccessible::State result;
  const auto view = view_.lock();
  if (view == nullptr) {
    result.invalid = true;
    return result;
  }
  const UIAccessibilityState state = view->accessibilityState();
  const UIAccessibilityRole role = view->accessibilityRole();
  result.disabled = !state.enabled;
  result.selected = state.selected;
  result.selectable = role == UIAccessibilityRole::kRow || role == UIAccessibilityRole::kSegment;
  result.checkable = role == UIAccessibilityRole::kSwitch || role == UIAccessibilityRole::kSegment;
  result.checked = state.checked || (role == UIAccessibilityRole::kSegment && state.selected);
  result.focusable = view->canBecomeFirstResponder();
  result.focused = state.focused || view->isFirstResponder();
  result.busy = state.busy;
  result.editable =
      role == UIAccessibilityRole::kTextField || role == UIAccessibilityRole::kSearchField;
  result.readOnly = !result.editable;
  return result;
}

void* ViewAccessible::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                              : nullptr;
}

QStringList ViewAccessible::actionNames() const {
  const auto view = view_.lock();
  if (view == nullptr || !view->accessibilityState().enabled) {
    return {};
  }
  switch (view->accessibilityRole()) {
    case UIAccessibilityRole::kSlider:
      return {increaseAction(), decreaseAction()};
    case UIAccessibilityRole::kNone:
    case UIAccessibilityRole::kStaticText:
    case UIAccessibilityRole::kImage:
    case UIAccessibilityRole::kHeader:
    case UIAccessibilityRole::kProgress:
    case UIAccessibilityRole::kTable:
      return {};
    default:
      return {pressAction()};
  }
}

void ViewAccessible::doAction(const QString& name) {
  const auto view = view_.lock();
  if (view == nullptr || !actionNames().contains(name)) {
    return;
  }
  if (name == increaseAction()) {
    view->accessibilityIncrement();
  } else if (name == decreaseAction()) {
    view->accessibilityDecrement();
  } else {
    view->accessibilityActivate();
  }
}

}  // namespace zephyl::linux_host
