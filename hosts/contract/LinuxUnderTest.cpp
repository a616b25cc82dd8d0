#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include <sys/stat.h>

#include "hosts/common/FilteredConversationList.h"
#include "hosts/contract/BusUnderTest.h"
#include "hosts/contract/DeviceUnderTest.h"
#include "hosts/contract/TemporaryFolder.h"
#include "hosts/fake/FakeSystem.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/MessageServer.h"
#include "hosts/linux/sources/LinuxAddressBook.h"

namespace zephyl::contract {

namespace {

using linux_host::DeviceOptions;
using linux_host::LinuxDevice;
using linux_host::ScriptedAuthentication;

// A log that outlives the device, which owns only this way to it.
class ForwardedLog : public SystemLog {
 public:
  explicit ForwardedLog(SystemLog& target) : target_(target) {}
  void log(const std::string& line) override { target_.log(line); }

 private:
  SystemLog& target_;
};

class LinuxUnderTest : public DeviceUnderTest {
 public:
  // With a bus, messages and notifications go over it.
  explicit LinuxUnderTest(std::unique_ptr<BusUnderTest> bus = nullptr) : bus_(std::move(bus)) {
    start();
  }
  ~LinuxUnderTest() override { stop(); }
  LinuxUnderTest(const LinuxUnderTest&) = delete;
  LinuxUnderTest& operator=(const LinuxUnderTest&) = delete;

  Host& host() override { return *device_; }

  void settle() override { EXPECT_TRUE(device_->queues().runMainUntilIdle()); }

  // What is waited for may happen on any thread and cause no event, so the time is also cut up.
  bool passTimeUntil(const std::function<bool()>& condition) override {
    constexpr int kTries = 3000;
    for (int i = 0; i < kTries && !condition(); ++i) {
      device_->queues().runMainUntil(condition, std::chrono::milliseconds(10));
    }
    return condition();
  }

  std::string makeUnreadableFile() override { return makeFifo("/unreadable"); }
  std::string unwritableFile() override { return makeFifo("/unwritable"); }

  void makeLink(const std::string& path, const std::string& target) override {
    std::filesystem::create_symlink(root_.path() + target, root_.path() + path);
  }

  void answer(const std::string& center, const std::string& name, Handler handler) override {
    if (bus_ != nullptr) {
      bus_->answer(center, name, handler);
    } else {
      device_->messageServers().setHandler(center, name, std::move(handler));
    }
  }

  void setBiometrics(Biometrics biometrics) override {
    biometrics_ = biometrics;
    restart();
  }
  void endChecks() override {}

  void setPeople(std::vector<ABPersonRef> people) override {
    people_->setPeople(std::move(people));
  }
  void setAuthorizationStatus(ABAuthorizationStatus status) override {
    people_->setAuthorizationStatus(status);
  }

  FilteredConversationList& conversations() override {
    if (!hasConversations_) {
      hasConversations_ = true;
      restart();
    }
    return *conversations_;
  }

  void setSystemVersion(const std::string& version) override {
    systemVersion_ = version;
    restart();
  }

  std::vector<std::string> log() override { return log_.lines(); }

 private:
  void start() {
    DeviceOptions options;
    options.deviceRoot = root_.path();
    options.systemVersion = systemVersion_;
    options.systemLog = std::make_unique<ForwardedLog>(log_);
    options.hasBiometrics = biometrics_ != Biometrics::kNone;
    if (biometrics_ == Biometrics::kRecognizes) {
      options.authenticate = [](const ScriptedAuthentication::Question&) { return std::nullopt; };
    }
    people_ = std::make_shared<linux_host::LinuxAddressBook>(std::vector<ABPersonRef>());
    people_->setAdder([book = people_.get()](const ABPerson& person, NSError& /*error*/) {
      auto people = book->copyArrayOfAllPeople();
      auto added = std::make_shared<ABPerson>(person);
      added->recordID = people.empty() ? 1 : people.back()->recordID + 1;
      people.push_back(added);
      book->setPeople(std::move(people));
      return added;
    });
    options.addressBook = people_;
    if (hasConversations_) {
      auto list = std::make_unique<FilteredConversationList>();
      conversations_ = list.get();
      options.conversationList = std::move(list);
    }
    if (bus_ != nullptr) {
      bus_->serve(options);
    }
    device_.emplace(std::move(options));
    install(*device_);
  }
  void stop() {
    uninstall();
    device_.reset();
  }
  void restart() {
    stop();
    start();
  }

  // Even the superuser gets nothing out of it and nothing into it.
  std::string makeFifo(const std::string& path) {
    EXPECT_EQ(::mkfifo((root_.path() + path).c_str(), 0600), 0);
    return path;
  }

  const std::unique_ptr<BusUnderTest> bus_;
  TemporaryFolder root_;
  fake::FakeSystemLog log_;
  Biometrics biometrics_ = Biometrics::kNone;
  std::string systemVersion_ = "14.0";
  std::shared_ptr<linux_host::LinuxAddressBook> people_;
  bool hasConversations_ = false;
  FilteredConversationList* conversations_ = nullptr;  // the device's
  std::optional<LinuxDevice> device_;
};

}  // namespace

DeviceMaker linuxDeviceMaker() {
  return {"Linux", [] { return std::make_unique<LinuxUnderTest>(); }};
}

DeviceMaker linuxOverBusDeviceMaker() {
  return {"LinuxOverBus",
          [] { return std::make_unique<LinuxUnderTest>(std::make_unique<BusUnderTest>()); }};
}

}  // namespace zephyl::contract
