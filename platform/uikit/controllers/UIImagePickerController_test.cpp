// Asking the user for a picture: who is told of it, and when the screen goes.

#include "platform/uikit/controllers/UIImagePickerController.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UIAlertController.h"
#include "platform/uikit/controllers/UINavigationItem.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/FakePng.h"

namespace zephyl {
namespace {

class Receiver : public UIImagePickerControllerDelegate {
 public:
  void didFinishPickingMediaWithInfo(UIImagePickerController& /*picker*/,
                                     const UIImagePickerInfo& info) override {
    picked = info.originalImage;
  }
  bool imagePickerControllerDidCancel(UIImagePickerController& /*picker*/) override {
    ++cancelled;
    return dismisses;
  }
  UIImageRef picked;
  int cancelled = 0;
  bool dismisses = false;
};

class ImagePickerScreen : public ::testing::Test {
 protected:
  ImagePickerScreen() { window_->setRootViewController(opener_); }
  void open(UIImagePickerSource source = UIImagePickerSource::kPhotoLibrary) {
    picker_ = std::make_shared<UIImagePickerController>();
    picker_->setSourceType(source);
    picker_->setDelegate(receiver_);
    opener_->presentViewController(picker_, /*animated=*/true);
    settle();
  }
  void settle() {
    device_.uikit()->displayLink().runUntilIdle();
    window_->layoutWindow();
  }
  bool isOpen() { return opener_->presentedViewController() == picker_; }
  fake::FakeImagePicker& user() { return device_.uikit()->imagePicker(); }
  std::shared_ptr<UIAlertController> alert() {
    return std::dynamic_pointer_cast<UIAlertController>(picker_->presentedViewController());
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIViewController> opener_ = std::make_shared<UIViewController>();
  std::shared_ptr<Receiver> receiver_ = std::make_shared<Receiver>();
  std::shared_ptr<UIImagePickerController> picker_;
};

TEST_F(ImagePickerScreen, AsksOnceItHasAppeared) {
  picker_ = std::make_shared<UIImagePickerController>();
  opener_->presentViewController(picker_, /*animated=*/true);
  EXPECT_EQ(user().asked(), std::nullopt);
  settle();
  EXPECT_EQ(user().asked(), UIImagePickerSource::kPhotoLibrary);
  EXPECT_EQ(user().above(), picker_->view().get());
}

TEST_F(ImagePickerScreen, APictureGoesToTheDelegateWhichDismisses) {
  open();
  const auto picture = UIImage::imageWithData(fake::fakePicture(3, 2));
  EXPECT_TRUE(user().answer(picture));
  settle();
  EXPECT_EQ(receiver_->picked, picture);
  EXPECT_TRUE(isOpen());
  EXPECT_EQ(receiver_->cancelled, 0);
}

TEST_F(ImagePickerScreen, CancellingDismissesUnlessTheDelegateDoes) {
  open();
  EXPECT_TRUE(user().cancel());
  settle();
  EXPECT_EQ(receiver_->cancelled, 1);
  EXPECT_FALSE(isOpen());
  receiver_->dismisses = true;
  open();
  EXPECT_TRUE(user().cancel());
  settle();
  EXPECT_TRUE(isOpen());
}

TEST_F(ImagePickerScreen, ItsOwnButtonAndEscapeCancelToo) {
  open();
  EXPECT_TRUE(
      picker_->topViewController()->navigationItem()->rightBarButtonItem()->performAction());
  settle();
  EXPECT_FALSE(isOpen());
  open();
  EXPECT_TRUE(window_->sendKey({UIKey::kEscape, "", false, false}));
  settle();
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(receiver_->cancelled, 2);
}

TEST_F(ImagePickerScreen, WhatCannotBeReadIsToldBeforeItGoes) {
  open();
  const NSError error("d", 1, {{kNSLocalizedDescriptionKey, "/a/b.png: no picture"}});
  EXPECT_TRUE(user().fail(error));
  settle();
  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->message(), "/a/b.png: no picture");
  alert()->choose(alert()->actions().front());
  settle();
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(receiver_->picked, nullptr);
}

TEST_F(ImagePickerScreen, ASourceThatTheDeviceDoesNotHaveIsTold) {
  open(UIImagePickerSource::kCamera);
  EXPECT_EQ(user().asked(), std::nullopt);
  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->message(), "This device has no camera.");
  alert()->choose(alert()->actions().front());
  settle();
  EXPECT_FALSE(isOpen());
}

TEST_F(ImagePickerScreen, ItMayGoBeforeTheUserAnswers) {
  open();
  picker_->dismissViewControllerAnimated(/*animated=*/true);
  settle();
  picker_ = nullptr;
  user().answer(UIImage::imageWithData(fake::fakePicture(3, 2)));
  EXPECT_EQ(receiver_->picked, nullptr);
}

TEST_F(ImagePickerScreen, WithoutADelegateItStaysUntilCancelled) {
  open();
  receiver_ = nullptr;
  user().answer(UIImage::imageWithData(fake::fakePicture(3, 2)));
  settle();
  EXPECT_TRUE(isOpen());
  EXPECT_TRUE(picker_->accessibilityPerformEscape());
  settle();
  EXPECT_FALSE(isOpen());
}

}  // namespace
}  // namespace zephyl
