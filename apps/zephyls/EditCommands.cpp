// The commands that make, change and delete groups.

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Host.h"
#include "platform/foundation/Clock.h"

#include "apps/common/CommandError.h"
#include "apps/zephyls/Commands.h"
#include "apps/zephyls/Consent.h"
#include "apps/zephyls/GroupChange.h"
#include "apps/zephyls/GroupPicture.h"
#include "apps/zephyls/GroupTexts.h"
#include "apps/zephyls/LockedGroups.h"
#include "apps/zephyls/MemberFinder.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "model/ZephylKeys.h"
#include "services/GroupProtection.h"
#include "services/ZPUtils.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app {

namespace {

// The wishes with everything in them checked.
struct CheckedWishes {
  GroupWishes texts;
  std::optional<std::string> markerCode;
  std::optional<std::string> png;
  bool removesPicture = false;
};

CheckedWishes checked(const GroupWishes& wishes) {
  checkTitle(wishes.title);
  checkText(wishes.subTitle, "the subtitle");
  checkMaskedText(wishes.maskedText);
  CheckedWishes result{wishes, {}, {}, wishes.picture == "none"};
  if (wishes.colour) {
    result.markerCode = markerCodeFrom(*wishes.colour);
  }
  if (wishes.isProtected.value_or(false) && !ZPUtils::supportsTouchID()) {
    throw CommandError(
        "this device has no fingerprint reader: a group that is protected would "
        "lose its protection at once");
  }
  if (wishes.picture && !result.removesPicture) {
    result.png = checkedPictureFile(*wishes.picture);
  }
  return result;
}

void apply(const CheckedWishes& wishes, Zephyl& group) {
  const GroupWishes& texts = wishes.texts;
  if (texts.title) {
    group.setTitle(*texts.title);
  }
  if (texts.subTitle) {
    group.setSubTitle(*texts.subTitle);
  }
  if (texts.maskedText) {
    group.setMaskedMessage(*texts.maskedText);
  }
  if (wishes.markerCode) {
    group.setMarkerCode(*wishes.markerCode);
  }
  if (texts.isProtected) {
    group.setPasswordProtected(*texts.isProtected);
  }
  if (texts.hides) {
    group.setShouldHideConversationsInDefaultGroups(*texts.hides);
  }
  if (texts.masks) {
    group.setShouldHideConversationsOnLockScreen(*texts.masks);
  }
  if (texts.enabled) {
    group.setEnabled(*texts.enabled);
  }
  if (wishes.removesPicture) {
    group.setHeaderImagePath("");
  }
}

bool isNothing(const GroupWishes& wishes) {
  return !wishes.title && !wishes.subTitle && !wishes.colour && !wishes.picture &&
         !wishes.maskedText && !wishes.isProtected && !wishes.hides && !wishes.masks &&
         !wishes.enabled;
}

ZephylRef userGroupNamed(Session& session, const std::string& name, const char* what) {
  ZephylRef group = session.groupNamed(name);
  if (group->isSystem()) {
    throw CommandError("\"" + group->title() + "\" is a system group, which cannot be " + what);
  }
  return group;
}

// In the order of naming, each once.
template <class Find>
ZephylVector groupsNamed(const std::vector<std::string>& names, const Find& find) {
  ZephylVector groups;
  for (const std::string& name : names) {
    const ZephylRef group = find(name);
    if (std::find(groups.begin(), groups.end(), group) == groups.end()) {
      groups.push_back(group);
    }
  }
  return groups;
}

// Titles need not differ, but equal ones are no names any more.
void warnOfEqualTitles(Output& output, const std::string& title) {
  std::string identifiers;
  int count = 0;
  const auto groups = ZephylsDataController::sharedInstance()->allZephyls()->snapshot();
  for (const ZephylRef& group : *groups) {
    if (group->title() == title) {
      identifiers += " " + std::to_string(group->identifier());
      ++count;
    }
  }
  if (count > 1) {
    output.complain("several groups are titled \"" + title +
                    "\" now; name each by its identifier:" + identifiers);
  }
}

// Sets the changed groups' flag and saves those that did not have it so.
int setEnabled(Session& session, Output& output, bool enabled) {
  session.startGroups();
  const ZephylVector groups = groupsNamed(
      session.options().groups, [&](const std::string& name) { return session.groupNamed(name); });
  askForFingerprint(session, output, groups);
  std::vector<GroupChange> changes;
  {
    LockedGroups locked(session, output);
    ZephylVector changed;
    for (const ZephylRef& known : groups) {
      const ZephylRef group = locked.copyOf(known);
      GroupChange change{group->dictionaryRepresentation(), {}, group};
      if (group->isEnabled() != enabled) {
        group->setEnabled(enabled);
        changed.push_back(group);
      }
      change.after = group->dictionaryRepresentation();
      changes.push_back(std::move(change));
    }
    locked.update(changed);
  }
  session.settle();
  for (const GroupChange& change : changes) {
    printChange(session, output, change);
  }
  return session.exitStatus();
}

}  // namespace

int createGroup(Session& session, Output& output) {
  session.startGroups();
  const CheckedWishes wishes = checked(session.options().wishes);
  const MemberFinder finder(session);
  MemberSet members;
  for (const FoundMember& found : finder.findAll(session.options().people)) {
    tellRemark(output, found);
    members.add(found.member);
  }
  GroupChange change;
  {
    LockedGroups locked(session, output);
    const auto group = std::make_shared<Zephyl>(Dictionary{{keys::kEnabled, true}});
    locked.giveFreeIdentifier(group);
    group->setCreatedDate(Date::since1970(host().clock().now()));
    apply(wishes, *group);
    group->setContacts(std::make_shared<const MemberSet>(members));
    NewPictures pictures(session.places());
    if (wishes.png) {
      pictures.store(group, *wishes.png);
      change.hasNewPicture = true;
    }
    locked.add({group});
    pictures.keep();
    change.group = group;
    change.after = group->dictionaryRepresentation();
  }
  session.settle();
  printChange(session, output, change);
  warnOfEqualTitles(output, change.group->title());
  return session.exitStatus();
}

int editGroup(Session& session, Output& output) {
  if (isNothing(session.options().wishes)) {
    throw CommandError("say what to change; `zephyls groups edit --help` lists it", kWrongUsage);
  }
  session.startGroups();
  const ZephylRef known = userGroupNamed(session, session.options().group.value_or(""),
                                         "edited, only enabled, disabled and activated");
  const CheckedWishes wishes = checked(session.options().wishes);
  askForFingerprint(session, output, {known});
  GroupChange change;
  {
    LockedGroups locked(session, output);
    const ZephylRef group = locked.copyOf(known);
    change.before = group->dictionaryRepresentation();
    apply(wishes, *group);
    NewPictures pictures(session.places());
    if (wishes.png) {
      pictures.store(group, *wishes.png);
      change.hasNewPicture = true;
    }
    change.after = group->dictionaryRepresentation();
    change.group = group;
    if (change.isAny()) {
      locked.update({group});
    }
    pictures.keep();
  }
  session.settle();
  printChange(session, output, change);
  if (wishes.texts.title) {
    warnOfEqualTitles(output, *wishes.texts.title);
  }
  return session.exitStatus();
}

int deleteGroups(Session& session, Output& output) {
  session.startGroups();
  const ZephylVector groups = groupsNamed(session.options().groups, [&](const std::string& name) {
    return userGroupNamed(session, name, "deleted");
  });
  std::vector<std::string> titles;
  titles.reserve(groups.size());
  for (const ZephylRef& group : groups) {
    titles.push_back("\"" + group->title() + "\"");
  }
  askWhetherToGoOn(session, output,
                   (groups.size() == 1 ? "Delete the group " : "Delete the groups ") +
                       joinedTitles(titles) + "?");
  askForFingerprint(session, output, groups);
  std::vector<GroupChange> changes;
  {
    LockedGroups locked(session, output);
    ZephylVector current;
    for (const ZephylRef& known : groups) {
      current.push_back(locked.current(known));
      changes.push_back({current.back()->dictionaryRepresentation(), {}, nullptr});
    }
    locked.remove(current);
  }
  session.settle();
  for (const GroupChange& change : changes) {
    printChange(session, output, change);
  }
  return session.exitStatus();
}

int enableGroups(Session& session, Output& output) {
  return setEnabled(session, output, true);
}

int disableGroups(Session& session, Output& output) {
  return setEnabled(session, output, false);
}

int activateGroup(Session& session, Output& output) {
  session.startGroups();
  const ZephylRef known = session.groupNamed(session.options().group.value_or(""));
  askForFingerprint(session, output, {known});
  std::vector<GroupChange> changes;
  {
    LockedGroups locked(session, output);
    if (!locked.current(known)->isEnabled()) {
      throw CommandError("the group \"" + known->title() +
                         "\" is disabled; enable it before it is activated");
    }
    ZephylVector changed;
    const auto stored = ZephylsDataController::sharedInstance()->allZephyls()->snapshot();
    const auto change = [&](const ZephylRef& group, bool active) {
      const ZephylRef copy = group->copy();
      GroupChange one{copy->dictionaryRepresentation(), {}, copy};
      if (copy->isActive() != active) {
        copy->setActive(active);
        changed.push_back(copy);
      }
      one.after = copy->dictionaryRepresentation();
      changes.push_back(std::move(one));
    };
    // The others first, so that at no time two are active.
    for (const ZephylRef& group : *stored) {
      if (group->isActive() && !group->isEqual(*known)) {
        change(group, false);
      }
    }
    change(locked.current(known), true);
    locked.update(changed);
  }
  session.settle();
  for (const GroupChange& change : changes) {
    printChange(session, output, change);
  }
  return session.exitStatus();
}

}  // namespace zephyl::app
