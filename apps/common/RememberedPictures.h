// The pictures that groups had, so that one whose file is overwritten can come back.
//
// Only files that are named after their group, as the screens and commands name them; what else a
// group gives for its picture's file is never read or written. Any thread, one at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

#include "platform/foundation/Dictionary.h"

#include "apps/common/GroupDifference.h"

namespace zephyl::app {

class RememberedPictures {
 public:
  // All of them together. What there is no room for is not remembered, and does not come back.
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20U;

  explicit RememberedPictures(std::size_t mostBytes = kMostBytes) : mostBytes_(mostBytes) {}

  // Forgets all, and reads those that these groups have now.
  void startFrom(const std::vector<Dictionary>& groups);

  // Reads the group's file again. What was remembered of it and what it is now, when these differ;
  // null on either side where there is, or is known, none.
  [[nodiscard]] PictureChange lookAgain(const Dictionary& group);

  // Puts `change.before` in the place of `change.after`. A file that is neither any more stays.
  // False when it could not be written.
  bool takeBack(std::int64_t identifier, const PictureChange& change);

 private:
  [[nodiscard]] PictureRef read(std::int64_t identifier) const;
  void remember(std::int64_t identifier, const PictureRef& picture);

  std::size_t mostBytes_;
  std::size_t bytes_ = 0;
  std::map<std::int64_t, PictureRef> pictures_;
};

}  // namespace zephyl::app
