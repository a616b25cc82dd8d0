#include "hosts/linux/window/FilePicturePicker.h"

#include <QFileDialog>
#include <QImage>
#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/NSError.h"

#include "hosts/linux/window/WindowTest.h"

namespace zephyl::linux_host {
namespace {

class FilePicturePickerTest : public WindowTest {
 protected:
  struct Answer {
    UIImageRef image;
    std::optional<std::string> error;
  };

  void pick(UIImagePickerSource source = UIImagePickerSource::kPhotoLibrary) {
    pictures_->pick(source, *window_, [this](const UIImageRef& image, const NSError* error) {
      answers_.push_back(
          {image, error == nullptr ? std::nullopt : std::optional(error->localizedDescription())});
    });
  }

  void choose(const std::string& path) {
    ASSERT_NE(pictures_->dialog(), nullptr);
    pictures_->dialog()->selectFile(QString::fromStdString(path));
    emit pictures_->dialog()->finished(QDialog::Accepted);
  }

  std::vector<Answer> answers_;
};

TEST_F(FilePicturePickerTest, ThereIsNoCamera) {
  EXPECT_TRUE(pictures_->isSourceAvailable(UIImagePickerSource::kPhotoLibrary));
  EXPECT_FALSE(pictures_->isSourceAvailable(UIImagePickerSource::kCamera));
  pick(UIImagePickerSource::kCamera);
  EXPECT_TRUE(answers_.empty());
  settle();
  ASSERT_EQ(answers_.size(), 1U);
  EXPECT_EQ(answers_[0].image, nullptr);
  EXPECT_FALSE(answers_[0].error);
}

TEST_F(FilePicturePickerTest, AChosenPictureIsHandedOver) {
  QImage picture(7, 5, QImage::Format_RGB32);
  picture.fill(Qt::red);
  const std::string path = folder_.path() + "/red.png";
  ASSERT_TRUE(picture.save(QString::fromStdString(path)));
  show();
  pick();
  choose(path);
  ASSERT_EQ(answers_.size(), 1U);
  ASSERT_NE(answers_[0].image, nullptr);
  EXPECT_EQ(answers_[0].image->size(), (CGSize{7, 5}));
}

TEST_F(FilePicturePickerTest, WhatIsNoPictureIsAnErrorThatNamesTheFile) {
  folder_.put("/notes.png", "no picture");
  show();
  pick();
  choose(folder_.path() + "/notes.png");
  ASSERT_EQ(answers_.size(), 1U);
  EXPECT_EQ(answers_[0].image, nullptr);
  ASSERT_TRUE(answers_[0].error);
  EXPECT_NE(answers_[0].error->find("notes.png"), std::string::npos);
}

TEST_F(FilePicturePickerTest, CancellingIsNoError) {
  show();
  pick();
  pictures_->dialog()->reject();
  ASSERT_EQ(answers_.size(), 1U);
  EXPECT_EQ(answers_[0].image, nullptr);
  EXPECT_FALSE(answers_[0].error);
}

TEST_F(FilePicturePickerTest, WhileOneIsOpenAnotherIsCancelled) {
  show();
  pick();
  pick();
  settle();
  EXPECT_EQ(answers_.size(), 1U);
  EXPECT_NE(pictures_->dialog(), nullptr);
}

}  // namespace
}  // namespace zephyl::linux_host
