// What a host does for the list of groups. All of it is optional: what is left empty is never
// called, and where a call's absence makes a difference the list says so. Main thread.

#pragma once

#include <functional>

#include "model/Zephyl.h"

namespace zephyl {

struct ZephylsViewControllerDelegate {
  // Browsing, a group that is not the active one was tapped and, where it is protected, the owner
  // was recognized. Without this nobody is asked to be recognized either.
  std::function<void(const ZephylRef& group)> zp__didSelectGroup;
  // Browsing, the active group was tapped.
  std::function<void()> zp__closeSidePanelController;
  // The add button was tapped. Without this the list opens the editor itself.
  std::function<void()> zp__addNewGroup;
  // Browsing, the button to manage the groups was tapped.
  std::function<void()> zp__manageAllGroups;
};

}  // namespace zephyl
