// What a command did to one group, or would do, told to the user: before and after.

#pragma once

#include <optional>

#include "platform/foundation/Dictionary.h"

#include "model/Zephyl.h"

namespace zephyl::app {

class Output;
class Session;

struct GroupChange {
  std::optional<Dictionary> before;  // nothing: the group is new
  std::optional<Dictionary> after;   // nothing: the group is deleted
  // As it is stored now; null for a deleted group, and while nothing was changed yet.
  ZephylRef group;
  // A new picture, which may bear the old one's name.
  bool hasNewPicture = false;

  // Whether anything but the time of the change differs.
  [[nodiscard]] bool isAny() const;
};

// Text: a line with the title, the identifier and what happened, and one line for each property
// that differs. JSON: the keys of `groups list` (without the counts where nothing is stored), then
// "change" ("created", "changed", "unchanged" or "deleted") and, for a changed group, "before" with
// the old values of what differs.
void printChange(Session& session, Output& output, const GroupChange& change);

}  // namespace zephyl::app
