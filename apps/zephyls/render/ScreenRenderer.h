// Makes the picture of a screen on the user's data, after what a script does with it. The device is
// a copy that is gone afterwards: nothing of the user's is changed, whatever the script does. Main
// thread, with a QApplication.

#pragma once

#include <memory>
#include <string>

#include "apps/zephyls/Options.h"

namespace zephyl::app {

class Output;

namespace render {

struct Screen;

class ScreenRenderer {
 public:
  // `options` and `output` must outlive this. Throws CommandError, as `show` does.
  ScreenRenderer(const Options& options, Output& output);
  ~ScreenRenderer();
  ScreenRenderer(const ScreenRenderer&) = delete;
  ScreenRenderer& operator=(const ScreenRenderer&) = delete;

  // With the steps of the options done, animations ended, and nothing left to do in the background.
  // What a change of the groups took away is told on the standard error.
  void show(const Screen& screen);
  // Of what is shown: a PNG file, or the view tree as text.
  [[nodiscard]] std::string png();
  [[nodiscard]] std::string tree();
  // As of other commands: whether bad data was met.
  [[nodiscard]] int exitStatus() const;

 private:
  struct Parts;

  std::unique_ptr<Parts> parts_;
};

}  // namespace render
}  // namespace zephyl::app
