// Remembers what the groups were before each change, so that the user can be told what a change
// took away, and can take it back.
//
// The screens save what the user did, and a little more: members whom a picker does not show leave
// with those who were unticked, and a group that is swiped is gone at once. Whoever shows the
// screens makes one of these once the groups are loaded, tells the user of each step
// (GroupStepText.h has the words), and offers `undo`.
//
// Made, used and released on the main thread; the screens may edit groups on any.

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/foundation/NSError.h"

#include "apps/common/GroupDifference.h"

namespace zephyl::app {

class GroupUndo {
 public:
  // How many steps can be taken back.
  static constexpr std::size_t kMostSteps = 100;

  // After each save that changed a group, on the main queue; not for what `undo` and `redo` do. Not
  // called any more once this is gone. May be empty.
  using Told = std::function<void(const GroupStep& step)>;

  explicit GroupUndo(Told told);
  ~GroupUndo();
  GroupUndo(const GroupUndo&) = delete;
  GroupUndo& operator=(const GroupUndo&) = delete;

  // What the store has now is where the next change starts from. To be called when the groups were
  // loaded anew: what others did to them is no step of the user's.
  void startFromStore();

  // The last step, which `undo` takes back; null when there is none. Valid until the next change.
  [[nodiscard]] std::optional<GroupStep> undoable() const;
  [[nodiscard]] std::optional<GroupStep> redoable() const;

  struct Outcome {
    // What became of the groups; empty when there was nothing to do.
    GroupStep step;
    // Why the groups could not be saved. The step can be tried again.
    std::optional<NSError> error;
  };

  // Takes the last step back through the store's own operations, each of which saves and posts:
  // members and properties are put back one by one, and what else became of a group stays; a
  // deleted group comes back, not selected when another is; a new one is deleted; a picture that
  // was replaced is put back while its file is what it was replaced by. Groups that others deleted
  // meanwhile stay so. To be called while nobody else edits groups: under the device's lock where
  // other programs change them too.
  Outcome undo();
  // Does again what was taken back last, while nothing else was changed since.
  Outcome redo();

 private:
  class State;

  Outcome takeBack(bool redoing);

  // Shared with the notifications that run on other threads.
  std::shared_ptr<State> state_;
};

}  // namespace zephyl::app
