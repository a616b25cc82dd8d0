#include <utility>

#include "hosts/contract/DeviceUnderTest.h"
#include "hosts/fake/Device.h"

namespace zephyl::contract {

namespace {

class FakeUnderTest : public DeviceUnderTest {
 public:
  Host& host() override { return device_; }

  void settle() override { device_.dispatch().runAll(); }

  bool passTimeUntil(const std::function<bool()>& condition) override {
    constexpr int kHours = 48;
    for (int hour = 0; hour < kHours && !condition(); ++hour) {
      device_.dispatch().advance(3600.0);
      settle();
    }
    return condition();
  }

  std::string makeUnreadableFile() override {
    device_.files().put("/unreadable", "secret");
    device_.files().failReading("/unreadable");
    return "/unreadable";
  }

  std::string unwritableFile() override {
    device_.files().failWriting("/unwritable");
    return "/unwritable";
  }

  void makeLink(const std::string& path, const std::string& /*target*/) override {
    device_.files().markAsLink(path);
  }

  void answer(const std::string& /*center*/, const std::string& name, Handler handler) override {
    device_.messagingCenter().setAnswer(name, std::move(handler));
  }

  void setBiometrics(Biometrics biometrics) override {
    biometrics_ = biometrics;
    device_.authentication().setAvailable(biometrics != Biometrics::kNone);
  }

  void endChecks() override {
    const NSError failed("com.apple.LocalAuthentication", -1);
    const bool recognizes = biometrics_ == Biometrics::kRecognizes;
    while (device_.authentication().isWaiting()) {
      device_.authentication().answer(recognizes, recognizes ? nullptr : &failed);
    }
  }

  void setPeople(std::vector<ABPersonRef> people) override {
    device_.people().setPeople(std::move(people));
  }
  void setAuthorizationStatus(ABAuthorizationStatus status) override {
    device_.people().setAuthorizationStatus(status);
  }
  FilteredConversationList& conversations() override { return device_.conversationList(); }

  void setSystemVersion(const std::string& version) override {
    device_.device().setSystemVersion(version);
  }

  std::vector<std::string> log() override { return device_.systemLog().lines(); }

 private:
  fake::Device device_;
  Biometrics biometrics_ = Biometrics::kNone;
};

}  // namespace

DeviceMaker fakeDeviceMaker() {
  return {"Fake", [] { return std::make_unique<FakeUnderTest>(); }};
}

}  // namespace zephyl::contract
