#include "apps/zephyls/render/PictureDestination.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iostream>
#include <system_error>

#include "apps/common/CommandError.h"
#include "apps/zephyls/Options.h"
#include "hosts/linux/FileContents.h"

namespace zephyl::app::render {

namespace fs = std::filesystem;

namespace {

constexpr char kStandardStream[] = "-";

// The endings of pictures and pages of other kinds than those that are made.
constexpr auto kOtherPictures = std::to_array<std::string_view>(
    {".jpg", ".jpeg", ".jpe", ".gif", ".webp", ".bmp", ".tif", ".tiff", ".heic", ".heif", ".avif",
     ".jxl", ".svg", ".pdf", ".ps", ".eps", ".ico", ".ppm", ".xpm"});

std::string lowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return text;
}

}  // namespace

PictureDestination::PictureDestination(const RenderWishes& wishes, bool several)
    : path_(wishes.file),
      suffix_(wishes.tree ? ".txt" : ".png"),
      isStream_(path_.string() == kStandardStream) {
  if (isStream_) {
    if (several) {
      throw CommandError("several pictures need a folder; the standard output takes one",
                         kWrongUsage);
    }
    return;
  }
  std::error_code error;
  isFolder_ = several || !path_.has_filename() || fs::is_directory(path_, error);
  if (isFolder_) {
    makeFolder(path_);
  } else if (!wishes.tree) {
    refuseOtherPictures();
  }
}

void PictureDestination::refuseOtherPictures() const {
  const std::string ending = lowerCase(path_.extension().string());
  if (std::find(kOtherPictures.begin(), kOtherPictures.end(), ending) != kOtherPictures.end()) {
    throw CommandError(
        path_.string() + ": pictures are written as PNG only; name a file that ends in .png",
        kWrongUsage);
  }
}

void PictureDestination::write(std::string_view name, const std::string& content) const {
  if (isStream_) {
    // That it could not be written is told by whoever ends the program.
    std::cout << content;
    return;
  }
  fs::path file = path_;
  if (isFolder_) {
    file /= std::string(name).append(suffix_);
  } else if (file.has_parent_path()) {
    makeFolder(file.parent_path());
  }
  if (const auto failure = linux_host::replaceFile(file.string(), content)) {
    throw CommandError(file.string() + ": " + *failure);
  }
}

void PictureDestination::makeFolder(const fs::path& folder) {
  std::error_code error;
  if (fs::is_directory(folder, error)) {
    return;
  }
  const auto failure = linux_host::makeFolders(folder.string());
  if (failure || !fs::is_directory(folder, error)) {
    throw CommandError("cannot make the folder " + folder.string() + ": " +
                       failure.value_or("there is a file of that name"));
  }
}

}  // namespace zephyl::app::render
