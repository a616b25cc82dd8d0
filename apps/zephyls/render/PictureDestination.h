// Where pictures go: the file that was named, or one of its name in the folder that was.

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zephyl::app {

struct RenderWishes;

namespace render {

class PictureDestination {
 public:
  // A path that is a folder, or ends as one, and one for several pictures, names a folder; "-" is
  // the standard output, for one picture. Throws CommandError, as wrong usage for a file whose
  // ending is that of a picture that is not made.
  PictureDestination(const RenderWishes& wishes, bool several);

  // Makes the folders that are missing. A file that is there is replaced, and its mode stays; a new
  // one is for the user alone. Throws CommandError.
  void write(std::string_view name, const std::string& content) const;

 private:
  void refuseOtherPictures() const;
  static void makeFolder(const std::filesystem::path& folder);

  std::filesystem::path path_;
  std::string suffix_;
  bool isStream_ = false;
  bool isFolder_ = false;
};

}  // namespace render
}  // namespace zephyl::app
