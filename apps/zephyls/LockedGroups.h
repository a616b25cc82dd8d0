// The stored groups, for this program alone while it changes them: as they are now, whatever other
// programs did since they were looked at.
//
// Everything that can be refused is checked, and everything asked, before one is made.

#pragma once

#include <cstdint>

#include "apps/common/DeviceLock.h"
#include "store/ZephylArray.h"

namespace zephyl {
class NSError;
}

namespace zephyl::app {

class Session;

class LockedGroups {
 public:
  // Waits for its turn and loads the groups anew. Throws CommandError, as every call here.
  explicit LockedGroups(Session& session);

  // The group of that identifier as it is now. It is an error when it is gone, and when it is
  // protected now but was not when `known` was asked for.
  [[nodiscard]] ZephylRef current(const ZephylRef& known) const;

  // A copy of that, to be changed and given to `update`.
  [[nodiscard]] ZephylRef copyOf(const ZephylRef& known) const { return current(known)->copy(); }

  // Gives the group another identifier while its own is stored already: the counter may stand
  // behind the groups when these came from elsewhere.
  void giveFreeIdentifier(const ZephylRef& group) const;

  // One operation of the store each, which saves all groups: once for several that are added or
  // removed, once for each that is updated.
  void add(const ZephylVector& groups);
  void update(const ZephylVector& groups);
  void remove(const ZephylVector& groups);

 private:
  [[nodiscard]] ZephylRef find(std::int64_t identifier) const;

  const DeviceLock lock_;
};

}  // namespace zephyl::app
