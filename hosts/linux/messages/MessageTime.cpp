#include "hosts/linux/messages/MessageTime.h"

namespace zephyl::linux_host {
namespace {

// As seconds this would be the year 33,690; as nanoseconds, 17 minutes after the start.
constexpr std::int64_t kSmallestNanoseconds = 1'000'000'000'000;
constexpr std::int64_t kNanosecondsInASecond = 1'000'000'000;
constexpr std::int64_t kSecondsFrom1970To2001 = 978'307'200;

}  // namespace

std::optional<MessageTime> MessageTime::fromDatabase(std::int64_t value) {
  if (value == 0) {
    return std::nullopt;
  }
  if (value > -kSmallestNanoseconds && value < kSmallestNanoseconds) {
    return MessageTime{.seconds = value, .nanoseconds = 0};
  }
  std::int64_t seconds = value / kNanosecondsInASecond;
  std::int64_t rest = value % kNanosecondsInASecond;
  if (rest < 0) {
    rest += kNanosecondsInASecond;
    --seconds;
  }
  return MessageTime{.seconds = seconds, .nanoseconds = static_cast<std::int32_t>(rest)};
}

double MessageTime::secondsSince1970() const {
  return static_cast<double>(seconds + kSecondsFrom1970To2001) +
         static_cast<double>(nanoseconds) / static_cast<double>(kNanosecondsInASecond);
}

}  // namespace zephyl::linux_host
