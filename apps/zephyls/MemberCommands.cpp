// The commands that put members into groups and take them out.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "apps/common/CommandError.h"
#include "apps/zephyls/Commands.h"
#include "apps/zephyls/Consent.h"
#include "apps/zephyls/Describe.h"
#include "apps/zephyls/GroupChange.h"
#include "apps/zephyls/LockedGroups.h"
#include "apps/zephyls/MemberFinder.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"

namespace zephyl::app {

namespace {

ZephylRef groupWithMembers(Session& session) {
  ZephylRef group = session.groupNamed(session.options().group.value_or(""));
  if (group->isSystem()) {
    throw CommandError("\"" + group->title() +
                       "\" is a system group, which has no members of its own");
  }
  return group;
}

// Gives the group's members to `edit`, which may throw, and stores what it made of them.
template <class Edit>
int editMembers(Session& session, Output& output, const ZephylRef& known, const Edit& edit) {
  askForFingerprint(session, output, {known});
  GroupChange change;
  {
    LockedGroups locked(session, output);
    const ZephylRef group = locked.copyOf(known);
    change.before = group->dictionaryRepresentation();
    MemberSet members = membersOrNone(group->contacts().get());
    edit(members);
    group->setContacts(std::make_shared<const MemberSet>(std::move(members)));
    change.after = group->dictionaryRepresentation();
    change.group = group;
    if (change.isAny()) {
      locked.update({group});
    }
  }
  session.settle();
  printChange(session, output, change);
  return session.exitStatus();
}

}  // namespace

int addMembers(Session& session, Output& output) {
  session.startGroups();
  const ZephylRef known = groupWithMembers(session);
  const std::vector<FoundMember> found = MemberFinder(session).findAll(session.options().people);
  for (const FoundMember& one : found) {
    tellRemark(output, one);
  }
  return editMembers(session, output, known, [&](MemberSet& members) {
    for (const FoundMember& one : found) {
      if (!members.add(one.member)) {
        output.complain(textOf(describe(one.member)) + " is a member already");
      }
    }
  });
}

int removeMembers(Session& session, Output& output) {
  session.startGroups();
  const ZephylRef known = groupWithMembers(session);
  const MemberFinder finder(session);
  const auto takeOut = [&](MemberSet& members) {
    const MemberSet before = members;
    for (const std::string& who : session.options().people) {
      const std::vector<Member> meant = finder.meantMembers(before, who);
      if (meant.empty()) {
        throw CommandError("\"" + who + "\" is no member of the group \"" + known->title() +
                           "\"; `zephyls groups show` lists its members");
      }
      for (const Member& member : meant) {
        members.remove(member);
      }
    }
  };
  // Once before anything is asked.
  MemberSet trial = membersOrNone(known->contacts().get());
  takeOut(trial);
  return editMembers(session, output, known, takeOut);
}

}  // namespace zephyl::app
