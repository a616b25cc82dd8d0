// What a change made of one group: its dictionary before and after. A value; pure, any thread.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/Dictionary.h"

#include "model/MemberSet.h"

namespace zephyl::app {

// The bytes of a picture's file; null for none.
using PictureRef = std::shared_ptr<const std::string>;

// What became of the file of a group's picture; all null for nothing.
struct PictureChange {
  PictureRef before;
  PictureRef after;
};

struct GroupDifference {
  // Nothing: the group is new, or gone; never both.
  std::optional<Dictionary> before;
  std::optional<Dictionary> after;
  // Where the file was overwritten under the name that it had. No part of `takenBackFrom`.
  PictureChange picture = {};

  // As it is called now, or was when it went.
  [[nodiscard]] std::string title() const;
  [[nodiscard]] std::int64_t identifier() const;
  // Who is a member no longer, or is one now, in the order of the members. Empty for a group that
  // is new or gone.
  [[nodiscard]] std::vector<Member> left() const;
  [[nodiscard]] std::vector<Member> joined() const;

  // The dictionary of a group that is there before and after, made of what it is now: what differed
  // is as before, members one by one; whatever else became of it since stays.
  [[nodiscard]] Dictionary takenBackFrom(const Dictionary& now) const;
};

// What one action of the user did, which may be about several groups. Empty for nothing.
using GroupStep = std::vector<GroupDifference>;

// From one list of groups to another, in the order of the lists: groups that differ, then those
// that are new, then those that are gone. Which group is selected, and when one was made or
// changed, is no difference; neither is a system group that is new or gone. Of groups with one
// identifier only the first counts.
[[nodiscard]] GroupStep differencesBetween(const std::vector<Dictionary>& before,
                                           const std::vector<Dictionary>& after);

}  // namespace zephyl::app
