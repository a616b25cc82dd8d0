// Where the program's and the user's files lie on this machine.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "apps/common/SourceOptions.h"

namespace zephyl::app {

// The phone's path of its favourites.
inline constexpr char kFavoritesFilePath[] =
    "/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist";

struct Places {
  std::filesystem::path messages;
  std::vector<std::string> contacts;
  std::filesystem::path device;
  std::filesystem::path overlay;
  // What programs keep for themselves, such as safety copies.
  std::filesystem::path state;
  bool isSample = false;

  // The record ids that were given to people whose source has none.
  [[nodiscard]] std::filesystem::path recordIDs() const { return device / "record-ids"; }

  // The people that the user added here, for no source of the user's is ever written.
  [[nodiscard]] std::filesystem::path addedPeople() const { return device / "added-people.vcf"; }

  // A phone's path below the device root.
  [[nodiscard]] std::filesystem::path onDevice(const std::string& phonePath) const {
    return device / phonePath.substr(1);
  }
};

// The program's folder of a kind: $VARIABLE/zephyls, else the folder below $HOME; empty when
// neither is set. A relative path does not count.
[[nodiscard]] std::filesystem::path userFolder(const char* variable, const char* belowHome);

// The program's own texts and pictures, laid out as on the phone. Throws CommandError.
[[nodiscard]] std::filesystem::path overlayFolder();

// What the options name. Without --messages: the databases of a phone that lie in the device root;
// without those either, the sample, whose device root is put into the user's data directory the
// first time. Where that is not wanted, there are no messages then. Throws CommandError.
enum class SampleUse { kAllowed, kNever };
[[nodiscard]] Places placesFor(const SourceOptions& options,
                               SampleUse sampleUse = SampleUse::kAllowed);

}  // namespace zephyl::app
