#include "hosts/linux/fingerprint/FingerprintLockout.h"

#include <algorithm>

namespace zephyl::linux_host {

namespace {

constexpr int kFailuresBeforeLockout = 5;
constexpr std::chrono::seconds kFirstLockout{30};
constexpr std::chrono::seconds kLongestLockout{300};

// Of the failure with that number in the row.
std::chrono::seconds lockoutAfter(int failures) {
  std::chrono::seconds length = kFirstLockout;
  for (int i = kFailuresBeforeLockout; i < failures && length < kLongestLockout; ++i) {
    length *= 2;
  }
  return std::min(length, kLongestLockout);
}

}  // namespace

void FingerprintLockout::failed(Time now) {
  ++failures_;
  if (failures_ >= kFailuresBeforeLockout) {
    end_ = now + lockoutAfter(failures_);
  }
}

void FingerprintLockout::succeeded() {
  failures_ = 0;
  end_ = {};
}

std::chrono::steady_clock::duration FingerprintLockout::left(Time now) const {
  return failures_ < kFailuresBeforeLockout || now >= end_ ? Time::duration::zero() : end_ - now;
}

}  // namespace zephyl::linux_host
