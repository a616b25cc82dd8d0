// A group is made in the list of groups by taps and typing alone, from the add button to the row in
// the list, while the system shell is the process that it is for the user.

#include <array>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/UIWindow.h"

#include "apps/common/GroupsNavigationController.h"
#include "apps/springboard/ShellTest.h"
#include "apps/springboard/TestPictures.h"
#include "apps/zephyls/render/Script.h"
#include "hosts/common/FilteredConversationList.h"
#include "hosts/fake/FakePhoneBook.h"
#include "hosts/fake/uikit/FakeUIKit.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/LinuxDispatch.h"
#include "store/ZephylsDataController.h"
#include "ui/editor/ZephylViewController.h"
#include "ui/groups/ZephylsViewController.h"

namespace zephyl::app::test {
namespace {

using render::Script;
using render::ScriptStep;
using Kind = ScriptStep::Kind;
using Texts = std::vector<std::string>;

struct Device {
  std::string version;
  UIUserInterfaceIdiom idiom = UIUserInterfaceIdiom::kPhone;
};

class GroupStory : public ShellTest, public ::testing::WithParamInterface<Device> {
 protected:
  GroupStory() : shell_(start()) {
    // As in a window of the desktop.
    uikit_->screen().setSafeAreaInsets({});
    if (GetParam().idiom == UIUserInterfaceIdiom::kPad) {
      uikit_->screen().setBounds(CGRectMake(0, 0, 810, 1080));
    }
    makeDevice();
    install(*user_);
    ZephylsDataController::sharedInstance()->createDefaultGroups();
    window_ = std::make_shared<UIWindow>(uikit_->screen().bounds());
    showList();
  }
  ~GroupStory() override {
    list_ = nullptr;
    window_ = nullptr;
    user_->queues().stop();
    uninstall();
  }

  void makeDevice() {
    linux_host::DeviceOptions options;
    options.deviceRoot = device_;
    options.systemVersion = GetParam().version;
    options.userInterfaceIdiom = GetParam().idiom;
    options.hasBiometrics = true;
    options.makeMessagingCenter = [this](CPDistributedMessagingCenter&, SystemLog& log) {
      return std::make_unique<linux_host::BusMessagingCenter>(connection_, address_.center, log);
    };
    auto book = std::make_shared<fake::FakeAddressBook>();
    book->setPeople({person(1, "Ada", "Oak"), person(2, "Robin", "Vale")});
    options.addressBook = book;
    auto conversations = std::make_unique<FilteredConversationList>();
    conversations->setConversations({team_});
    conversations->setShows([](const ZephylRef& group, const CKConversationRef& one) {
      return ZephylsDataController::sharedInstance()->isConversationMemberOfGroup(
          group, one, host().addressBook());
    });
    options.conversationList = std::move(conversations);
    options.uikit = std::move(owned_);
    user_ = std::make_unique<linux_host::LinuxDevice>(std::move(options));
  }
  static ABPersonRef person(std::int32_t recordID, const std::string& first,
                            const std::string& last) {
    auto made = std::make_shared<ABPerson>();
    made->recordID = recordID;
    made->firstName = first;
    made->lastName = last;
    made->compositeName = first + " " + last;
    return made;
  }
  static CKConversationRef conversation() {
    CKConversation::Facts facts;
    facts.guid = "iMessage;+;team";
    facts.name = "Rowing team";
    facts.isGroupConversation = true;
    return std::make_shared<CKConversation>(std::move(facts));
  }
  void showList() {
    list_ = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain);
    delegate_->zp__addNewGroup = addingNewGroup(list_);
    list_->setZephylsDelegate(delegate_);
    window_->setRootViewController(GroupsNavigationController::initWithRootViewController(list_));
    settle();
  }

  void settle() {
    for (int round = 0; round < 5; ++round) {
      window_->layoutWindow();
      EXPECT_TRUE(user_->queues().runMainUntilIdle());
      finishAllAnimations();
      uikit_->displayLink().runUntilIdle();
    }
    window_->layoutWindow();
  }
  void play(Kind kind, const std::string& text) {
    Script({*window_, [this] { return uikit_->textInput().client(); }, [this] { settle(); }})
        .run({{kind, text}});
  }
  void tap(const Texts& names) {
    for (const std::string& name : names) {
      play(Kind::kTap, name);
    }
  }
  // The library makes no control for it: an app's would send this.
  void pickPicture() {
    const auto shown = std::dynamic_pointer_cast<UINavigationController>(
        list_->navigationController()->presentedViewController());
    ASSERT_NE(shown, nullptr);
    const auto editor = std::dynamic_pointer_cast<ZephylViewController>(shown->topViewController());
    ASSERT_NE(editor, nullptr);
    editor->addORChangeGroupImage();
    settle();
    tap({"Choose Photo"});
    EXPECT_TRUE(uikit_->imagePicker().answer(
        std::make_shared<const UIImage>(zephyl::test::fileOf(zephyl::test::noise(8, 8), "PNG"))));
    settle();
    if (const auto picker = shown->presentedViewController()) {
      // Kept: on a pad it stays until the user closes it.
      EXPECT_EQ(GetParam().idiom, UIUserInterfaceIdiom::kPad);
      picker->dismissViewControllerAnimated(/*animated=*/false);
      settle();
    }
  }
  // In the file, where the shell or the library put it.
  [[nodiscard]] Dictionary stored(const std::string& title) const {
    const PropertyListResult list = readPropertyList(contentOf(device_ + kGroupsFilePath));
    if (!list.ok() || list.value().ifArray() == nullptr) {
      return {};
    }
    for (const Value& each : *list.value().ifArray()) {
      const Dictionary* const group = each.ifDictionary();
      if (group != nullptr && (*group)[keys::kTitle] == Value(title)) {
        return *group;
      }
    }
    return {};
  }

  std::unique_ptr<ChildProcess> shell_;
  std::unique_ptr<fake::FakeUIKit> owned_ = std::make_unique<fake::FakeUIKit>();
  fake::FakeUIKit* const uikit_ = owned_.get();
  const CKConversationRef team_ = conversation();
  std::unique_ptr<linux_host::LinuxDevice> user_;
  std::shared_ptr<UIWindow> window_;
  std::shared_ptr<ZephylsViewControllerDelegate> delegate_ =
      std::make_shared<ZephylsViewControllerDelegate>();
  std::shared_ptr<ZephylsViewController> list_;
};

TEST_P(GroupStory, FromTheAddButtonToTheRowInTheList) {
  tap({"Add", "Title"});
  play(Kind::kType, "Rowing");
  tap({"Marker Color", "Brightness", "Hue", "Done"});
  pickPicture();
  tap({"Add Contacts", "Ada Oak", "Done"});
  tap({"Conversations", "Add Conversations", "Rowing team", "Done"});
  tap({"Save"});
  EXPECT_EQ(list_->navigationController()->presentedViewController(), nullptr);
  ASSERT_TRUE(list_->zephylsDict().contains(kUserSectionKey));
  const ZephylVector& shown = list_->zephylsDict().at(kUserSectionKey);
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_EQ(shown.front()->title(), "Rowing");

  const Dictionary group = stored("Rowing");
  const std::string picture = std::to_string(shown.front()->identifier()) + ".png";
  EXPECT_EQ(group[keys::kHeaderImagePath], Value(picture));
  EXPECT_TRUE(std::filesystem::exists(device_ + kGroupPicturesDirectory + "/" + picture));
  const std::string* const marker = group[keys::kMarkerCode].ifString();
  ASSERT_NE(marker, nullptr);
  EXPECT_EQ(marker->size(), 8U);
  EXPECT_NE(*marker, "000000ff");
  EXPECT_EQ(shown.front()->contacts()->size(), 2U);
  EXPECT_TRUE(shown.front()->contacts()->contains(Member(std::int64_t{1})));
  EXPECT_TRUE(shown.front()->contacts()->contains(Member("iMessage;+;team")));
}

constexpr std::array kVersions = {"6.1",  "8.0",  "8.3",  "9.3", "10.3",
                                  "11.4", "12.4", "13.4", "14.0"};

std::vector<Device> allDevices() {
  std::vector<Device> devices;
  devices.reserve(2 * kVersions.size());
  for (const char* const version : kVersions) {
    devices.push_back({version, UIUserInterfaceIdiom::kPhone});
    devices.push_back({version, UIUserInterfaceIdiom::kPad});
  }
  return devices;
}

std::string nameOf(const ::testing::TestParamInfo<Device>& info) {
  std::string name = info.param.idiom == UIUserInterfaceIdiom::kPad ? "Pad" : "Phone";
  name.append(info.param.version);
  name.replace(name.find('.'), 1, "_");
  return name;
}

INSTANTIATE_TEST_SUITE_P(Devices, GroupStory, ::testing::ValuesIn(allDevices()), nameOf);

}  // namespace
}  // namespace zephyl::app::test
