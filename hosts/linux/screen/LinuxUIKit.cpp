#include "hosts/linux/screen/LinuxUIKit.h"

#include <utility>

#include "hosts/linux/screen/DesktopAppearance.h"
#include "hosts/linux/screen/HeadlessInput.h"

namespace zephyl::linux_host {

namespace {

void apply(const DesktopAppearance::Settings& settings, LinuxScreen& screen) {
  std::optional<UIUserInterfaceStyle> style;
  if (settings.dark) {
    style = *settings.dark ? UIUserInterfaceStyle::kDark : UIUserInterfaceStyle::kLight;
  }
  screen.setDesktopSettings(style, settings.reducedMotion);
}

}  // namespace

LinuxUIKit::LinuxUIKit(UIKitOptions options)
    : screen_(options.screen),
      textInput_(std::move(options.textInput)),
      imagePicker_(std::move(options.imagePicker)) {
  if (textInput_ == nullptr) {
    textInput_ = std::make_unique<HeadlessTextInput>();
  }
  if (imagePicker_ == nullptr) {
    imagePicker_ = std::make_unique<NoImagePicker>();
  }
  // Nobody is asked for what the options fix.
  const bool follows = !options.screen.style || !options.screen.reducedMotion;
  if (options.appearanceBus && follows) {
    appearance_ = std::make_unique<DesktopAppearance>(
        *options.appearanceBus,
        [this](const DesktopAppearance::Settings& settings) { apply(settings, screen_); });
    apply(appearance_->settings(), screen_);
  }
}

LinuxUIKit::~LinuxUIKit() = default;

}  // namespace zephyl::linux_host
