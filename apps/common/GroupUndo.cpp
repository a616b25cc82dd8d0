#include "apps/common/GroupUndo.h"

#include <algorithm>
#include <any>
#include <mutex>
#include <utility>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/foundation/ProcessInfo.h"

#include "apps/common/RememberedPictures.h"
#include "model/ZPLocalizedText.h"
#include "model/ZephylKeys.h"
#include "store/ZephylNotifications.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app {

namespace {

std::vector<Dictionary> storedGroups() {
  const auto groups = ZephylsDataController::sharedInstance()->allZephyls()->snapshot();
  std::vector<Dictionary> dictionaries;
  dictionaries.reserve(groups->size());
  for (const ZephylRef& group : *groups) {
    dictionaries.push_back(group->dictionaryRepresentation());
  }
  return dictionaries;
}

ZephylRef storedGroup(std::int64_t identifier) {
  const auto groups = ZephylsDataController::sharedInstance()->allZephyls()->snapshot();
  const auto found = std::find_if(groups->begin(), groups->end(), [&](const ZephylRef& group) {
    return group->identifier() == identifier;
  });
  return found == groups->end() ? nullptr : *found;
}

// Each edit saves all groups, so the last one says whether they are saved.
struct Saving {
  explicit Saving(std::optional<NSError>& error)
      : success([&error] { error.reset(); }),
        failure([&error](const NSError& why) { error = why; }) {}

  const ZephylsDataController::Success success;
  const ZephylsDataController::Failure failure;
};

const Dictionary* dictionaryOf(std::int64_t identifier, const std::vector<Dictionary>& groups) {
  const auto found = std::find_if(groups.begin(), groups.end(), [&](const Dictionary& group) {
    return group[keys::kIdentifier].integerValue() == identifier;
  });
  return found == groups.end() ? nullptr : &*found;
}

// Of a group that is there before and after, or new.
void note(const PictureChange& picture, std::int64_t identifier,
          const std::vector<Dictionary>& before, const std::vector<Dictionary>& after,
          GroupStep& step) {
  if (picture.before == nullptr) {
    return;
  }
  const auto known = std::find_if(step.begin(), step.end(), [&](const GroupDifference& one) {
    return one.identifier() == identifier;
  });
  if (known != step.end()) {
    known->picture = picture;
    return;
  }
  const Dictionary* const old = dictionaryOf(identifier, before);
  const Dictionary* const now = dictionaryOf(identifier, after);
  if (old != nullptr && now != nullptr) {
    step.push_back({*old, *now, picture});
  }
}

// A group that was put back already, but not saved, is stored.
void putBack(const Dictionary& dictionary, const Saving& saving) {
  const auto store = ZephylsDataController::sharedInstance();
  const auto group = std::make_shared<Zephyl>(dictionary);
  if (const ZephylRef selected = store->currentActiveZephyl();
      selected != nullptr && !selected->isEqual(*group)) {
    group->setActive(false);
  }
  if (storedGroup(group->identifier()) == nullptr) {
    store->addZephyl(group, saving.success, saving.failure);
  } else {
    store->updateZephyl(group, saving.success, saving.failure);
  }
}

void takeBackDifference(const GroupDifference& difference, const Saving& saving) {
  const auto store = ZephylsDataController::sharedInstance();
  if (!difference.after) {
    putBack(*difference.before, saving);
    return;
  }
  if (!difference.before) {
    store->deleteZephyls({std::make_shared<Zephyl>(*difference.after)}, saving.success,
                         saving.failure);
    return;
  }
  if (const ZephylRef stored = storedGroup(difference.identifier())) {
    store->updateZephyl(
        std::make_shared<Zephyl>(difference.takenBackFrom(stored->dictionaryRepresentation())),
        saving.success, saving.failure);
  }
}

}  // namespace

class GroupUndo::State : public std::enable_shared_from_this<State> {
 public:
  explicit State(Told told) : told_(std::move(told)) {}

  void startFromStore() {
    auto groups = storedGroups();
    const std::lock_guard lock(mutex_);
    groups_ = std::move(groups);
    pictures_.startFrom(groups_);
  }

  // On the thread that saved. `changed` may be null.
  void groupsWereSaved(const ZephylRef& changed) {
    auto now = storedGroups();
    const std::lock_guard lock(mutex_);
    if (takingBack_) {
      return;
    }
    GroupStep step = differencesBetween(groups_, now);
    const Dictionary* const saved =
        changed == nullptr ? nullptr : dictionaryOf(changed->identifier(), now);
    if (saved != nullptr) {
      note(pictures_.lookAgain(*saved), changed->identifier(), groups_, now, step);
    }
    groups_ = std::move(now);
    if (step.empty()) {
      return;
    }
    push(undo_, step);
    redo_.clear();
    host().dispatch().mainAsync([weak = weak_from_this(), step = std::move(step)] {
      const auto self = weak.lock();
      if (self != nullptr && self->told_) {
        self->told_(step);
      }
    });
  }

  [[nodiscard]] std::optional<GroupStep> last(bool redoing) const {
    const std::lock_guard lock(mutex_);
    const auto& steps = redoing ? redo_ : undo_;
    return steps.empty() ? std::nullopt : std::optional(steps.back());
  }

  void beginTakingBack() {
    auto now = storedGroups();
    const std::lock_guard lock(mutex_);
    groups_ = std::move(now);
    takingBack_ = true;
  }

  // Whether it could be written.
  bool takeBackPicture(const GroupDifference& difference) {
    const std::lock_guard lock(mutex_);
    return pictures_.takeBack(difference.identifier(), difference.picture);
  }

  // Gives what became of the groups. A step that could not be saved stays the last one.
  GroupStep endTakingBack(bool redoing, bool wasSaved) {
    auto now = storedGroups();
    const std::lock_guard lock(mutex_);
    takingBack_ = false;
    GroupStep step = differencesBetween(groups_, now);
    if (!wasSaved) {
      return step;
    }
    for (const GroupDifference& taken : (redoing ? redo_ : undo_).back()) {
      note({taken.picture.after, taken.picture.before}, taken.identifier(), groups_, now, step);
    }
    groups_ = std::move(now);
    (redoing ? redo_ : undo_).pop_back();
    if (!step.empty()) {
      push(redoing ? undo_ : redo_, step);
    }
    return step;
  }

 private:
  static void push(std::vector<GroupStep>& steps, const GroupStep& step) {
    if (steps.size() == kMostSteps) {
      steps.erase(steps.begin());
    }
    steps.push_back(step);
    forgetOldPictures(steps);
  }

  // So that the steps together hold no more than is remembered of the groups.
  static void forgetOldPictures(std::vector<GroupStep>& steps) {
    std::size_t bytes = 0;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
      for (GroupDifference& difference : *step) {
        const PictureRef& old = difference.picture.before;
        bytes += old == nullptr ? 0 : old->size();
        if (bytes > RememberedPictures::kMostBytes) {
          difference.picture = {};
        }
      }
    }
  }

  const Told told_;
  mutable std::mutex mutex_;
  // As they were after the last change that is known.
  std::vector<Dictionary> groups_;
  RememberedPictures pictures_;
  std::vector<GroupStep> undo_;
  std::vector<GroupStep> redo_;
  bool takingBack_ = false;
};

GroupUndo::GroupUndo(Told told) : state_(std::make_shared<State>(std::move(told))) {
  startFromStore();
  for (const char* name :
       {kZephylAddedNotification, kZephylChangedNotification, kZephylDeletedNotification}) {
    NSNotificationCenter::defaultCenter()->addObserver(
        this, name, [weak = std::weak_ptr(state_)](const NSNotification& notification) {
          if (const auto state = weak.lock()) {
            const auto group = notification.userInfo.find(kZephylsKey);
            const auto* const changed = group == notification.userInfo.end()
                                            ? nullptr
                                            : std::any_cast<ZephylRef>(&group->second);
            state->groupsWereSaved(changed == nullptr ? nullptr : *changed);
          }
        });
  }
}

GroupUndo::~GroupUndo() {
  NSNotificationCenter::defaultCenter()->removeObserver(this);
}

void GroupUndo::startFromStore() {
  state_->startFromStore();
}

std::optional<GroupStep> GroupUndo::undoable() const {
  return state_->last(/*redoing=*/false);
}

std::optional<GroupStep> GroupUndo::redoable() const {
  return state_->last(/*redoing=*/true);
}

GroupUndo::Outcome GroupUndo::undo() {
  return takeBack(/*redoing=*/false);
}

GroupUndo::Outcome GroupUndo::redo() {
  return takeBack(/*redoing=*/true);
}

GroupUndo::Outcome GroupUndo::takeBack(bool redoing) {
  const auto step = state_->last(redoing);
  if (!step) {
    return {};
  }
  Outcome outcome;
  const Saving saving(outcome.error);
  state_->beginTakingBack();
  bool arePicturesBack = true;
  for (const GroupDifference& difference : *step) {
    arePicturesBack = state_->takeBackPicture(difference) && arePicturesBack;
    takeBackDifference(difference, saving);
  }
  if (!arePicturesBack && !outcome.error) {
    outcome.error =
        NSError(host().processInfo().bundleIdentifier(), 1,
                {{kNSLocalizedDescriptionKey, zpLocalizedText("Unable to update group.")}});
  }
  outcome.step = state_->endTakingBack(redoing, /*wasSaved=*/!outcome.error);
  return outcome;
}

}  // namespace zephyl::app
