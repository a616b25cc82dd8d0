#include "apps/zephyls/render/ScreenRenderer.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"
#include "platform/localauthentication/LAContext.h"
#include "platform/uikit/TreeDump.h"
#include "platform/uikit/UIGraphics.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UIViewController.h"

#include "apps/common/CommandError.h"
#include "apps/common/DeviceLock.h"
#include "apps/common/GroupStepText.h"
#include "apps/common/GroupUndo.h"
#include "apps/common/Places.h"
#include "apps/zephyls/Consent.h"
#include "apps/zephyls/MemberNames.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "apps/zephyls/render/RenderDirection.h"
#include "apps/zephyls/render/Screens.h"
#include "apps/zephyls/render/Script.h"
#include "apps/zephyls/render/TemporaryFolder.h"
#include "hosts/linux/screen/HeadlessInput.h"
#include "hosts/linux/screen/LinuxUIKit.h"
#include "hosts/linux/screen/WindowPicture.h"

namespace zephyl::app::render {

namespace {

namespace fs = std::filesystem;

// What the extension keeps, with the settings and the numbers of people; not the databases of a
// phone, which are read where they are.
void copyDevice(const Places& from, const fs::path& to) {
  constexpr char kPreferences[] = "/var/mobile/Library/Preferences";
  std::error_code error;
  if (!fs::exists(from.device, error)) {
    return;
  }
  if (!fs::is_directory(from.device, error)) {
    throw CommandError("the device root " + from.device.string() + " is no folder");
  }
  const DeviceLock lock(from.device);
  const fs::path preferences = from.onDevice(kPreferences);
  if (fs::exists(preferences, error)) {
    const fs::path copy = to / fs::path(kPreferences).relative_path();
    fs::create_directories(copy, error);
    fs::copy(preferences, copy, fs::copy_options::recursive, error);
  }
  if (!error && fs::exists(from.recordIDs(), error)) {
    fs::copy(from.recordIDs(), to / from.recordIDs().filename(), fs::copy_options::recursive,
             error);
  }
  if (error) {
    throw CommandError("cannot read the device root " + from.device.string() + ": " +
                       error.message());
  }
}

constexpr CGSize kPadScreen{810, 1080};

// Knows nobody, and says so in the background, which the picture waits for.
class KnowsNobody : public LAContext {
 public:
  bool canEvaluatePolicy(LAPolicy /*policy*/, NSError* /*error*/) override { return true; }
  void evaluatePolicy(LAPolicy /*policy*/, const std::string& /*localizedReason*/,
                      Reply reply) override {
    host().dispatch().globalAsync(QueuePriority::kDefault,
                                  [reply = std::move(reply)] { reply(false, nullptr); });
  }
  void setLocalizedFallbackTitle(const std::string& /*title*/) override {}
};

// On a copy of the device root.
Options optionsOnCopy(const Options& options, const std::string& copy) {
  const Places places = placesFor(options.sources);
  copyDevice(places, copy);
  Options own = options;
  own.sources.messages = places.messages.string();
  own.sources.contacts = places.contacts;
  own.sources.device = copy;
  return own;
}

}  // namespace

struct ScreenRenderer::Parts {
  Parts(const Options& options, Output& given)
      : output(given),
        ownDevice(placesFor(options.sources).device.string()),
        own(optionsOnCopy(options, folder.path())),
        session(own, output, surroundings()) {}
  ~Parts() {
    // Before the device goes.
    window.reset();
    shown = {};
  }
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;

  SessionSurroundings surroundings() {
    linux_host::UIKitOptions wishes;
    wishes.screen.scale = own.render.scale;
    if (own.idiom == UIUserInterfaceIdiom::kPad) {
      wishes.screen.size = kPadScreen;
    }
    wishes.screen.rightToLeft = runsFromRightToLeft(own);
    wishes.screen.style =
        own.render.dark ? UIUserInterfaceStyle::kDark : UIUserInterfaceStyle::kLight;
    // Nothing turns or moves, so that a picture is the same each time.
    wishes.screen.reducedMotion = true;
    auto input = std::make_unique<linux_host::HeadlessTextInput>();
    typing = input.get();
    wishes.textInput = std::move(input);
    auto made = std::make_unique<linux_host::LinuxUIKit>(std::move(wishes));
    uikit = made.get();
    SessionSurroundings given{std::move(made), nullptr, /*isAlone=*/true, ownDevice};
    // Where nobody says otherwise there is a reader: else nothing would be shown as protected.
    if (own.biometrics.value_or(!own.namesMachinesReader)) {
      given.makeAuthentication = [] { return std::make_shared<KnowsNobody>(); };
    }
    return given;
  }

  // What comes of the one may begin the other.
  void settle() {
    constexpr int kRounds = 5;
    for (int round = 0; round < kRounds; ++round) {
      window->layoutWindow();
      session.settle();
      finishAllAnimations();
    }
    window->layoutWindow();
  }

  // What is lost is told from now on.
  void watchGroups() {
    undo.emplace([this](const GroupStep& step) {
      for (const std::string& loss : lossesOf(step, memberNames(session))) {
        output.complain(loss);
      }
    });
  }

  // Ctrl+Z takes the last change of the groups back, and with Shift makes it again.
  bool handleShortcut(const UIKeyPress& press) {
    if (!press.control || press.characters != "Z") {
      return false;
    }
    const GroupUndo::Outcome outcome = press.shift ? undo->redo() : undo->undo();
    const std::string summary = summaryOf(outcome.step, memberNames(session));
    if (outcome.error) {
      output.complain(outcome.error->localizedDescription());
    } else if (!summary.empty()) {
      output.complain(press.shift ? redoneText(summary) : undoneText(summary));
    }
    return true;
  }

  Output& output;
  const TemporaryFolder folder;
  const std::string ownDevice;
  const Options own;
  linux_host::LinuxUIKit* uikit = nullptr;
  linux_host::HeadlessTextInput* typing = nullptr;
  Session session;
  std::optional<GroupUndo> undo;
  ShownScreen shown;
  std::shared_ptr<UIWindow> window;
};

ScreenRenderer::ScreenRenderer(const Options& options, Output& output)
    : parts_(std::make_unique<Parts>(options, output)) {}

ScreenRenderer::~ScreenRenderer() = default;

void ScreenRenderer::show(const Screen& screen) {
  parts_->session.startGroups();
  if (screen.subject == ScreenSubject::kGroup) {
    askForFingerprint(parts_->session, parts_->output, {groupToShow(parts_->session)});
  }
  parts_->watchGroups();
  parts_->shown = screen.make(parts_->session);
  parts_->window = std::make_shared<UIWindow>(parts_->uikit->screen().bounds());
  parts_->window->setRootViewController(parts_->shown.controller);
  parts_->settle();
  if (const auto open = std::exchange(parts_->shown.open, nullptr)) {
    open();
    parts_->settle();
  }
  Script({*parts_->window, [this] { return parts_->typing->client(); },
          [this] { parts_->settle(); },
          [this](const UIKeyPress& press) { return parts_->handleShortcut(press); }})
      .run(parts_->own.render.steps);
}

std::string ScreenRenderer::png() {
  auto& screen = parts_->uikit->screen();
  linux_host::WindowPicture picture(*parts_->window, parts_->uikit->paintCaches());
  static_cast<void>(picture.update(screen.scale(), screen.userInterfaceStyle()));
  const Data file = parts_->uikit->graphics().encodePNG(*picture.bitmap());
  return {file.begin(), file.end()};
}

std::string ScreenRenderer::tree() {
  return recursiveDescription(*parts_->window);
}

int ScreenRenderer::exitStatus() const {
  return parts_->session.exitStatus();
}

}  // namespace zephyl::app::render
