// The screen half of a device that the contract suites run against, installed with its device. The
// thread that makes one is its main thread.

#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/UIKitHost.h"

namespace zephyl {
class TextInputClient;
}

namespace zephyl::contract {

class ScreenUnderTest {
 public:
  virtual ~ScreenUnderTest() = default;

  [[nodiscard]] virtual UIKitHost& kit() = 0;

  // Lets frames and what else waits come until the condition holds; false when it never does.
  [[nodiscard]] virtual bool passTimeUntil(const std::function<bool()>& condition) = 0;

  // What a user or the desktop changes: the appearance, and the size of the screen.
  virtual void makeDark() = 0;
  virtual void resize(double width, double height) = 0;
  // Of who was asked for a picture; where nobody is ever asked, nothing.
  virtual void cancelPicking() = 0;

  // Null for nothing.
  [[nodiscard]] virtual TextInputClient* typedInto() = 0;
};

struct ScreenMaker {
  std::string name;
  std::function<std::unique_ptr<ScreenUnderTest>(bool rightToLeft)> make;

  friend void PrintTo(const ScreenMaker& maker, std::ostream* out) { *out << maker.name; }
};

[[nodiscard]] ScreenMaker fakeScreenMaker();
[[nodiscard]] ScreenMaker linuxScreenMaker();

// Every screen of this build.
[[nodiscard]] std::vector<ScreenMaker> screensUnderTest();

class ScreenContractTest : public ::testing::TestWithParam<ScreenMaker> {
 protected:
  explicit ScreenContractTest(bool rightToLeft = false) : screen_(GetParam().make(rightToLeft)) {}

  [[nodiscard]] ScreenUnderTest& device() { return *screen_; }
  [[nodiscard]] UIKitHost& kit() { return screen_->kit(); }

 private:
  std::unique_ptr<ScreenUnderTest> screen_;
};

[[nodiscard]] inline std::string nameOfScreen(const ::testing::TestParamInfo<ScreenMaker>& info) {
  return info.param.name;
}

}  // namespace zephyl::contract

#define ZEPHYLS_SCREEN_CONTRACT(suite)                                                  \
  INSTANTIATE_TEST_SUITE_P(EveryScreen, suite, ::testing::ValuesIn(screensUnderTest()), \
                           nameOfScreen)
