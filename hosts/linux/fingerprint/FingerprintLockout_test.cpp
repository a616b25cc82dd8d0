#include "hosts/linux/fingerprint/FingerprintLockout.h"

#include <gtest/gtest.h>

namespace zephyl::linux_host {
namespace {

using std::chrono::seconds;

class FingerprintLockoutTest : public ::testing::Test {
 protected:
  void fail(int times) {
    for (int i = 0; i < times; ++i) {
      lockout_.failed(now_);
    }
  }
  [[nodiscard]] auto left() const { return lockout_.left(now_); }

  FingerprintLockout lockout_;
  FingerprintLockout::Time now_{seconds(5)};
};

TEST_F(FingerprintLockoutTest, FourFailuresLockNothing) {
  fail(4);
  EXPECT_EQ(left(), seconds(0));
}

TEST_F(FingerprintLockoutTest, TheFifthFailureLocksForHalfAMinute) {
  fail(5);
  EXPECT_EQ(left(), seconds(30));
  now_ += seconds(29);
  EXPECT_EQ(left(), seconds(1));
  now_ += seconds(1);
  EXPECT_EQ(left(), seconds(0));
}

TEST_F(FingerprintLockoutTest, EachFurtherFailureLocksTwiceAsLongUpToFiveMinutes) {
  fail(5);
  for (const int length : {60, 120, 240, 300, 300, 300}) {
    now_ += left();
    fail(1);
    EXPECT_EQ(left(), seconds(length));
  }
}

TEST_F(FingerprintLockoutTest, ASuccessForgetsTheFailures) {
  fail(7);
  lockout_.succeeded();
  EXPECT_EQ(left(), seconds(0));
  fail(4);
  EXPECT_EQ(left(), seconds(0));
  fail(1);
  EXPECT_EQ(left(), seconds(30));
}

}  // namespace
}  // namespace zephyl::linux_host
