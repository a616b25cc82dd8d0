// The picker of people on a device of Linux with a screen: from a file of vCards to Done.

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Host.h"
#include "platform/foundation/Collation.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UILabel.h"

#include "apps/common/UserData.h"
#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/screen/EventLoop_testing.h"
#include "hosts/linux/screen/LinuxUIKit.h"
#include "ui/people/SectionsText_testing.h"
#include "ui/people/ZLPeoplePickerViewController.h"

namespace zephyl::app {
namespace {

constexpr char kCards[] =
    "BEGIN:VCARD\nVERSION:3.0\nN:Reed;Ann;;;\nFN:Ann Reed\nTEL:1\nEND:VCARD\n"
    "BEGIN:VCARD\nVERSION:3.0\nN:\u00c4rm;\u00c9lise;;;\nFN:\u00c9lise "
    "\u00c4rm\nTEL:2\nEND:VCARD\n";

constexpr char kListed[] = "A:\u00c9lise \u00c4rm R:Ann Reed";

class Returned : public ZLPeoplePickerViewControllerDelegate {
 public:
  void didReturnWithSelectedPeople(ZLPeoplePickerViewController& /*picker*/,
                                   const MemberSet& selected) override {
    people = selected;
  }
  std::optional<MemberSet> people;
};

class PeoplePickerOnLinux : public ::testing::Test {
 protected:
  PeoplePickerOnLinux() {
    folder_.put("/people.vcf", kCards);
    std::filesystem::create_directory(folder_.path() + "/device");
    places_.contacts = {folder_.path() + "/people.vcf"};
    places_.device = folder_.path() + "/device";
    data_.emplace(places_,
                  UserData::Reports{[this](const std::string& message) { bad_.push_back(message); },
                                    [](const std::string&, const std::vector<std::string>&) {}});
  }
  ~PeoplePickerOnLinux() override { stop(); }
  void start(const SourceOptions& sources = {}) {
    data_->readPeople();
    linux_host::DeviceOptions options;
    options.deviceRoot = places_.device.string();
    options.uikit = std::make_unique<linux_host::LinuxUIKit>(linux_host::UIKitOptions());
    data_->serveBy(options, sources);
    device_.emplace(std::move(options));
    install(*device_);
    window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
    window_->setRootViewController(root_);
  }
  void stop() {
    picker_ = nullptr;
    window_ = nullptr;
    root_ = std::make_shared<UIViewController>();
    if (device_) {
      uninstall();
      device_.reset();
    }
  }
  void present() {
    picker_ =
        ZLPeoplePickerViewController::presentPeoplePickerViewControllerForParentViewController(
            root_, MemberSet());
    picker_->setDelegate(returned_);
    picker_->setFiledMask(APContactFieldAll);
    picker_->setNumberOfSelectedPeople(-1);
  }
  PeoplePickerOnLinux(const PeoplePickerOnLinux&) = delete;
  PeoplePickerOnLinux& operator=(const PeoplePickerOnLinux&) = delete;

  std::shared_ptr<UITableViewCell> cellOf(const std::string& name) {
    for (auto* const cell : test::viewsOf<UITableViewCell>(*picker_->tableView())) {
      if (cell->textLabel()->text() == name) {
        return std::static_pointer_cast<UITableViewCell>(cell->shared_from_this());
      }
    }
    return nullptr;
  }
  std::string listed() {
    return test::namesIn(picker_->partitionedContacts(), host().collation().sectionTitles());
  }
  bool waitFor(const std::function<bool()>& condition) {
    return linux_host::runUntil([&] {
      window_->layoutWindow();
      return condition();
    });
  }
  bool isTicked(const std::string& name) {
    const auto cell = cellOf(name);
    return cell != nullptr && cell->accessoryType() == UITableViewCellAccessoryType::kCheckmark;
  }

  contract::TemporaryFolder folder_;
  Places places_;
  std::vector<std::string> bad_;
  std::optional<UserData> data_;
  std::optional<linux_host::LinuxDevice> device_;
  std::shared_ptr<UIViewController> root_ = std::make_shared<UIViewController>();
  std::shared_ptr<UIWindow> window_;
  std::shared_ptr<ZLPeoplePickerViewController> picker_;
  std::shared_ptr<Returned> returned_ = std::make_shared<Returned>();
};

TEST_F(PeoplePickerOnLinux, PeopleOfAFileAreTickedByTapAndHandedBack) {
  start();
  present();
  ASSERT_TRUE(waitFor([&] { return cellOf("Ann Reed") != nullptr && picker_->hasAppeared(); }));
  ASSERT_NE(cellOf("\u00c9lise \u00c4rm"), nullptr);
  EXPECT_EQ(picker_->titleForHeaderInSection(*picker_->tableView(), 0), "A");
  const auto cell = cellOf("\u00c9lise \u00c4rm");
  test::tap(*window_, cell->convertPointToView({60, cell->bounds().midY()}, nullptr));
  ASSERT_TRUE(waitFor([&] { return isTicked("\u00c9lise \u00c4rm"); }));
  EXPECT_FALSE(isTicked("Ann Reed"));
  EXPECT_TRUE(picker_->navigationItem()->leftBarButtonItem()->performAction());
  ASSERT_TRUE(returned_->people);
  ASSERT_EQ(returned_->people->size(), 1U);
  EXPECT_TRUE(returned_->people->contains(std::int64_t{data_->people()[1]->recordID}));
  EXPECT_TRUE(waitFor([&] { return root_->presentedViewController() == nullptr; }));
}

TEST_F(PeoplePickerOnLinux, SectionsAreByTheNameThatIsAskedFor) {
  struct Case {
    ABPersonSortOrdering ordering;
    const char* sections;
  };
  for (const Case& each :
       {Case{ABPersonSortOrdering::kByLastName, kListed},
        Case{ABPersonSortOrdering::kByFirstName, "A:Ann Reed E:\u00c9lise \u00c4rm"}}) {
    SourceOptions sources;
    sources.sortNames = each.ordering;
    start(sources);
    present();
    ASSERT_TRUE(waitFor([&] { return cellOf("Ann Reed") != nullptr; }));
    EXPECT_EQ(listed(), each.sections);
    stop();
  }
}

TEST_F(PeoplePickerOnLinux, ItMayGoWhileALoadRunsAndIsReleased) {
  start();
  for (int time = 0; time < 5; ++time) {
    present();
    ASSERT_TRUE(waitFor([&] { return picker_->hasAppeared(); }));
    bool ended = false;
    picker_->reloadData([&](bool success) { ended = success; });
    root_->dismissViewControllerAnimated(/*animated=*/false);
    const std::weak_ptr<UIViewController> weak = picker_;
    picker_ = nullptr;
    EXPECT_TRUE(waitFor([&] { return ended && weak.expired(); }));
  }
}

TEST_F(PeoplePickerOnLinux, WithoutAccessFromTheStartItIsEmptyUntilTheFileIsThere) {
  std::filesystem::remove(folder_.path() + "/people.vcf");
  start();
  data_->watchPeople();
  present();
  std::optional<bool> success;
  picker_->reloadData([&](bool loaded) { success = loaded; });
  ASSERT_TRUE(waitFor([&] { return success.has_value() && picker_->hasAppeared(); }));
  EXPECT_FALSE(*success);
  EXPECT_EQ(listed(), "");
  folder_.put("/people.vcf", kCards);
  EXPECT_TRUE(waitFor([&] { return listed() == kListed; })) << listed();
}

TEST_F(PeoplePickerOnLinux, WhenASourceFailsItsPeopleStayListedAndTicked) {
  start();
  data_->watchPeople();
  present();
  ASSERT_TRUE(waitFor([&] { return cellOf("Ann Reed") != nullptr; }));
  picker_->selectedPeople()->add(std::int64_t{data_->people()[0]->recordID});
  std::filesystem::remove(folder_.path() + "/people.vcf");
  EXPECT_TRUE(waitFor([&] { return !bad_.empty(); }));
  std::optional<bool> success;
  picker_->reloadData([&](bool loaded) { success = loaded; });
  ASSERT_TRUE(waitFor([&] { return success.has_value(); }));
  EXPECT_TRUE(*success);
  EXPECT_EQ(listed(), kListed);
  EXPECT_TRUE(isTicked("Ann Reed"));
}

}  // namespace
}  // namespace zephyl::app
