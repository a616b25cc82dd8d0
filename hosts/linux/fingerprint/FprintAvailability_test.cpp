#include <QByteArray>

#include "hosts/linux/fingerprint/FprintTest.h"

namespace zephyl::test {
namespace {

using linux_host::FprintAuthentication;
using linux_host::FprintOptions;

// Whether a check can be made on a bus with some service or none.
class FprintAvailabilityTest : public FprintTest {
 protected:
  // The code of the error; 0: a check can be made.
  static std::int64_t codeOf(FprintAuthentication& reader) {
    NSError error;
    const bool can = reader.canEvaluatePolicy(kPolicy, &error);
    EXPECT_EQ(can, error == NSError());
    EXPECT_EQ(error.domain(), can ? "" : "com.apple.LocalAuthentication");
    EXPECT_EQ(reader.canEvaluatePolicy(kPolicy, nullptr), can);
    return error.code();
  }

  std::int64_t codeWith(const FprintOptions& options) {
    FprintAuthentication reader(options);
    return codeOf(reader);
  }

  std::int64_t codeWith(FprintMock::Script script) {
    const FprintMock mock(bus_.address(), std::move(script));
    FprintOptions hurried = options();
    hurried.answerLimit = std::chrono::milliseconds(100);
    return codeWith(hurried);
  }
};

TEST_F(FprintAvailabilityTest, AReaderAndAFingerAreEnough) {
  const FprintMock mock(bus_.address());
  EXPECT_EQ(codeWith(options()), 0);
  EXPECT_EQ(mock.calls(), (Calls{"GetDefaultDevice()", "ListEnrolledFingers()"}));
}

TEST_F(FprintAvailabilityTest, WithoutABusThereIsNoReader) {
  FprintOptions nowhere = options();
  nowhere.busAddress = "unix:path=/nonexistent/bus";
  EXPECT_EQ(codeWith(nowhere), -6);
}

TEST_F(FprintAvailabilityTest, ABusThatHangsIsNoReader) {
  bus_.freeze();
  FprintOptions hurried = options();
  hurried.answerLimit = std::chrono::milliseconds(50);
  EXPECT_EQ(codeWith(hurried), -6);
  bus_.thaw();
}

TEST_F(FprintAvailabilityTest, WithoutAServiceThereIsNoReader) {
  EXPECT_EQ(codeWith(options()), -6);
}

TEST_F(FprintAvailabilityTest, WithoutADeviceThereIsNoReader) {
  EXPECT_EQ(codeWith({.errors = {{"GetDefaultDevice", "NoSuchDevice"}}}), -6);
}

TEST_F(FprintAvailabilityTest, WithoutPrintsNoneIsEnrolled) {
  EXPECT_EQ(codeWith({.errors = {{"ListEnrolledFingers", "NoEnrolledPrints"}}}), -7);
}

TEST_F(FprintAvailabilityTest, AnEmptyListOfFingersIsNoneEnrolled) {
  EXPECT_EQ(codeWith({.fingers = {}}), -7);
}

// To say no would open what the reader protects.
TEST_F(FprintAvailabilityTest, AReaderThatCannotBeUsedIsThere) {
  EXPECT_EQ(codeWith({.errors = {{"ListEnrolledFingers", "PermissionDenied"}}}), 0);
  EXPECT_EQ(codeWith({.errors = {{"GetDefaultDevice", "ItRains"}}}), 0);
  EXPECT_EQ(codeWith({.hangs = {"GetDefaultDevice"}}), 0);
  EXPECT_EQ(codeWith({.hangs = {"ListEnrolledFingers"}}), 0);
  EXPECT_EQ(codeWith({.nonsense = {"GetDefaultDevice"}}), 0);
  EXPECT_EQ(codeWith({.nonsense = {"ListEnrolledFingers"}}), 0);
}

TEST_F(FprintAvailabilityTest, TheBusOfTheEnvironmentIsUsedWhenNoneIsGiven) {
  const FprintMock mock(bus_.address());
  const QByteArray before = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
  qputenv("DBUS_SYSTEM_BUS_ADDRESS", QByteArray::fromStdString(bus_.address()));
  EXPECT_EQ(codeWith(FprintOptions()), 0);
  qputenv("DBUS_SYSTEM_BUS_ADDRESS", before);
}

TEST_F(FprintAvailabilityTest, AnAnswerIsKeptForASecond) {
  FprintMock mock(bus_.address());
  FprintAuthentication reader(options());
  EXPECT_EQ(codeOf(reader), 0);
  mock.setScript({.fingers = {}});
  EXPECT_EQ(codeOf(reader), 0);
  passSeconds(1);
  EXPECT_EQ(codeOf(reader), -7);
}

TEST_F(FprintAvailabilityTest, AnAnswerIsNotKeptPastACheck) {
  FprintMock mock(bus_.address(), {.results = {{"VerifyStart", {"verify-disconnected!"}}}});
  FprintAuthentication reader(options());
  EXPECT_EQ(codeOf(reader), 0);
  mock.setScript({.errors = {{"GetDefaultDevice", "NoSuchDevice"}}});
  EXPECT_EQ(AskedCheck(reader, "Open").answer().code, -6);
  EXPECT_EQ(codeOf(reader), -6);
}

}  // namespace
}  // namespace zephyl::test
