#include "apps/common/RememberedPictures.h"

#include <memory>
#include <string>
#include <utility>

#include "platform/Host.h"
#include "platform/foundation/NSFileManager.h"

#include "model/ZephylKeys.h"

namespace zephyl::app {

namespace {

std::string nameOfPicture(std::int64_t identifier) {
  return std::to_string(identifier) + ".png";
}

std::string pathOfPicture(std::int64_t identifier) {
  return std::string(kGroupPicturesDirectory).append("/").append(nameOfPicture(identifier));
}

bool hasPicture(const Dictionary& group, std::int64_t identifier) {
  const Value name = group[keys::kHeaderImagePath];
  return name.ifString() != nullptr && *name.ifString() == nameOfPicture(identifier);
}

bool areAlike(const PictureRef& one, const PictureRef& other) {
  return one == other || (one != nullptr && other != nullptr && *one == *other);
}

}  // namespace

PictureRef RememberedPictures::read(std::int64_t identifier) const {
  auto contents = host().files().contentsAtPath(pathOfPicture(identifier));
  return contents && contents->size() <= mostBytes_
             ? std::make_shared<const std::string>(*std::move(contents))
             : nullptr;
}

void RememberedPictures::remember(std::int64_t identifier, const PictureRef& picture) {
  if (const auto known = pictures_.find(identifier); known != pictures_.end()) {
    bytes_ -= known->second->size();
    pictures_.erase(known);
  }
  if (picture != nullptr && picture->size() <= mostBytes_ - bytes_) {
    bytes_ += picture->size();
    pictures_.emplace(identifier, picture);
  }
}

void RememberedPictures::startFrom(const std::vector<Dictionary>& groups) {
  pictures_.clear();
  bytes_ = 0;
  for (const Dictionary& group : groups) {
    const std::int64_t identifier = group[keys::kIdentifier].integerValue();
    if (bytes_ < mostBytes_ && hasPicture(group, identifier)) {
      remember(identifier, read(identifier));
    }
  }
}

// A picture that the group gave up stays in its file, and is still the one to come back.
PictureChange RememberedPictures::lookAgain(const Dictionary& group) {
  const std::int64_t identifier = group[keys::kIdentifier].integerValue();
  if (!hasPicture(group, identifier)) {
    return {};
  }
  const auto known = pictures_.find(identifier);
  PictureChange change{known == pictures_.end() ? nullptr : known->second, read(identifier)};
  remember(identifier, change.after);
  return areAlike(change.before, change.after) ? PictureChange() : change;
}

bool RememberedPictures::takeBack(std::int64_t identifier, const PictureChange& change) {
  if (change.before == nullptr || !areAlike(read(identifier), change.after)) {
    return true;
  }
  // Not through the system shell, whatever the release: it takes whole pictures only.
  if (!host().files().writeToFileAtomically(pathOfPicture(identifier), *change.before)) {
    return false;
  }
  remember(identifier, change.before);
  return true;
}

}  // namespace zephyl::app
