// The pictures of groups: checked before anything changes, and stored as the release does it.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/Value.h"

#include "apps/common/Places.h"
#include "model/Zephyl.h"

namespace zephyl::app {

// The PNG that is stored for a picture. Throws CommandError, which names `place`, for what is none.
[[nodiscard]] std::string checkedPicture(const Data& bytes, const std::string& place);

// The same of a file.
[[nodiscard]] std::string checkedPictureFile(const std::string& file);

// The pictures that are stored before the groups with them are saved. Puts the files back as they
// were unless the save is told to have succeeded. Where that is impossible too, the new picture
// stays: nothing is said, since the failure of the save is on its way to the user.
class NewPictures {
 public:
  explicit NewPictures(const Places& places) : places_(places) {}
  ~NewPictures();
  NewPictures(const NewPictures&) = delete;
  NewPictures& operator=(const NewPictures&) = delete;

  // Writes the PNG under the group's name and sets the name in the record, which is not saved.
  // Throws CommandError when it could not be written; the record is then as it was.
  void store(const ZephylRef& group, const std::string& png);

  // The groups are saved.
  void keep() { before_.clear(); }

 private:
  struct Before {
    std::string path;
    std::optional<std::string> contents;  // nothing: there was no such file
  };
  void remember(const std::string& path);

  const Places& places_;
  std::vector<Before> before_;
};

}  // namespace zephyl::app
