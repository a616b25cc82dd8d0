// The group's picture: the menu, picking one, and storing it.

#include <utility>

#include "platform/Host.h"
#include "platform/appsupport/CPDistributedMessagingCenter.h"
#include "platform/foundation/Dispatch.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSKeyedArchive.h"
#include "platform/foundation/SystemLog.h"
#include "platform/uikit/UIDevice.h"
#include "platform/uikit/controllers/UIAlertController.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/gestures/UITapGestureRecognizer.h"
#include "platform/uikit/text/UILabel.h"

#include "model/ZPLocalizedText.h"
#include "model/ZephylKeys.h"
#include "services/UIViewControllerZephyls.h"
#include "services/ZPUtils.h"
#include "ui/editor/ZephylViewController.h"

namespace zephyl {

namespace {

// Whom to tell that a picture could not be stored, as the error ends. A placeholder: the domain is
// reserved and nobody reads there; whoever ships the library puts the address of their support
// here.
constexpr char kSupportAddress[] = "support@vantor.example";

// Of the caption, without and with a picture.
constexpr CGRect kAddCaption{{25, 20}, {60, 60}};
constexpr CGRect kEditCaption{{20, 86}, {70, 15}};

std::string pathOfPicture(const std::string& name) {
  return std::string(kGroupPicturesDirectory).append("/").append(name);
}

// By the system shell, which owns the pictures from version 12 on. Whether it did.
bool sendPicture(const UIImage& image, const std::string& path) {
  // Only files travel.
  const UIImage file(image.file().empty() ? UIImagePNGRepresentation(image) : image.file());
  const Dictionary picture{{kSaveImageKey, archivableImage(file)}, {kSaveImagePathKey, path}};
  const Dictionary userInfo{{kServiceMessageData, archivedData(picture)}};
  const auto reply = host().messagingCenter().sendMessageAndReceiveReplyName(
      kZephylsMessageCenter, kSaveImageMessage, &userInfo);
  return reply && (*reply)[kServiceMessageData].boolValue();
}

// The description of the error that is to be shown; nothing when the folder is there, and an empty
// one when it is not and nobody knows why.
std::optional<std::string> makePicturesDirectory() {
  NSError error;
  if (host().files().fileExistsAtPath(kGroupPicturesDirectory) ||
      host().files().createDirectoryAtPath(kGroupPicturesDirectory, &error)) {
    return std::nullopt;
  }
  if (error == NSError()) {
    return std::string();
  }
  constexpr int kLine = 250;
  logError("error creating directory: " + error.description(),
           "-[ZephylViewController updateProfileImage:]_block_invoke", kLine);
  return error.localizedDescription();
}

void pickPicture(const std::shared_ptr<ZephylViewController>& screen, UIImagePickerSource source) {
  host().dispatch().mainAsync([weak = std::weak_ptr(screen), source] {
    const auto shown = weak.lock();
    if (shown == nullptr) {
      return;
    }
    const auto picker = std::make_shared<UIImagePickerController>();
    picker->setSourceType(source);
    picker->setDelegate(std::shared_ptr<UIImagePickerControllerDelegate>(shown, shown.get()));
    shown->presentViewController(picker, /*animated=*/true);
  });
}

}  // namespace

// A picture on its way to where it is kept. Made on the main thread and used in the background,
// where it holds the group but never the screen, which must end on the main thread: whatever
// concerns either of them is done there, in the order of the calls.
struct ZephylViewController::Picture {
  using Screen = std::shared_ptr<ZephylViewController>;

  void store(const UIImageRef& image) const;
  // Whether the work goes on.
  [[nodiscard]] bool write(const UIImage& image) const;
  void send(const UIImage& image) const;
  void remove() const;

  template <class Act>
  void onMain(Act act) const {
    host().dispatch().mainAsync([task = *this, act] {
      // The screen may have gone on with a copy.
      const Screen shown = task.screen.lock();
      act(shown == nullptr ? *task.group : *shown->zephyl_, shown);
    });
  }
  void nameIt() const {
    // Kept: the picture that the group itself holds on to is not replaced.
    onMain([name = name](Zephyl& named, const Screen&) { named.setHeaderImagePath(name); });
  }
  void showError(const std::string& text) const {
    onMain([text](Zephyl&, const Screen& shown) { zp__showError(shown, text); });
  }

  static void showIn(UIView& view, const UIImageRef& image);
  static void removeMenuGestures(UIView& caption);
  static void addMenuGesture(const Screen& shown, UIView& caption);

  std::weak_ptr<ZephylViewController> screen;
  ZephylRef group;
  std::string name;
};

void ZephylViewController::addORChangeGroupImage() {
  const auto menu = UIAlertController::alertControllerWithTitle(
      /*title=*/"", /*message=*/"", UIAlertControllerStyle::kActionSheet);
  // The menu has gone when an answer to it runs.
  const auto add =
      [&menu, weak = weakSelf()](
          const std::string& title,
          const std::function<void(const std::shared_ptr<ZephylViewController>&)>& act) {
        menu->addAction(UIAlertAction::actionWithTitle(title, UIAlertActionStyle::kDefault,
                                                       [weak, act](UIAlertAction&) {
                                                         if (const auto self = weak.lock()) {
                                                           act(self);
                                                         }
                                                       }));
      };
  add(zpLocalizedText("Take Photo"),
      [](const auto& self) { pickPicture(self, UIImagePickerSource::kCamera); });
  add(zpLocalizedText("Choose Photo"),
      [](const auto& self) { pickPicture(self, UIImagePickerSource::kPhotoLibrary); });
  const std::string& name = zephyl_->headerImagePath();
  if (!name.empty() && host().files().fileExistsAtPath(pathOfPicture(name))) {
    add(zpLocalizedText("Delete Photo"),
        [](const auto& self) { self->updateProfileImage(nullptr); });
  }
  menu->addAction(UIAlertAction::actionWithTitle(zpLocalizedText("Cancel"),
                                                 UIAlertActionStyle::kCancel, nullptr));
  presentViewController(menu, /*animated=*/true);
}

void ZephylViewController::didFinishPickingMediaWithInfo(UIImagePickerController& picker,
                                                         const UIImagePickerInfo& info) {
  // Kept: on other devices the picker stays until the user closes it.
  if (host().device().userInterfaceIdiom() == UIUserInterfaceIdiom::kPhone) {
    picker.dismissViewControllerAnimated(/*animated=*/true);
  }
  updateProfileImage(info.originalImage);
}

void ZephylViewController::updateProfileImage(const UIImageRef& image) {
  Picture::showIn(*view(), image);
  const Picture task{weakSelf(), zephyl_, std::to_string(zephyl_->identifier()) + ".png"};
  host().dispatch().globalAsync(QueuePriority::kDefault, [task, image] { task.store(image); });
}

void ZephylViewController::Picture::store(const UIImageRef& image) const {
  if (image == nullptr) {
    remove();
  } else if (ZPUtils::isIOS12()) {
    send(*image);
  } else if (!write(*image)) {
    return;
  }
  onMain([hasPicture = image != nullptr](Zephyl&, const Screen& shown) {
    if (shown == nullptr) {
      return;
    }
    if (const auto caption = shown->view()->viewWithTag(kPictureCaptionTag)) {
      hasPicture ? addMenuGesture(shown, *caption) : removeMenuGestures(*caption);
    }
    shown->updateNavigationBarItems();
  });
}

// Kept: the file stays.
void ZephylViewController::Picture::remove() const {
  onMain([](Zephyl& changed, const Screen&) {
    changed.setHeaderImagePath("");
    changed.setHeaderImage(nullptr);
  });
}

void ZephylViewController::Picture::send(const UIImage& image) const {
  // Kept: named before it is known whether it could be stored.
  nameIt();
  if (!sendPicture(image, pathOfPicture(name))) {
    showError(zpLocalizedText("Unable to set the image to group. Please report the problem to")
                  .append(" '")
                  .append(kSupportAddress)
                  .append("'."));
  }
}

bool ZephylViewController::Picture::write(const UIImage& image) const {
  if (const auto problem = makePicturesDirectory()) {
    if (!problem->empty()) {
      showError(*problem);
    }
    return false;
  }
  nameIt();
  // Kept: nobody is told when it cannot be stored.
  if (const Data png = UIImagePNGRepresentation(image); !png.empty()) {
    host().files().writeToFileAtomically(pathOfPicture(name), {png.begin(), png.end()});
  }
  return true;
}

void ZephylViewController::Picture::showIn(UIView& view, const UIImageRef& image) {
  if (const auto button = std::dynamic_pointer_cast<UIButton>(view.viewWithTag(kPictureTag))) {
    button->setImage(image, kControlStateNormal);
  }
  const auto caption = view.viewWithTag(kPictureCaptionTag);
  if (caption == nullptr) {
    return;
  }
  const bool isThere = image != nullptr;
  caption->setFrame(isThere ? kEditCaption : kAddCaption);
  if (const auto label = std::dynamic_pointer_cast<UILabel>(caption)) {
    label->setText(isThere ? zpLocalizedText("edit") : zpLocalizedText("add photo"));
    label->setNumberOfLines(isThere ? 1 : 2);
  }
}

void ZephylViewController::Picture::removeMenuGestures(UIView& caption) {
  const auto recognizers = caption.gestureRecognizers();
  for (const auto& recognizer : recognizers) {
    caption.removeGestureRecognizer(recognizer);
  }
}

// Kept: one more each time a picture is set.
void ZephylViewController::Picture::addMenuGesture(const Screen& shown, UIView& caption) {
  caption.addGestureRecognizer(std::make_shared<UITapGestureRecognizer>(
      [weak = std::weak_ptr(shown)](const UIGestureRecognizer& recognizer) {
        const auto self = weak.lock();
        if (self != nullptr && recognizer.state() == UIGestureRecognizerState::kEnded) {
          self->addORChangeGroupImage();
        }
      }));
}

}  // namespace zephyl
