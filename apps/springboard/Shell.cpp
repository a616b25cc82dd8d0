#include "apps/springboard/Shell.h"

#include <QCoreApplication>
#include <iostream>
#include <system_error>
#include <utility>

#include "platform/Host.h"

#include "apps/common/CommandError.h"
#include "apps/springboard/GroupsSafety.h"
#include "apps/springboard/GroupsService.h"
#include "apps/springboard/MessageAnnouncements.h"
#include "apps/springboard/ShellLog.h"
#include "apps/springboard/StopSignals.h"
#include "hosts/linux/Languages.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/SessionBusAddress.h"
#include "hosts/linux/bus/BusNotifications.h"
#include "hosts/linux/bus/MessageCenterService.h"
#include "hosts/linux/bus/SessionBus.h"
#include "hosts/linux/notices/DesktopNotices.h"

namespace zephyl::app {

namespace {

Places existing(Places places) {
  std::error_code error;
  std::filesystem::create_directories(places.device, error);
  if (error) {
    throw CommandError("cannot make the device root " + places.device.string() + ": " +
                       error.message() + "; name a folder that can be written with --device");
  }
  return places;
}

// Ends the event loop with an error. A timer, whose start is a slot.
class Loss : public QTimer {
 public:
  Loss() {
    setSingleShot(true);
    QObject::connect(this, &QTimer::timeout, this, [] { QCoreApplication::exit(kBadData); });
  }
};

}  // namespace

Shell::Shell(const ShellOptions& options)
    : options_(options),
      places_(existing(placesFor(options.sources, SampleUse::kNever))),
      address_(shellAddressOf(places_.device)),
      log_(options.verbose),
      userData_(places_, {[this](const std::string& message) { log_.log(message); },
                          // `zephyls check` shows them.
                          [](const std::string&, const std::vector<std::string>&) {}}) {
  idle_.setSingleShot(true);
  QObject::connect(&idle_, &QTimer::timeout, &idle_, [] { QCoreApplication::exit(kSuccess); });
}

Shell::~Shell() {
  announcements_.reset();
  service_.reset();
  if (device_ != nullptr) {
    device_->queues().stop();
    uninstall();
  }
}

void Shell::restartIdleTimer() {
  if (options_.idleExit.count() > 0) {
    idle_.start(options_.idleExit);
  }
}

// A shell that is about to end has not been asked to watch anything.
bool Shell::announces() const {
  return !places_.messages.empty() && options_.idleExit.count() == 0;
}

void Shell::makeDevice() {
  if (announces()) {
    // Without the lock that programs hold while they wait for this one.
    userData_.readPeople(linux_host::RecordIDs::Access::kReadOnly);
  }
  linux_host::DeviceOptions options;
  options.deviceRoot = places_.device.string();
  options.overlay = places_.overlay.string();
  options.systemVersion = options_.iosVersion;
  options.bundleIdentifier = "com.apple.springboard";
  options.languages = linux_host::preferredLanguages(
      linux_host::languageWishesOfEnvironment(options_.language.value_or("")));
  options.systemLog =
      std::make_unique<ShellLog>(log_, options.deviceRoot, [this](const std::string& message) {
        notices_->show(
            {.about = "groups file", .title = "Groups of conversations", .body = message});
      });
  options.needsCopyBeforeOverwrite = whyKeepGroupsFile;
  options.safety = safetyOfGroups(places_.state.string(), options.deviceRoot);
  options.makeNotifications = [this](Dispatch& dispatch, SystemLog& log) {
    return std::make_unique<linux_host::BusNotifications>(bus_, address_.notifications, dispatch,
                                                          log);
  };
  if (announces()) {
    userData_.serveBy(options, {});
  }
  device_ = std::make_unique<linux_host::LinuxDevice>(std::move(options));
  install(*device_);
}

// Nothing is connected before the first notice.
void Shell::makeNotices(const std::string& busAddress) {
  notices_ = std::make_unique<linux_host::DesktopNotices>(linux_host::DesktopNotices::Options{
      .programName = "Messages",
      .desktopEntry = "",
      .busAddress = busAddress,
      .log = [this](const std::string& line) { log_.log(line); }});
}

void Shell::announce() {
  announcements_ = std::make_unique<MessageAnnouncements>(MessageAnnouncements::Options{
      .database = places_.messages.string(),
      .readConversations =
          [this] {
            userData_.refreshPeople();
            userData_.readConversations();
          },
      .show = [this](linux_host::DesktopNotice notice) { notices_->show(std::move(notice)); }});
  announcements_->start();
}

bool Shell::isFirst() {
  using linux_host::MessageCenterService;
  service_ = std::make_unique<MessageCenterService>(
      bus_, address_.center, log_,
      MessageCenterService::Options{
          .device = address_.device, .userOf = {}, .afterRequest = [this] { restartIdleTimer(); }});
  const auto claim = service_->claimName();
  if (claim == MessageCenterService::Claim::kFailed) {
    throw CommandError("the message bus does not give the name " + address_.center.service);
  }
  return claim == MessageCenterService::Claim::kOwned;
}

int Shell::run() {
  const StopSignals stopSignals([] { QCoreApplication::exit(kSuccess); });
  const auto busAddress = linux_host::sessionBusAddress();
  bus_ = std::make_shared<linux_host::SessionBus>(busAddress.value_or(""));
  if (!busAddress || !bus_->wasConnected()) {
    throw CommandError("there is no message bus of the session to serve on");
  }
  if (!isFirst()) {
    std::cerr << "zephyls-springboard: " << address_.device << " is served already\n";
    return kSuccess;
  }
  Loss loss;
  bus_->notifyOfLoss(&loss, SLOT(start()));
  makeNotices(*busAddress);
  makeDevice();
  serveGroups(*service_);
  if (announces()) {
    announce();
  }
  restartIdleTimer();
  if (QCoreApplication::exec() != kSuccess || !bus_->isConnected()) {
    throw CommandError("the message bus has gone");
  }
  service_->release();
  return kSuccess;
}

}  // namespace zephyl::app
