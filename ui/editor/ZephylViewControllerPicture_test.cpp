// The group's picture in the editor: the menu, picking, storing by file and by message, deleting.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "platform/foundation/NSKeyedArchive.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/gestures/UITapGestureRecognizer.h"

#include "hosts/fake/uikit/FakePng.h"
#include "ui/editor/EditorTest.h"

namespace zephyl::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr char kFolder[] = "/var/mobile/Library/Preferences/Zephyls";
constexpr char kFile[] = "/var/mobile/Library/Preferences/Zephyls/7.png";

class EditorPicture : public EditorTest {
 protected:
  // With a picture's button and caption in the header, as an app would add them.
  void editWithControls(const GroupBuilder& builder) {
    edit(group(builder));
    button_->setTag(ZephylViewController::kPictureTag);
    caption_->setTag(ZephylViewController::kPictureCaptionTag);
    caption_->setUserInteractionEnabled(true);
    editor_->headerView()->addSubview(button_);
    editor_->headerView()->addSubview(caption_);
  }
  static UIImageRef picture() { return UIImage::imageWithData(fake::fakePicture(6, 4)); }
  void set(const UIImageRef& image) {
    editor_->updateProfileImage(image);
    settleAll();
  }
  std::vector<std::string> menu() {
    std::vector<std::string> titles;
    for (const auto& action : alert()->actions()) {
      titles.push_back(action->title());
    }
    return titles;
  }
  void choose(const std::string& title) {
    for (const auto& action : std::vector(alert()->actions())) {
      if (action->title() == title) {
        alert()->choose(action);
        break;
      }
    }
    // The alert goes first.
    settle();
    settleAll();
  }
  void openMenu() {
    editor_->addORChangeGroupImage();
    settle();
  }
  std::shared_ptr<UIImagePickerController> picker() {
    return std::dynamic_pointer_cast<UIImagePickerController>(
        navigation_->presentedViewController());
  }
  fake::FakeImagePicker& user() { return device_.uikit()->imagePicker(); }
  // From version 12 on the message center stores pictures, or refuses.
  void answerByMessage(std::optional<bool> stored) {
    device_.device().setSystemVersion("12.0");
    device_.messagingCenter().setAnswer(kSaveImageMessage, [stored](const Dictionary*) {
      return stored ? std::optional(Dictionary{{kServiceMessageData, *stored}}) : std::nullopt;
    });
  }
  Zephyl& edited() { return *editor_->zephyl(); }

  std::shared_ptr<UIButton> button_ = std::make_shared<UIButton>();
  std::shared_ptr<UILabel> caption_ = std::make_shared<UILabel>();
};

TEST_F(EditorPicture, TheMenuOffersToTakeAndToChoose) {
  edit(group(GroupBuilder(7, "Family")));
  openMenu();
  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->preferredStyle(), UIAlertControllerStyle::kActionSheet);
  EXPECT_EQ(alert()->title(), "");
  EXPECT_EQ(alert()->message(), "");
  EXPECT_THAT(menu(), ElementsAre("Take Photo", "Choose Photo", "Cancel"));
  EXPECT_EQ(alert()->actions().back()->style(), UIAlertActionStyle::kCancel);
  choose("Cancel");
  EXPECT_EQ(alert(), nullptr);
  EXPECT_EQ(picker(), nullptr);
}

TEST_F(EditorPicture, DeletingIsOfferedOnlyWhileTheFileIsThere) {
  edit(group(GroupBuilder(7, "Family").with(keys::kHeaderImagePath, "7.png")));
  openMenu();
  EXPECT_THAT(menu(), Not(Contains("Delete Photo")));
  choose("Cancel");
  device_.files().put(kFile, "picture");
  openMenu();
  EXPECT_THAT(menu(), ElementsAre("Take Photo", "Choose Photo", "Delete Photo", "Cancel"));
  choose("Cancel");
  edited().setHeaderImagePath("");
  openMenu();
  EXPECT_THAT(menu(), Not(Contains("Delete Photo")));
}

TEST_F(EditorPicture, OnAPadTheMenuLiesWithinTheScreen) {
  device_.device().setUserInterfaceIdiom(UIUserInterfaceIdiom::kPad);
  const CGRect pad = CGRectMake(0, 0, 810, 1080);
  device_.uikit()->screen().setBounds(pad);
  window_->setFrame(pad);
  edit(group(GroupBuilder(7, "Family")));
  openMenu();
  ASSERT_NE(alert(), nullptr);
  const auto buttons = viewsOf<UIControl>(*alert()->view());
  EXPECT_GE(buttons.size(), 2U);
  for (const UIControl* const button : buttons) {
    const CGRect place = button->convertRectToView(button->bounds(), nullptr);
    EXPECT_TRUE(CGRectContainsPoint(pad, place.origin));
    EXPECT_LE(place.maxX(), pad.maxX());
    EXPECT_LE(place.maxY(), pad.maxY());
  }
  choose("Choose Photo");
  EXPECT_NE(picker(), nullptr);
}

TEST_F(EditorPicture, TheMenuLeadsToTheCameraAndToTheLibrary) {
  user().setSources({UIImagePickerSource::kCamera, UIImagePickerSource::kPhotoLibrary});
  edit(group(GroupBuilder(7, "Family")));
  openMenu();
  choose("Take Photo");
  ASSERT_NE(picker(), nullptr);
  EXPECT_EQ(user().asked(), UIImagePickerSource::kCamera);
  user().cancel();
  settleAll();
  EXPECT_EQ(picker(), nullptr);
  openMenu();
  choose("Choose Photo");
  EXPECT_EQ(user().asked(), UIImagePickerSource::kPhotoLibrary);
}

TEST_F(EditorPicture, APickedPictureIsTheGroups) {
  edit(group(GroupBuilder(7, "Family")));
  openMenu();
  choose("Choose Photo");
  EXPECT_TRUE(user().answer(picture()));
  settleAll();
  EXPECT_EQ(picker(), nullptr);
  EXPECT_EQ(edited().headerImagePath(), "7.png");
  EXPECT_TRUE(canSave());
}

TEST_F(EditorPicture, ThePickerStaysOnAPad) {
  device_.device().setUserInterfaceIdiom(UIUserInterfaceIdiom::kPad);
  edit(group(GroupBuilder(7, "Family")));
  openMenu();
  choose("Choose Photo");
  EXPECT_TRUE(user().answer(picture()));
  settleAll();
  EXPECT_NE(picker(), nullptr);
  EXPECT_EQ(edited().headerImagePath(), "7.png");
}

TEST_F(EditorPicture, BeforeVersionTwelveItIsAFileOfItsOwnSize) {
  for (const char* version : {"6.0", "7.0", "8.0", "8.3", "9.0", "10.0", "11.4"}) {
    device_.device().setSystemVersion(version);
    device_.files().put(kFile, "old");
    edit(group(GroupBuilder(7, "Family")));
    set(picture());
    const auto file = device_.files().contentsAtPath(kFile);
    ASSERT_TRUE(file.has_value());
    EXPECT_TRUE(file->starts_with("\x89PNG")) << version;
    EXPECT_EQ(fake::pictureSize(Data(file->begin(), file->end()))->width, 6U);
    EXPECT_TRUE(device_.messagingCenter().sent().empty()) << version;
  }
}

TEST_F(EditorPicture, ThePicturesFolderIsMadeWhenItIsMissing) {
  edit(group(GroupBuilder(7, "Family")));
  device_.files().failWriting(kFile);
  set(picture());
  EXPECT_TRUE(device_.files().fileExistsAtPath(kFolder));
  // Kept: nobody is told.
  EXPECT_EQ(alert(), nullptr);
  EXPECT_EQ(edited().headerImagePath(), "7.png");
}

TEST_F(EditorPicture, AFolderThatCannotBeMadeIsToldAndEndsIt) {
  editWithControls(GroupBuilder(7, "Family"));
  device_.files().failMakingFolder(
      kFolder, NSError("d", 5, {{kNSLocalizedDescriptionKey, "The disk is full."}}));
  set(picture());
  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "Error");
  EXPECT_EQ(alert()->message(), "The disk is full.");
  EXPECT_THAT(device_.systemLog().lines(),
              Contains("com.vantor.Zephyls: Error => -[ZephylViewController "
                       "updateProfileImage:]_block_invoke, [Line 250], error creating directory: "
                       "Error Domain=d Code=5 \"The disk is full.\""));
  EXPECT_EQ(edited().headerImagePath(), "");
  EXPECT_FALSE(canSave());
  EXPECT_TRUE(caption_->gestureRecognizers().empty());
}

TEST_F(EditorPicture, AFolderThatIsNotMadeForNoReasonEndsItSilently) {
  edit(group(GroupBuilder(7, "Family")));
  device_.files().failMakingFolder(kFolder, std::nullopt);
  set(picture());
  EXPECT_EQ(alert(), nullptr);
  EXPECT_THAT(device_.systemLog().lines(), Not(Contains(HasSubstr("error creating directory"))));
  EXPECT_EQ(edited().headerImagePath(), "");
  EXPECT_FALSE(canSave());
}

TEST_F(EditorPicture, FromVersionTwelveItIsSentToBeStored) {
  edit(group(GroupBuilder(7, "Family")));
  answerByMessage(true);
  const auto image = picture();
  set(image);
  const auto sent = device_.messagingCenter().sent();
  ASSERT_EQ(sent.size(), 1U);
  EXPECT_EQ(sent[0].center, "com.vantor.zephyls");
  EXPECT_EQ(sent[0].name, "com.vantor.zephyls.groups.save.image");
  const Value archive = (*sent[0].userInfo)["ZephylsServiceMessageData"];
  ASSERT_NE(archive.ifData(), nullptr);
  const auto message = unarchivedValue(*archive.ifData());
  ASSERT_TRUE(message.ok());
  const Dictionary& dictionary = *message.value().ifDictionary();
  EXPECT_EQ(dictionary["path"], Value(kFile));
  EXPECT_EQ(imageOfValue(dictionary["image"])->file(), image->file());
  EXPECT_EQ(edited().headerImagePath(), "7.png");
  EXPECT_EQ(alert(), nullptr);
  EXPECT_TRUE(canSave());
  EXPECT_EQ(device_.files().writesOf(kFile), 0);
}

TEST_F(EditorPicture, ItIsSentOnLaterReleasesToo) {
  for (const char* version : {"12.4", "13.0", "14.0"}) {
    edit(group(GroupBuilder(7, "Family")));
    answerByMessage(true);
    device_.device().setSystemVersion(version);
    const std::size_t before = device_.messagingCenter().sent().size();
    set(picture());
    EXPECT_EQ(device_.messagingCenter().sent().size(), before + 1) << version;
    EXPECT_FALSE(device_.files().fileExistsAtPath(kFile)) << version;
  }
}

TEST_F(EditorPicture, APictureOfPixelsIsSentAsAFile) {
  edit(group(GroupBuilder(7, "Family")));
  answerByMessage(true);
  const auto bitmap = std::make_shared<CGBitmap>(CGBitmap{2, 1, {0xFF000001, 0xFF000002}});
  set(std::make_shared<const UIImage>(bitmap, 2));
  const auto sent = device_.messagingCenter().sent();
  const auto message = unarchivedValue(*(*sent[0].userInfo)["ZephylsServiceMessageData"].ifData());
  EXPECT_EQ(imageOfValue((*message.value().ifDictionary())["image"])->file(),
            fake::encodePng(*bitmap));
}

TEST_F(EditorPicture, ARefusedPictureIsToldAndTheNameStays) {
  for (const std::optional<bool>& answer : {std::optional(false), std::optional<bool>()}) {
    edit(group(GroupBuilder(7, "Family")));
    answerByMessage(answer);
    set(picture());
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->title(), "Error");
    EXPECT_TRUE(alert()->message().starts_with(
        "Unable to set the image to group. Please report the problem to '"));
    EXPECT_TRUE(alert()->message().ends_with("'."));
    EXPECT_EQ(edited().headerImagePath(), "7.png");
    EXPECT_TRUE(canSave());
    choose("OK");
  }
}

TEST_F(EditorPicture, DeletingForgetsItAndLeavesTheFile) {
  editWithControls(GroupBuilder(7, "Family").with(keys::kHeaderImagePath, "7.png"));
  device_.files().put(kFile, "picture");
  edited().setHeaderImage(picture());
  caption_->addGestureRecognizer(std::make_shared<UITapGestureRecognizer>(nullptr));
  openMenu();
  choose("Delete Photo");
  EXPECT_EQ(edited().headerImagePath(), "");
  EXPECT_EQ(edited().headerImage(), nullptr);
  EXPECT_TRUE(caption_->gestureRecognizers().empty());
  EXPECT_TRUE(device_.files().fileExistsAtPath(kFile));
  EXPECT_TRUE(canSave());
}

TEST_F(EditorPicture, TheControlsShowItAtOnce) {
  editWithControls(GroupBuilder(7, "Family"));
  const auto image = picture();
  editor_->updateProfileImage(image);
  EXPECT_EQ(button_->imageForState(kControlStateNormal), image);
  EXPECT_EQ(caption_->frame(), CGRectMake(20, 86, 70, 15));
  EXPECT_EQ(caption_->text(), "edit");
  EXPECT_EQ(caption_->numberOfLines(), 1);
  editor_->updateProfileImage(nullptr);
  EXPECT_EQ(button_->imageForState(kControlStateNormal), nullptr);
  EXPECT_EQ(caption_->frame(), CGRectMake(25, 20, 60, 60));
  EXPECT_EQ(caption_->text(), "add photo");
  EXPECT_EQ(caption_->numberOfLines(), 2);
  settleAll();
}

// Kept: one more each time.
TEST_F(EditorPicture, EachPictureAddsAWayToTheMenu) {
  answerByMessage(true);
  for (const char* version : {"11.4", "12.0"}) {
    editWithControls(GroupBuilder(7, "Family"));
    device_.device().setSystemVersion(version);
    const std::size_t before = caption_->gestureRecognizers().size();
    set(picture());
    set(picture());
    EXPECT_EQ(caption_->gestureRecognizers().size(), before + 2) << version;
  }
  caption_->setFrame(CGRectMake(0, 0, 30, 30));
  tap(*window_, *caption_);
  settle();
  EXPECT_NE(alert(), nullptr);
}

TEST_F(EditorPicture, NothingIsDoneToTheGroupBeforeTheBackgroundRan) {
  edit(group(GroupBuilder(7, "Family")));
  editor_->updateProfileImage(picture());
  device_.dispatch().runMain();
  EXPECT_EQ(edited().headerImagePath(), "");
  EXPECT_FALSE(canSave());
  EXPECT_EQ(device_.dispatch().waitingGlobal(QueuePriority::kDefault), 1U);
}

TEST_F(EditorPicture, TheScreenMayGoWhileItsPictureIsStored) {
  for (const char* version : {"11.4", "12.0"}) {
    edit(group(GroupBuilder(7, "Family")));
    device_.device().setSystemVersion(version);
    const ZephylRef zephyl = editor_->zephyl();
    editor_->updateProfileImage(picture());
    navigation_->popViewControllerAnimated(/*animated=*/false);
    const std::weak_ptr<UIViewController> weak = editor_;
    editor_ = nullptr;
    settle();
    EXPECT_TRUE(weak.expired()) << version;
    settleAll();
    EXPECT_EQ(zephyl->headerImagePath(), "7.png") << version;
  }
}

TEST_F(EditorPicture, TheMenuKeepsNoEditor) {
  edit(group(GroupBuilder(7, "Family")));
  openMenu();
  const auto held = alert();
  navigation_->dismissViewControllerAnimated(/*animated=*/false);
  navigation_->popViewControllerAnimated(/*animated=*/false);
  settle();
  const std::weak_ptr<UIViewController> weak = editor_;
  editor_ = nullptr;
  EXPECT_TRUE(weak.expired());
  held->actions().front()->perform();
  settleAll();
  EXPECT_EQ(picker(), nullptr);
}

}  // namespace
}  // namespace zephyl::test
