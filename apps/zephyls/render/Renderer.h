// Makes pictures of specimens: installs a device of its own, with a screen that nobody sees and a
// device root that is gone afterwards. Main thread, with a QApplication.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/uikit/CGBitmap.h"
#include "platform/uikit/UIDevice.h"

namespace zephyl::app::render {

struct Specimen;

struct RenderSettings {
  double scale = 2;  // pixels a point
  bool dark = false;
  bool rightToLeft = false;
  UIUserInterfaceIdiom idiom = UIUserInterfaceIdiom::kPhone;
  std::string systemVersion = "14.0";
  std::vector<std::string> languages = {"en"};
  std::string overlay;  // the folder with the program's own texts and pictures
};

class Renderer {
 public:
  // Throws CommandError when there is no room for the device root. No host may be installed.
  explicit Renderer(const RenderSettings& settings);
  ~Renderer();
  Renderer(const Renderer&) = delete;
  Renderer& operator=(const Renderer&) = delete;

  // With animations ended and nothing left to do in the background.
  [[nodiscard]] CGBitmapRef picture(const Specimen& specimen);
  // As a PNG file.
  [[nodiscard]] std::string png(const Specimen& specimen);
  // The view tree as text.
  [[nodiscard]] std::string tree(const Specimen& specimen);

 private:
  struct Parts;
  class Shown;

  std::unique_ptr<Parts> parts_;
};

}  // namespace zephyl::app::render
