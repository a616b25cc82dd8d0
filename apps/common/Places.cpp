#include "apps/common/Places.h"

#include <cstdlib>
#include <system_error>

#include <unistd.h>

#include "apps/common/CommandError.h"

namespace zephyl::app {

namespace fs = std::filesystem;

namespace {

constexpr char kPhoneMessages[] = "/var/mobile/Library/SMS/sms.db";
constexpr char kPhoneContacts[] = "/var/mobile/Library/AddressBook/AddressBook.sqlitedb";

// Beside the program's own folder, as it is built and as it is installed.
fs::path shareFolder() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  if (error) {
    throw CommandError("cannot find the program's own folder: " + error.message());
  }
  return program.parent_path().parent_path() / "share/zephyls";
}

fs::path dataFolder() {
  fs::path folder = userFolder("XDG_DATA_HOME", ".local/share");
  if (folder.empty()) {
    throw CommandError(
        "neither XDG_DATA_HOME nor HOME names a folder; say with --device where the groups are "
        "kept");
  }
  return folder;
}

// Without a home of the user's, beside the groups.
fs::path stateFolder(const fs::path& device) {
  const fs::path folder = userFolder("XDG_STATE_HOME", ".local/state");
  return folder.empty() ? device / "state" : folder;
}

bool isThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

// The folder `to`, whole or not at all: made beside its place and moved there.
void copyFolder(const fs::path& from, const fs::path& to) {
  const fs::path half = to.string() + ".new-" + std::to_string(getpid());
  std::error_code error;
  fs::create_directories(to.parent_path(), error);
  if (!error) {
    fs::copy(from, half, fs::copy_options::recursive, error);
  }
  for (fs::recursive_directory_iterator entry(half, error), end; !error && entry != end;
       entry.increment(error)) {
    fs::permissions(*entry, fs::perms::owner_write, fs::perm_options::add, error);
  }
  if (!error) {
    fs::rename(half, to, error);
  }
  if (error && !isThere(to)) {
    const std::string reason = error.message();
    fs::remove_all(half, error);
    throw CommandError("cannot put the sample's groups into " + to.string() + ": " + reason +
                       "; name a folder that can be written with --device");
  }
  fs::remove_all(half, error);
}

void useSample(const SourceOptions& options, Places& places) {
  const fs::path sample = shareFolder() / "sample";
  if (!isThere(sample / "messages/chat.db")) {
    throw CommandError("the sample is missing from " + sample.string() +
                       "; name a Messages database with --messages");
  }
  places.isSample = true;
  places.messages = sample / "messages/chat.db";
  if (options.contacts.empty()) {
    places.contacts = {(sample / "contacts").string()};
  }
  if (!options.device) {
    places.device = dataFolder() / "sample-device";
    if (!isThere(places.device)) {
      copyFolder(sample / "device", places.device);
    }
  }
}

}  // namespace

fs::path userFolder(const char* variable, const char* belowHome) {
  const char* named = std::getenv(variable);
  if (named != nullptr && *named == '/') {
    return fs::path(named) / "zephyls";
  }
  const char* home = std::getenv("HOME");
  return home != nullptr && *home == '/' ? fs::path(home) / belowHome / "zephyls" : fs::path();
}

fs::path overlayFolder() {
  return shareFolder() / "overlay";
}

Places placesFor(const SourceOptions& options, SampleUse sampleUse) {
  Places places;
  places.overlay = overlayFolder();
  places.device = options.device ? fs::absolute(*options.device) : dataFolder() / "device";
  places.contacts = options.contacts;
  if (options.messages) {
    places.messages = *options.messages;
  } else if (isThere(places.onDevice(kPhoneMessages))) {
    places.messages = places.onDevice(kPhoneMessages);
  } else if (sampleUse == SampleUse::kAllowed) {
    useSample(options, places);
  }
  places.state = stateFolder(places.device);
  if (!places.isSample && places.contacts.empty() && isThere(places.onDevice(kPhoneContacts))) {
    places.contacts = {places.onDevice(kPhoneContacts).string()};
  }
  return places;
}

}  // namespace zephyl::app
