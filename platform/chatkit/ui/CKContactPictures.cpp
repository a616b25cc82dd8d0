#include "platform/chatkit/ui/CKContactPictures.h"

#include <utility>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"

namespace zephyl {
namespace {

// Decoded, so that drawing it need not. Any thread.
UIImageRef readPicture(const ABPerson& person) {
  const ABImageData bytes = person.thumbnailImage();
  const UIImageRef image =
      bytes == nullptr ? nullptr : UIImage::imageWithData(Data(bytes->begin(), bytes->end()));
  return image == nullptr || image->bitmap() == nullptr ? nullptr : image;
}

}  // namespace

UIImageRef CKContactPictures::pictureOf(const ABPersonRef& person, Completion completion) {
  if (person == nullptr || !person->thumbnailImage) {
    return nullptr;
  }
  const auto known = entries_.find(person->recordID);
  if (known != entries_.end() && known->second.person.lock() == person) {
    if (!known->second.isLoaded) {
      known->second.waiting.push_back(std::move(completion));
    }
    return known->second.picture;
  }
  if (entries_.size() >= kMost) {
    entries_.clear();
  }
  Entry entry;
  entry.person = person;
  entry.waiting.push_back(std::move(completion));
  entries_[person->recordID] = std::move(entry);
  load(person);
  return nullptr;
}

void CKContactPictures::load(const ABPersonRef& person) {
  host().dispatch().globalAsync(QueuePriority::kDefault, [weak = weak_from_this(), person] {
    if (weak.expired()) {
      return;
    }
    host().dispatch().mainAsync([weak, person, picture = readPicture(*person)] {
      if (const auto self = weak.lock()) {
        self->finish(person, picture);
      }
    });
  });
}

void CKContactPictures::finish(const ABPersonRef& person, const UIImageRef& picture) {
  const auto known = entries_.find(person->recordID);
  if (known == entries_.end() || known->second.person.lock() != person) {
    return;
  }
  known->second.picture = picture;
  known->second.isLoaded = true;
  const auto waiting = std::exchange(known->second.waiting, {});
  if (picture == nullptr) {
    return;
  }
  for (const Completion& completion : waiting) {
    completion(picture);
  }
}

}  // namespace zephyl
