#include <QWidget>
#include <algorithm>

#include "platform/uikit/AccessibilityTree.h"

#include "hosts/linux/window/ViewAccessible.h"

namespace zephyl::linux_host {
namespace {

// Every element below, in reading order.
std::vector<std::shared_ptr<UIView>> allElements(const AccessibleTree& tree) {
  std::vector<std::shared_ptr<UIView>> all;
  std::vector<std::shared_ptr<UIView>> stack = tree.elementsIn(nullptr);
  std::reverse(stack.begin(), stack.end());
  while (!stack.empty()) {
    const std::shared_ptr<UIView> at = stack.back();
    stack.pop_back();
    all.push_back(at);
    const auto below = tree.elementsIn(at.get());
    stack.insert(stack.end(), below.rbegin(), below.rend());
  }
  return all;
}

}  // namespace

AccessibleTree::AccessibleTree(QWidget& widget, UIView& root, double zoom)
    : widget_(widget), root_(root), zoom_(zoom) {}

AccessibleTree::~AccessibleTree() {
  for (const auto& [view, known] : known_) {
    QAccessible::deleteAccessibleInterface(known.id);
  }
}

std::vector<std::shared_ptr<UIView>> AccessibleTree::elementsIn(UIView* view) const {
  if (view != nullptr) {
    return accessibilityElementsIn(*view);
  }
  const std::shared_ptr<UIView> scope = accessibilityScopeIn(root_);
  if (scope.get() != &root_ && scope->isAccessibilityElement()) {
    return {scope};
  }
  return accessibilityElementsIn(*scope);
}

QAccessibleInterface* AccessibleTree::interfaceFor(const std::shared_ptr<UIView>& view) {
  const auto found = known_.find(view.get());
  if (found != known_.end()) {
    if (!found->second.view.expired()) {
      return QAccessible::accessibleInterface(found->second.id);
    }
    // Another view has come to lie where one was that is gone.
    QAccessible::deleteAccessibleInterface(found->second.id);
    known_.erase(found);
  }
  Known known;
  known.view = view;
  // Qt's registry owns it from here on.
  known.id = QAccessible::registerAccessibleInterface(new ViewAccessible(*this, view));
  known.name = QString::fromStdString(view->accessibilityLabel());
  known.value = QString::fromStdString(view->accessibilityValue());
  known.state = view->accessibilityState();
  const QAccessible::Id id = known.id;
  known_.emplace(view.get(), std::move(known));
  return QAccessible::accessibleInterface(id);
}

void AccessibleTree::announceChanges() {
  forgetTheDead();
  if (!QAccessible::isActive()) {
    return;
  }
  std::vector<const UIView*> order;
  for (const std::shared_ptr<UIView>& view : allElements(*this)) {
    order.push_back(view.get());
    QAccessibleInterface* const element = interfaceFor(view);
    Known& known = known_.at(view.get());
    const auto announce = [element](QAccessible::Event kind) {
      QAccessibleEvent event(element, kind);
      QAccessible::updateAccessibility(&event);
    };
    const QString name = QString::fromStdString(view->accessibilityLabel());
    if (std::exchange(known.name, name) != name) {
      announce(QAccessible::NameChanged);
    }
    const QString value = QString::fromStdString(view->accessibilityValue());
    if (std::exchange(known.value, value) != value) {
      announce(QAccessible::ValueChanged);
    }
    const UIAccessibilityState state = view->accessibilityState();
    if (const UIAccessibilityState before = std::exchange(known.state, state); before != state) {
      QAccessible::State changed;
      changed.disabled = before.enabled != state.enabled;
      changed.selected = before.selected != state.selected;
      changed.checked = before.checked != state.checked;
      changed.focused = before.focused != state.focused;
      changed.busy = before.busy != state.busy;
      QAccessibleStateChangeEvent event(element, changed);
      QAccessible::updateAccessibility(&event);
      if (state.focused && !before.focused) {
        announce(QAccessible::Focus);
      }
    }
  }
  if (std::exchange(lastOrder_, order) != order) {
    QAccessibleEvent event(&widget_, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&event);
  }
}

void AccessibleTree::forgetTheDead() {
  for (auto known = known_.begin(); known != known_.end();) {
    if (known->second.view.expired()) {
      QAccessible::deleteAccessibleInterface(known->second.id);
      known = known_.erase(known);
    } else {
      ++known;
    }
  }
}

int WindowAccessible::childCount() const {
  return static_cast<int>(tree_.elementsIn(nullptr).size());
}

QAccessibleInterface* WindowAccessible::child(int index) const {
  const auto elements = tree_.elementsIn(nullptr);
  const auto at = static_cast<std::size_t>(index);
  return index < 0 || at >= elements.size() ? nullptr : tree_.interfaceFor(elements[at]);
}

int WindowAccessible::indexOfChild(const QAccessibleInterface* child) const {
  for (int index = 0; index < childCount(); ++index) {
    if (this->child(index) == child) {
      return index;
    }
  }
  return -1;
}

QAccessibleInterface* WindowAccessible::childAt(int x, int y) const {
  for (int index = childCount() - 1; index >= 0; --index) {
    if (QAccessibleInterface* const element = child(index); element->rect().contains(x, y)) {
      return element;
    }
  }
  return nullptr;
}

QAccessibleInterface* WindowAccessible::focusChild() const {
  for (const std::shared_ptr<UIView>& view : allElements(tree_)) {
    if (view->isFirstResponder()) {
      return tree_.interfaceFor(view);
    }
  }
  return nullptr;
}

}  // namespace zephyl::linux_host
