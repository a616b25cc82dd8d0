// The stored groups, for this program alone while it changes them: as they are now, whatever other
// programs did since they were looked at.
//
// Everything that can be refused is checked, and everything asked, before one is made.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "apps/common/DeviceLock.h"
#include "store/ZephylArray.h"

namespace zephyl {
class NSError;
}

namespace zephyl::app {

class Output;
class Session;

class LockedGroups {
 public:
  // Waits for its turn and loads the groups anew. Throws CommandError, as every call here. `output`
  // must outlive this.
  LockedGroups(Session& session, Output& output);

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
  struct ProtectedGroup {
    std::int64_t identifier;
    std::string title;
  };

  [[nodiscard]] static std::vector<ProtectedGroup> protectedGroups();
  [[nodiscard]] ZephylRef find(std::int64_t identifier) const;
  // Kept: without a reader a save clears the protection of all groups. Tells it once of those that
  // the save leaves.
  void tellLostProtection(const ZephylVector& removed);

  const DeviceLock lock_;
  Output& output_;
  // As stored; empty once their loss is told.
  std::vector<ProtectedGroup> protected_;
};

}  // namespace zephyl::app
