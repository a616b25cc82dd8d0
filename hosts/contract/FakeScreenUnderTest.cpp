#include "hosts/contract/ScreenUnderTest.h"
#include "hosts/fake/Device.h"

namespace zephyl::contract {

namespace {

class FakeScreenUnderTest : public ScreenUnderTest {
 public:
  explicit FakeScreenUnderTest(bool rightToLeft) {
    if (rightToLeft) {
      device_.uikit()->screen().setUserInterfaceLayoutDirection(
          UIUserInterfaceLayoutDirection::kRightToLeft);
    }
  }

  UIKitHost& kit() override { return *device_.uikit(); }

  bool passTimeUntil(const std::function<bool()>& condition) override {
    constexpr int kFrames = 600;
    for (int frame = 0; frame < kFrames && !condition(); ++frame) {
      device_.uikit()->displayLink().advance(1.0 / 60);
      device_.dispatch().runAll();
    }
    return condition();
  }

  void makeDark() override {
    device_.uikit()->screen().setUserInterfaceStyle(UIUserInterfaceStyle::kDark);
  }
  void resize(double width, double height) override {
    device_.uikit()->screen().setBounds(CGRectMake(0, 0, width, height));
  }

  void cancelPicking() override { device_.uikit()->imagePicker().cancel(); }
  TextInputClient* typedInto() override { return device_.uikit()->textInput().client(); }

 private:
  fake::Device device_;
};

}  // namespace

ScreenMaker fakeScreenMaker() {
  return {"Fake",
          [](bool rightToLeft) { return std::make_unique<FakeScreenUnderTest>(rightToLeft); }};
}

}  // namespace zephyl::contract
