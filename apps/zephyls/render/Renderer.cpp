#include "apps/zephyls/render/Renderer.h"

#include <optional>
#include <utility>

#include "platform/Host.h"
#include "platform/uikit/TreeDump.h"
#include "platform/uikit/UIGraphics.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/UIWindow.h"

#include "apps/zephyls/render/Specimens.h"
#include "apps/zephyls/render/Stage.h"
#include "apps/zephyls/render/TemporaryFolder.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/screen/LinuxUIKit.h"
#include "hosts/linux/screen/WindowPicture.h"

namespace zephyl::app::render {

namespace {

std::unique_ptr<linux_host::LinuxUIKit> makeUIKit(const RenderSettings& settings) {
  linux_host::UIKitOptions options;
  options.screen.scale = settings.scale;
  options.screen.rightToLeft = settings.rightToLeft;
  options.screen.style = settings.dark ? UIUserInterfaceStyle::kDark : UIUserInterfaceStyle::kLight;
  // Nothing turns or moves, so that a picture is the same each time.
  options.screen.reducedMotion = true;
  return std::make_unique<linux_host::LinuxUIKit>(std::move(options));
}

linux_host::DeviceOptions deviceOptions(const RenderSettings& settings, const std::string& root) {
  linux_host::DeviceOptions options;
  options.deviceRoot = root;
  options.overlay = settings.overlay;
  options.systemVersion = settings.systemVersion;
  options.userInterfaceIdiom = settings.idiom;
  options.languages = settings.languages;
  // Else nothing would be shown as protected.
  options.hasBiometrics = true;
  return options;
}

}  // namespace

struct Renderer::Parts {
  explicit Parts(const RenderSettings& settings) {
    auto options = deviceOptions(settings, folder.path());
    auto screen = makeUIKit(settings);
    uikit = screen.get();
    options.uikit = std::move(screen);
    device.emplace(std::move(options));
    install(*device);
  }
  ~Parts() {
    device->queues().stop();
    uninstall();
  }
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;

  TemporaryFolder folder;
  linux_host::LinuxUIKit* uikit = nullptr;
  std::optional<linux_host::LinuxDevice> device;
};

// A specimen in a window, at rest.
class Renderer::Shown {
 public:
  Shown(Parts& parts, const Specimen& specimen) : parts_(parts) {
    specimen.stage(stage_);
    window_ = stage_.makeWindow();
    settle();
    for (const auto& action : stage_.actions()) {
      action(*window_);
      settle();
    }
  }

  [[nodiscard]] UIWindow& window() { return *window_; }

 private:
  // What comes of the one may begin the other.
  void settle() {
    constexpr int kRounds = 4;
    for (int round = 0; round < kRounds; ++round) {
      window_->layoutWindow();
      parts_.device->queues().runMainUntilIdle();
      finishAllAnimations();
    }
    window_->layoutWindow();
  }

  Parts& parts_;
  Stage stage_;
  std::shared_ptr<UIWindow> window_;
};

Renderer::Renderer(const RenderSettings& settings) : parts_(std::make_unique<Parts>(settings)) {}

Renderer::~Renderer() = default;

CGBitmapRef Renderer::picture(const Specimen& specimen) {
  Shown shown(*parts_, specimen);
  linux_host::WindowPicture picture(shown.window(), parts_->uikit->paintCaches());
  static_cast<void>(picture.update(parts_->uikit->screen().scale(),
                                   parts_->uikit->screen().userInterfaceStyle()));
  return picture.bitmap();
}

std::string Renderer::png(const Specimen& specimen) {
  const Data file = parts_->uikit->graphics().encodePNG(*picture(specimen));
  return {file.begin(), file.end()};
}

std::string Renderer::tree(const Specimen& specimen) {
  Shown shown(*parts_, specimen);
  return recursiveDescription(shown.window());
}

}  // namespace zephyl::app::render
