#include "apps/zephyls/LockedGroups.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/NSError.h"

#include "apps/common/CommandError.h"
#include "apps/zephyls/Consent.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "model/ZPLocalizedText.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app {

namespace {

std::string textOf(const NSError& error) {
  std::string text = error.localizedDescription();
  for (const std::string& more :
       {error.localizedFailureReason(), error.localizedRecoverySuggestion()}) {
    if (!more.empty() && more != text) {
      text.append(" ").append(more);
    }
  }
  return text;
}

// Keeps the first failure of an operation.
class Outcome {
 public:
  ZephylsDataController::Failure failure() {
    return [this](const NSError& error) {
      if (!error_) {
        error_ = error;
      }
    };
  }
  void throwFailure() const {
    if (error_) {
      throw CommandError(textOf(*error_));
    }
  }

 private:
  std::optional<NSError> error_;
};

}  // namespace

LockedGroups::LockedGroups(Session& session, Output& output)
    : lock_(session.places().device), output_(output) {
  const auto store = ZephylsDataController::sharedInstance();
  store->reloadAllZephyls();
  // There always are groups once a session has started: without them the file could not be read,
  // and to save now would be to lose them.
  if (store->allZephyls()->empty()) {
    throw CommandError("cannot read the groups " +
                       session.places().onDevice(kGroupsFilePath).string() +
                       "; nothing was changed");
  }
  if (!ZPUtils::supportsTouchID()) {
    protected_ = protectedGroups();
  }
}

// From the dictionaries: a record without a reader has forgotten its protection already.
std::vector<LockedGroups::ProtectedGroup> LockedGroups::protectedGroups() {
  std::vector<ProtectedGroup> groups;
  const auto stored = ZephylsDataController::sharedInstance()->getAllGroups();
  for (const Value& element : stored.value_or(Array())) {
    const Dictionary* group = element.ifDictionary();
    if (group != nullptr && (*group)[keys::kPasswordProtected].boolValue() &&
        !(*group)[keys::kSystem].boolValue()) {
      const Value title = (*group)[keys::kTitle];
      groups.push_back({(*group)[keys::kIdentifier].integerValue(),
                        title.ifString() == nullptr ? std::string() : *title.ifString()});
    }
  }
  return groups;
}

void LockedGroups::tellLostProtection(const ZephylVector& removed) {
  for (const ProtectedGroup& group : std::exchange(protected_, {})) {
    const bool stays = std::none_of(removed.begin(), removed.end(), [&](const ZephylRef& one) {
      return one->identifier() == group.identifier;
    });
    if (stays) {
      output_.complain("the protection of \"" + group.title +
                       "\" is lost: this machine has no fingerprint reader");
    }
  }
}

ZephylRef LockedGroups::find(std::int64_t identifier) const {
  const auto groups = ZephylsDataController::sharedInstance()->allZephyls()->snapshot();
  const auto found = std::find_if(groups->begin(), groups->end(), [&](const ZephylRef& group) {
    return group->identifier() == identifier;
  });
  return found == groups->end() ? nullptr : *found;
}

ZephylRef LockedGroups::current(const ZephylRef& known) const {
  ZephylRef stored = find(known->identifier());
  if (stored == nullptr) {
    throw CommandError("another program has deleted the group \"" + known->title() +
                       "\"; nothing was changed");
  }
  if (isLocked(stored) && !isLocked(known)) {
    throw CommandError("another program has protected the group \"" + known->title() +
                       "\"; nothing was changed; try again");
  }
  return stored;
}

void LockedGroups::giveFreeIdentifier(const ZephylRef& group) const {
  while (find(group->identifier()) != nullptr) {
    group->setUniqueIdentifier();
  }
}

void LockedGroups::add(const ZephylVector& groups) {
  if (groups.empty()) {
    return;
  }
  tellLostProtection({});
  const auto store = ZephylsDataController::sharedInstance();
  if (groups.size() == 1) {
    Outcome outcome;
    store->addZephyl(groups.front(), nullptr, outcome.failure());
    outcome.throwFailure();
  } else if (!store->saveAllNewGroupsToDisk(groups, /*postNotification=*/true,
                                            kZephylAddedNotification)) {
    throw CommandError(zpLocalizedText("Unable to save groups to disk."));
  }
}

void LockedGroups::update(const ZephylVector& groups) {
  if (!groups.empty()) {
    tellLostProtection({});
  }
  Outcome outcome;
  ZephylsDataController::sharedInstance()->updateZephyls(groups, nullptr, outcome.failure());
  outcome.throwFailure();
}

void LockedGroups::remove(const ZephylVector& groups) {
  tellLostProtection(groups);
  Outcome outcome;
  const auto store = ZephylsDataController::sharedInstance();
  if (groups.size() == 1) {
    store->deleteZephyl(groups.front(), nullptr, outcome.failure());
  } else {
    store->deleteZephyls(groups, nullptr, outcome.failure());
  }
  outcome.throwFailure();
}

}  // namespace zephyl::app
