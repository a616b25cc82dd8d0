// Adding, updating and deleting groups.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "platform/Host.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/ProcessInfo.h"

#include "model/ZPLocalizedText.h"
#include "store/ZephylsDataController.h"

namespace zephyl {

namespace {

constexpr char kUnableToAdd[] = "Unable to add group.";
constexpr char kUnableToUpdate[] = "Unable to update group.";
constexpr char kUnableToDelete[] = "Unable to delete group.";
constexpr char kUnableToSave[] = "Unable to save groups to disk.";
constexpr char kUnableToRemoveAndSave[] = "Unable to remove and save groups to disk.";
constexpr char kIsSaved[] = "Is Group saved to disk?";

// `reason` and `suggestion` may be null.
NSError editError(const char* description, const char* reason, const char* suggestion) {
  Dictionary userInfo{{kNSLocalizedDescriptionKey, zpLocalizedText(description)}};
  if (reason != nullptr) {
    userInfo.set(kNSLocalizedFailureReasonErrorKey, zpLocalizedText(reason));
  }
  if (suggestion != nullptr) {
    userInfo.set(kNSLocalizedRecoverySuggestionErrorKey, zpLocalizedText(suggestion));
  }
  return NSError(host().processInfo().bundleIdentifier(), 1, std::move(userInfo));
}

// The texts are looked up only for somebody who listens.
void report(const ZephylsDataController::Failure& failure, const char* description,
            const char* reason = nullptr, const char* suggestion = nullptr) {
  if (failure) {
    failure(editError(description, reason, suggestion));
  }
}

void stamp(const ZephylRef& group) {
  if (group != nullptr) {
    group->setUpdatedDate(Date::since1970(host().clock().now()));
  }
}

// Where the first group with the same identifier stands; a null group equals none.
std::optional<std::size_t> indexOf(const ZephylVector& groups, const ZephylRef& group) {
  const auto found = std::find_if(groups.begin(), groups.end(), [&](const ZephylRef& one) {
    return group != nullptr && one != nullptr && one->isEqual(*group);
  });
  return found == groups.end() ? std::nullopt
                               : std::optional(static_cast<std::size_t>(found - groups.begin()));
}

}  // namespace

void ZephylsDataController::restartConversationLoads() {
  const auto groups = zephyls_.load()->snapshot();
  for (const ZephylRef& group : *groups) {
    // Kept: system groups too, which loading the list passes over.
    if (group->isEnabled()) {
      group->loadAffiliatedConversations(/*inBackground=*/!group->isActive());
    }
  }
}

void ZephylsDataController::finishEdit(const ZephylRef& payload, const char* notificationName,
                                       const char* failureText, const Success& success,
                                       const Failure& failure) {
  restartConversationLoads();
  if (!saveAllGroupsToDisk(payload, /*postNotification=*/true, notificationName)) {
    report(failure, failureText);
  } else if (success) {
    success();
  }
}

void ZephylsDataController::addZephyl(const ZephylRef& zephyl, const Success& success,
                                      const Failure& failure) {
  if (zephyl == nullptr) {
    report(failure, kUnableToAdd);
    return;
  }
  if (indexOf(*zephyls_.load()->snapshot(), zephyl)) {
    report(failure, kUnableToAdd, "Group identifier already exist.",
           "Change group identifier and try again.");
    return;
  }
  zephyls_.load()->append({zephyl});
  finishEdit(zephyl, kZephylAddedNotification, kUnableToSave, success, failure);
}

void ZephylsDataController::updateZephyl(const ZephylRef& zephyl, bool /*postNotification*/,
                                         const Success& success, const Failure& failure) {
  stamp(zephyl);
  const auto index = indexOf(*zephyls_.load()->snapshot(), zephyl);
  if (!index) {
    report(failure, kUnableToUpdate, "Trying to update a group that is not yet saved to disk.",
           kIsSaved);
    return;
  }
  zephyls_.load()->replaceAt(*index, zephyl);
  finishEdit(zephyl, kZephylChangedNotification, kUnableToSave, success, failure);
}

void ZephylsDataController::updateZephyl(const ZephylRef& zephyl, const Success& success,
                                         const Failure& failure) {
  updateZephyl(zephyl, /*postNotification=*/true, success, failure);
}

void ZephylsDataController::updateZephyls(const ZephylVector& zephyls, const Success& success,
                                          const Failure& failure) {
  for (const ZephylRef& zephyl : zephyls) {
    updateZephyl(zephyl, success, failure);
  }
}

void ZephylsDataController::deleteZephyl(const ZephylRef& zephyl, const Success& success,
                                         const Failure& failure) {
  stamp(zephyl);
  const auto index = indexOf(*zephyls_.load()->snapshot(), zephyl);
  if (!index) {
    report(failure, kUnableToDelete, "Trying to delete a group that is not yet available.",
           kIsSaved);
    return;
  }
  zephyls_.load()->removeAt(*index);
  finishEdit(zephyl, kZephylDeletedNotification, kUnableToRemoveAndSave, success, failure);
}

void ZephylsDataController::deleteZephyls(const ZephylVector& zephyls, const Success& success,
                                          const Failure& failure) {
  zephyls_.load()->removeWhere(
      [&](const ZephylRef& stored) { return indexOf(zephyls, stored).has_value(); });
  finishEdit(nullptr, kZephylDeletedNotification, kUnableToRemoveAndSave, success, failure);
}

bool ZephylsDataController::isZephylNameAlreadyExists(
    const std::optional<std::string>& name) const {
  const auto groups = zephyls_.load()->snapshot();
  return name && std::any_of(groups->begin(), groups->end(),
                             [&](const ZephylRef& group) { return group->title() == *name; });
}

}  // namespace zephyl
