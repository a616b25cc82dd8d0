#include "hosts/fake/uikit/FakeUIKit.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl::fake {
namespace {

using ::testing::ElementsAre;

class Client : public TextInputClient {
 public:
  explicit Client(FakeTextInput& input) : input_(input) {}

  UIView& textInputView() override { std::abort(); }
  CGRect textInputRect() const override { return {}; }
  NSAttributedString::Attributes textInputAttributes() const override { return {}; }
  NSTextAlignment textInputAlignment() const override { return NSTextAlignment::kNatural; }
  std::string textInputText() const override { return log.empty() ? "" : log.back(); }
  UIReturnKeyType textInputReturnKey() const override { return UIReturnKeyType::kDefault; }
  void textInputDidChange(const std::string& text) override {
    log.push_back(text);
    if (text == "stop") {
      input_.end(*this);
    }
  }
  void textInputDidReturn() override { ++returns; }
  void textInputDidTab(bool forwards) override { tabs += forwards ? 1 : -1; }

  std::vector<std::string> log;
  int returns = 0;
  int tabs = 0;

 private:
  FakeTextInput& input_;
};

class FakeUIKitTest : public ::testing::Test {
 protected:
  FakeUIKit& uikit() { return *device_.uikit(); }
  // Asks for a frame in each frame, `count` times, and writes down when they come.
  void countFrames(int count) {
    times_.push_back(uikit().displayLink().timestamp());
    if (count > 0) {
      uikit().displayLink().requestFrame([this, count] { countFrames(count - 1); });
    }
  }

  Device device_;
  std::vector<double> times_;
};

TEST_F(FakeUIKitTest, IsTheInstalledHostsScreenHalf) {
  EXPECT_EQ(&uikitHost(), device_.uikit());
  EXPECT_EQ(&UIScreen::mainScreen(), &uikit().screen());
  EXPECT_EQ(UIScreen::mainScreen().bounds(), CGRectMake(0, 0, 390, 844));
  EXPECT_EQ(UIScreen::mainScreen().applicationFrame(), CGRectMake(0, 47, 390, 797));
  device_.setHasScreen(false);
  EXPECT_EQ(host().uikit(), nullptr);
}

TEST_F(FakeUIKitTest, EachChangeOfTheScreenIsTold) {
  int changes = 0;
  uikit().screen().setChangeHandler([&] { ++changes; });
  uikit().screen().setUserInterfaceStyle(UIUserInterfaceStyle::kDark);
  uikit().screen().setBounds(CGRectMake(0, 0, 320, 568));
  uikit().screen().setScale(2);
  EXPECT_EQ(changes, 3);
  EXPECT_EQ(UIScreen::mainScreen().userInterfaceStyle(), UIUserInterfaceStyle::kDark);
  EXPECT_EQ(UIScreen::mainScreen().bounds().width(), 320);
  EXPECT_EQ(UIScreen::mainScreen().scale(), 2);
}

TEST_F(FakeUIKitTest, AFrameRunsOnceAndNotInsideTheRequest) {
  countFrames(1);
  EXPECT_EQ(times_.size(), 1U);
  EXPECT_TRUE(uikit().displayLink().isFrameRequested());
  EXPECT_TRUE(uikit().displayLink().runFrame());
  EXPECT_FALSE(uikit().displayLink().runFrame());
  EXPECT_THAT(times_, ElementsAre(100, 100 + 1.0 / 60));
}

TEST_F(FakeUIKitTest, ALaterRequestReplacesTheEarlierOne) {
  std::string ran;
  uikit().displayLink().requestFrame([&] { ran += "a"; });
  uikit().displayLink().requestFrame([&] { ran += "b"; });
  EXPECT_EQ(uikit().displayLink().runUntilIdle(), 1);
  EXPECT_EQ(ran, "b");
}

TEST_F(FakeUIKitTest, TheLastFrameOfAnAdvanceFallsOnItsEnd) {
  countFrames(1000);
  uikit().displayLink().advance(0.3);
  EXPECT_EQ(times_.size(), 19U);
  EXPECT_EQ(times_.back(), 100.3);
  uikit().displayLink().advance(0.01);
  EXPECT_EQ(times_.back(), 100.31);
}

TEST_F(FakeUIKitTest, TimePassesWithoutFramesToo) {
  uikit().displayLink().advance(2);
  EXPECT_EQ(uikit().displayLink().timestamp(), 102);
}

TEST_F(FakeUIKitTest, TextIsTypedCharacterByCharacter) {
  FakeTextInput& input = uikit().textInput();
  Client client(input);
  EXPECT_FALSE(input.type("a"));
  input.begin(client);
  EXPECT_TRUE(input.type("a\xC3\xA9"));
  input.deleteBackward();
  input.replace("xyz");
  EXPECT_THAT(client.log, ElementsAre("a", "a\xC3\xA9", "a", "xyz"));
  input.pressReturn();
  input.tab(/*forwards=*/false);
  EXPECT_EQ(client.returns, 1);
  EXPECT_EQ(client.tabs, -1);
}

TEST_F(FakeUIKitTest, NothingIsTypedIntoAClientThatEnded) {
  FakeTextInput& input = uikit().textInput();
  Client client(input);
  input.begin(client);
  input.type("stopped");
  EXPECT_EQ(client.log.back(), "stop");
  EXPECT_EQ(input.client(), nullptr);
}

TEST_F(FakeUIKitTest, OnlyTheClientOfNowIsUpdatedOrEnded) {
  FakeTextInput& input = uikit().textInput();
  Client first(input);
  Client second(input);
  input.begin(first);
  input.begin(second);
  input.update(first);
  input.end(first);
  EXPECT_EQ(input.client(), &second);
  EXPECT_EQ(input.updated(), 0);
  EXPECT_EQ(input.begun(), 2);
}

TEST_F(FakeUIKitTest, APictureIsAnsweredOnce) {
  FakeImagePicker& picker = uikit().imagePicker();
  int views = 0;
  std::vector<std::string> answers;
  const auto ask = [&] {
    picker.pick(UIImagePickerSource::kCamera, reinterpret_cast<UIView&>(views),
                [&](const UIImageRef& image, const NSError* error) {
                  answers.emplace_back(image ? "image" : error ? "error" : "cancelled");
                });
  };
  EXPECT_FALSE(picker.cancel());
  ask();
  EXPECT_EQ(picker.asked(), UIImagePickerSource::kCamera);
  EXPECT_TRUE(picker.answer(UIImage::imageWithData(fakePicture(1, 1))));
  EXPECT_FALSE(picker.answer(nullptr));
  ask();
  picker.fail(NSError("d", 1));
  ask();
  picker.cancel();
  EXPECT_THAT(answers, ElementsAre("image", "error", "cancelled"));
}

}  // namespace
}  // namespace zephyl::fake
