#include "apps/zephyls/Session.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "platform/Host.h"
#include "platform/foundation/Dictionary.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/PropertyListFile.h"

#include "apps/common/CommandError.h"
#include "apps/common/DeviceLock.h"
#include "apps/springboard/GroupsSafety.h"
#include "apps/springboard/GroupsService.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/SessionLog.h"
#include "apps/zephyls/ShellMessagingCenter.h"
#include "hosts/linux/InProcessMessagingCenter.h"
#include "hosts/linux/Languages.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/fingerprint/FprintAuthentication.h"
#include "hosts/linux/fingerprint/UnlockWatcher.h"
#include "model/GroupsFileCheck.h"
#include "model/ZPSettings.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app {

namespace {

// More warnings than these are counted only; `check` lists them all.
constexpr std::size_t kMostWarnings = 3;

// And the blanks after them; empty for a name of nothing else.
std::string withoutLeadingEmoji(const std::string& name) {
  constexpr UChar32 kJoiner = 0x200D;
  constexpr UChar32 kEmojiPresentation = 0xFE0F;
  const auto text = icu::UnicodeString::fromUTF8(name);
  std::int32_t at = 0;
  for (; at < text.length(); at = text.moveIndex32(at, 1)) {
    const UChar32 c = text.char32At(at);
    const bool isEmoji = u_hasBinaryProperty(c, UCHAR_EMOJI_PRESENTATION) != 0 ||
                         u_hasBinaryProperty(c, UCHAR_EMOJI_MODIFIER) != 0 ||
                         u_hasBinaryProperty(c, UCHAR_EXTENDED_PICTOGRAPHIC) != 0;
    if (!isEmoji && c != kJoiner && c != kEmojiPresentation && c != ' ') {
      break;
    }
  }
  std::string rest;
  text.tempSubString(at).toUTF8String(rest);
  return rest;
}

}  // namespace

Session::Session(const Options& options, Output& output, SessionSurroundings surroundings)
    : options_(options),
      output_(output),
      surroundings_(std::move(surroundings)),
      places_(placesFor(options.sources)),
      userData_(places_,
                {[this](const std::string& message) { complain(message); },
                 [this](const std::string& source, const std::vector<std::string>& warnings) {
                   warn(source, warnings);
                 }}) {}

Session::~Session() {
  if (device_ == nullptr) {
    return;
  }
  // A check may still run, and background work may still ask the host.
  cancelFingerprint();
  device_->queues().stop();
  uninstall();
}

void Session::complain(const std::string& message) {
  badData_ = true;
  output_.complain(asShown(message));
}

std::string Session::asShown(std::string message) const {
  const std::string& shown = surroundings_.shownDevice;
  const std::string own = places_.device.string();
  if (shown.empty()) {
    return message;
  }
  for (std::size_t at = message.find(own); at != std::string::npos;
       at = message.find(own, at + shown.size())) {
    message.replace(at, own.size(), shown);
  }
  return message;
}

int Session::exitStatus() const {
  return badData_ ? kBadData : kSuccess;
}

void Session::warn(const std::string& source, const std::vector<std::string>& warnings) {
  for (std::size_t index = 0; index < std::min(warnings.size(), kMostWarnings); ++index) {
    output_.complain(asShown(warnings[index]));
  }
  if (warnings.size() > kMostWarnings) {
    output_.complain(source + ": " + std::to_string(warnings.size() - kMostWarnings) +
                     " further remarks; `zephyls check` lists them");
  }
}

// The user is told how to do better; the reason of a check is told by whoever asks for it.
void Session::serveFingerprint(linux_host::DeviceOptions& options) {
  options.hasBiometrics = options_.biometrics.value_or(false);
  if (surroundings_.makeAuthentication) {
    options.makeAuthentication = std::move(surroundings_.makeAuthentication);
    return;
  }
  if (options_.biometrics) {
    return;
  }
  linux_host::FprintOptions reading;
  reading.prompt = [this](const linux_host::FprintPrompt& prompt) {
    if (prompt.kind == linux_host::FprintPrompt::Kind::kRetry) {
      device_->dispatch().mainAsync([this, text = prompt.text] { output_.complain(text); });
    }
  };
  reader_ = std::make_shared<linux_host::FprintAuthentication>(std::move(reading));
  options.makeAuthentication = [this] { return reader_; };
}

void Session::watchDesktop() {
  if (unlockWatcher_ == nullptr) {
    unlockWatcher_ = std::make_unique<linux_host::UnlockWatcher>(
        [](linux_host::UnlockEnd) { ZPUtils::resetLastUnlockedTimestamp(); });
  }
}

void Session::cancelFingerprint() {
  if (reader_ != nullptr) {
    reader_->cancel();
  }
}

void Session::writeFirstSettings() {
  const std::string path = ZPUtils::settingsFilePath();
  if (device_->files().fileExistsAtPath(path)) {
    return;
  }
  if (!writeToFile(Dictionary{{settings_keys::kEnabled, true}}, path)) {
    throw CommandError("cannot write the settings " + places_.onDevice(path).string() +
                       "; name a folder that can be written with --device");
  }
}

void Session::startDevice() {
  if (device_ != nullptr) {
    return;
  }
  std::error_code error;
  std::filesystem::create_directories(places_.device, error);
  if (error) {
    throw CommandError("cannot make the device root " + places_.device.string() + ": " +
                       error.message() + "; name a folder that can be written with --device");
  }
  const DeviceLock lock(places_.device);
  userData_.readPeople();

  linux_host::DeviceOptions options;
  options.deviceRoot = places_.device.string();
  options.overlay = places_.overlay.string();
  options.systemVersion = options_.iosVersion;
  options.userInterfaceIdiom = options_.idiom;
  options.languages = linux_host::preferredLanguages(
      linux_host::languageWishesOfEnvironment(options_.language.value_or("")));
  options.systemLog = std::make_unique<SessionLog>(
      options.deviceRoot, [this](const std::string& message) { complain(message); });
  serveFingerprint(options);
  options.uikit = std::move(surroundings_.uikit);
  bool hasShell = false;
  if (!surroundings_.isAlone) {
    options.needsCopyBeforeOverwrite = whyKeepGroupsFile;
    options.safety = safetyOfGroups(places_.state.string(), options.deviceRoot);
    hasShell =
        reachShell(options, [this](const std::string& message) { output_.complain(message); });
  }
  userData_.serveBy(options, options_.sources);
  device_ = std::make_unique<linux_host::LinuxDevice>(std::move(options));
  install(*device_);
  serveGroups(device_->messageServers());
  if (hasShell) {
    // Mends what an interrupted save left, of which the shell would tell only its log.
    static_cast<void>(device_->files().contentsAtPath(kGroupsFilePath));
  }
  writeFirstSettings();
}

// After a start that left no groups.
std::string Session::whyNoGroups() const {
  const std::string file = places_.onDevice(kGroupsFilePath).string();
  const auto contents = device_->files().contentsAtPath(kGroupsFilePath);
  if (const auto reason = contents ? whyNoGroupsFile(*contents) : std::nullopt) {
    return asShown(file) + ": " + *reason +
           "; mend the file, or move it away to start with the system groups";
  }
  return "cannot write the groups " + file + "; name a folder that can be written with --device";
}

void Session::startGroups() {
  if (groupsStarted_) {
    return;
  }
  groupsStarted_ = true;
  startDevice();
  userData_.readConversations();
  {
    const DeviceLock lock(places_.device);
    const auto store = ZephylsDataController::sharedInstance();
    store->createDefaultGroups();
    if (store->allZephyls()->empty()) {
      store->reloadAllZephyls();
    }
    if (store->allZephyls()->empty()) {
      throw CommandError(whyNoGroups());
    }
  }
  settle();
}

void Session::settle() {
  device_->queues().runMainUntilIdle();
}

bool Session::waitUntil(const std::function<bool()>& done, std::chrono::milliseconds limit) {
  return device_->queues().runMainUntil(done, limit);
}

ZephylRef Session::groupNamed(const std::string& titleOrIdentifier) {
  const auto groups = ZephylsDataController::sharedInstance()->allZephyls()->snapshot();
  ZephylVector titled;
  ZephylRef numbered;
  for (const ZephylRef& group : *groups) {
    if (group->title() == titleOrIdentifier) {
      titled.push_back(group);
    } else if (numbered == nullptr && std::to_string(group->identifier()) == titleOrIdentifier) {
      numbered = group;
    }
  }
  if (titled.size() > 1) {
    std::string identifiers;
    for (const ZephylRef& group : titled) {
      identifiers += " " + std::to_string(group->identifier());
    }
    throw CommandError("several groups are titled \"" + titleOrIdentifier +
                       "\"; name one by its identifier:" + identifiers);
  }
  if (titled.empty() && numbered == nullptr) {
    throw CommandError("no group has the title or identifier \"" + titleOrIdentifier +
                       "\"; `zephyls groups list` shows them");
  }
  return titled.empty() ? numbered : titled.front();
}

CKConversationArray Session::conversationsOf(const ZephylRef& group) {
  group->loadAffiliatedConversations(/*inBackground=*/false);
  return group->conversations()->conversations();
}

CKConversationRef Session::conversationNamed(const std::string& guidOrName) {
  const CKConversationArray all = host().conversationList().conversations();
  CKConversationArray named;
  for (const CKConversationRef& conversation : all) {
    const CKConversation::Facts& facts = conversation->facts();
    if (facts.guid == guidOrName || facts.rawGuid == guidOrName) {
      return conversation;
    }
    const bool isWith = !facts.isGroupConversation && facts.handles.size() == 1 &&
                        facts.handles.front().displayID() == guidOrName;
    if (facts.name == guidOrName || isWith) {
      named.push_back(conversation);
    }
  }
  if (named.size() == 1) {
    return named.front();
  }
  if (named.empty()) {
    std::copy_if(all.begin(), all.end(), std::back_inserter(named), [&](const auto& conversation) {
      return withoutLeadingEmoji(conversation->facts().name) == guidOrName;
    });
    if (named.size() == 1 && !guidOrName.empty()) {
      return named.front();
    }
  }
  if (named.empty() || guidOrName.empty()) {
    throw CommandError("no conversation has the GUID, name or address \"" + guidOrName +
                       "\"; `zephyls conversations --json` lists them");
  }
  std::string guids;
  for (const CKConversationRef& conversation : named) {
    guids.append(" ").append(conversation->guid());
  }
  throw CommandError("several conversations are called \"" + guidOrName +
                     "\"; name one by its GUID:" + guids);
}

}  // namespace zephyl::app
