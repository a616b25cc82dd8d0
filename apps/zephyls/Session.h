// One run of the program: the device with the user's messages and contacts, and the store of the
// groups on it. Commands start what they need of it; starting twice does nothing.
//
// Made on the thread of the QCoreApplication and used there.

#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/chatkit/CKConversation.h"
#include "platform/localauthentication/LAContext.h"
#include "platform/uikit/UIKitHost.h"

#include "apps/common/Places.h"
#include "apps/common/UserData.h"
#include "apps/zephyls/Options.h"
#include "model/Zephyl.h"

namespace zephyl::linux_host {
class FprintAuthentication;
class UnlockWatcher;
class LinuxDevice;
}  // namespace zephyl::linux_host

namespace zephyl::app {

class Output;

// What a session has beside the user's wishes.
struct SessionSurroundings {
  // Not given: a process without a screen.
  std::unique_ptr<UIKitHost> uikit;
  // What makes the reader of fingerprints instead of what the options say, when given.
  std::function<std::shared_ptr<LAContext>()> makeAuthentication;
  // On a device root of its own, for a while: no other program is asked or told, and no safety
  // copies are kept.
  bool isAlone = false;
  // The device root that the user is told of in place of the session's own. Empty: that one.
  std::string shownDevice = {};
};

class Session {
 public:
  // Throws CommandError, as every call here. `options` and `output` must outlive this.
  Session(const Options& options, Output& output, SessionSurroundings surroundings = {});
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  [[nodiscard]] const Options& options() const { return options_; }
  [[nodiscard]] const Places& places() const { return places_; }
  [[nodiscard]] const UserData& userData() const { return userData_; }

  // The device with its settings and the address book. The first start of all writes settings in
  // which the extension is enabled.
  void startDevice();

  // The conversations and the groups; the first start of all makes the system groups.
  void startGroups();

  // Returns when no background work waits or runs.
  void settle();

  // Processes events until one of them has brought `done` about; whether it did within `limit`.
  bool waitUntil(const std::function<bool()>& done, std::chrono::milliseconds limit);

  // From now on an unlock ends when the desktop locks or the machine goes to sleep.
  void watchDesktop();

  // Ends the check of a finger that runs, if one does.
  void cancelFingerprint();

  // The group of exactly that title, else the one with that identifier. Titles that fit several
  // groups, and texts that fit none, are errors.
  [[nodiscard]] ZephylRef groupNamed(const std::string& titleOrIdentifier);

  // What the group shows, its conversations loaded anew.
  [[nodiscard]] CKConversationArray conversationsOf(const ZephylRef& group);

  // By canonical or raw GUID, or by a name or address that fits no other. Where nothing fits, the
  // emoji before a name may be left out.
  [[nodiscard]] CKConversationRef conversationNamed(const std::string& guidOrName);

  // Tells the user of bad data that did not stop the command; its exit status says so.
  void complain(const std::string& message);
  [[nodiscard]] int exitStatus() const;

 private:
  void serveFingerprint(linux_host::DeviceOptions& options);
  void writeFirstSettings();
  [[nodiscard]] std::string whyNoGroups() const;
  [[nodiscard]] std::string asShown(std::string message) const;
  void warn(const std::string& source, const std::vector<std::string>& warnings);

  const Options& options_;
  Output& output_;
  SessionSurroundings surroundings_;
  const Places places_;
  std::atomic<bool> badData_ = false;
  UserData userData_;
  std::unique_ptr<linux_host::LinuxDevice> device_;
  // Of this machine. Goes before the device, to which it passes on what the owner is told.
  std::shared_ptr<linux_host::FprintAuthentication> reader_;
  std::unique_ptr<linux_host::UnlockWatcher> unlockWatcher_;
  bool groupsStarted_ = false;
};

}  // namespace zephyl::app
