// The pictures of people, read and decoded in the background and kept for lists that are scrolled.
// Main thread.

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/Export.h"
#include "platform/addressbook/ABPerson.h"
#include "platform/uikit/UIImage.h"

namespace zephyl {

class ZP_EXPORT CKContactPictures : public std::enable_shared_from_this<CKContactPictures> {
 public:
  using Completion = std::function<void(const UIImageRef& picture)>;

  // The picture when it is there already. Else null, and `completion` runs later when there turns
  // out to be one. People are told apart by their records, so that a changed one is read anew.
  [[nodiscard]] UIImageRef pictureOf(const ABPersonRef& person, Completion completion);

  // More than these are not kept.
  static constexpr std::size_t kMost = 500;

 private:
  struct Entry {
    std::weak_ptr<const ABPerson> person;
    UIImageRef picture;
    bool isLoaded = false;
    std::vector<Completion> waiting;
  };

  void load(const ABPersonRef& person);
  void finish(const ABPersonRef& person, const UIImageRef& picture);

  std::map<std::int32_t, Entry> entries_;
};

}  // namespace zephyl
