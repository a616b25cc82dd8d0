// A device that the contract suites run against, with what a test needs beyond the seams. The
// thread that makes one is its main thread.

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Host.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/foundation/Dictionary.h"

namespace zephyl {
class FilteredConversationList;
}

namespace zephyl::contract {

enum class Biometrics { kNone, kRecognizes, kDenies };

class DeviceUnderTest {
 public:
  using Handler = std::function<std::optional<Dictionary>(const Dictionary* userInfo)>;

  virtual ~DeviceUnderTest() = default;

  [[nodiscard]] virtual Host& host() = 0;

  // Runs everything that waits on any queue, but for delayed tasks.
  virtual void settle() = 0;
  // Lets time pass until the condition holds; false when it never does.
  [[nodiscard]] virtual bool passTimeUntil(const std::function<bool()>& condition) = 0;

  // A file that is there and cannot be read, and one that can be neither made nor written.
  [[nodiscard]] virtual std::string makeUnreadableFile() = 0;
  [[nodiscard]] virtual std::string unwritableFile() = 0;

  // Makes a symbolic link in a folder that is there, to another path of the device.
  virtual void makeLink(const std::string& path, const std::string& target) = 0;

  // Serves a message.
  virtual void answer(const std::string& center, const std::string& name, Handler handler) = 0;

  virtual void setBiometrics(Biometrics biometrics) = 0;
  // Ends the checks that wait for an answer, where the device does not so by itself.
  virtual void endChecks() = 0;

  // Who is in the address book; those there were go. With a status, whether one may look.
  virtual void setPeople(std::vector<ABPersonRef> people) = 0;
  virtual void setAuthorizationStatus(ABAuthorizationStatus status) = 0;
  // What fills the conversation list; for Linux a new device, which has one.
  [[nodiscard]] virtual FilteredConversationList& conversations() = 0;

  virtual void setSystemVersion(const std::string& version) = 0;

  // The lines of the system log so far.
  [[nodiscard]] virtual std::vector<std::string> log() = 0;
};

struct DeviceMaker {
  std::string name;
  std::function<std::unique_ptr<DeviceUnderTest>()> make;

  friend void PrintTo(const DeviceMaker& maker, std::ostream* out) { *out << maker.name; }
};

[[nodiscard]] DeviceMaker fakeDeviceMaker();
[[nodiscard]] DeviceMaker linuxDeviceMaker();
[[nodiscard]] DeviceMaker linuxOverBusDeviceMaker();

// Every device of this build.
[[nodiscard]] std::vector<DeviceMaker> devicesUnderTest();

// And every way in which their messages and notifications go.
[[nodiscard]] std::vector<DeviceMaker> messagingDevicesUnderTest();

// The base of each suite: a fresh device a test.
class ContractTest : public ::testing::TestWithParam<DeviceMaker> {
 protected:
  [[nodiscard]] DeviceUnderTest& device() { return *device_; }
  [[nodiscard]] Host& host() { return device_->host(); }

 private:
  std::unique_ptr<DeviceUnderTest> device_ = GetParam().make();
};

// Runs the task on that many threads at once, each with its number from 0 on, and waits for them.
inline void onThreads(int count, const std::function<void(int)>& task) {
  std::vector<std::thread> threads;
  threads.reserve(static_cast<std::size_t>(count));
  for (int number = 0; number < count; ++number) {
    threads.emplace_back([&task, number] { task(number); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
}

[[nodiscard]] inline std::string nameOfMaker(const ::testing::TestParamInfo<DeviceMaker>& info) {
  return info.param.name;
}

}  // namespace zephyl::contract

// Runs a suite on every device.
#define ZEPHYLS_CONTRACT(suite) \
  INSTANTIATE_TEST_SUITE_P(EveryDevice, suite, ::testing::ValuesIn(devicesUnderTest()), nameOfMaker)
#define ZEPHYLS_MESSAGING_CONTRACT(suite)                                                        \
  INSTANTIATE_TEST_SUITE_P(EveryDevice, suite, ::testing::ValuesIn(messagingDevicesUnderTest()), \
                           nameOfMaker)
