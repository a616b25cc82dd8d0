// Fonts that are the same wherever they are installed, for pictures that are compared. Main thread.

#pragma once

#include <string>

namespace zephyl::linux_host {

// Made before the QGuiApplication, and outlives it. The process then sees Inter, Noto Color Emoji
// and the fonts for Arabic, Hebrew, Chinese and Japanese of the packages fonts-inter,
// fonts-noto-color-emoji, fonts-noto-core and fonts-droid-fallback, and no other font; smoothing
// and hinting are the same too. What tells so is a file in the folder for temporary ones, which
// goes with this.
class PinnedFonts {
 public:
  PinnedFonts();
  ~PinnedFonts();
  PinnedFonts(const PinnedFonts&) = delete;
  PinnedFonts& operator=(const PinnedFonts&) = delete;

  // False where the file could not be written: fonts are then the machine's.
  [[nodiscard]] bool arePinned() const { return !path_.empty(); }

 private:
  std::string path_;
};

}  // namespace zephyl::linux_host
