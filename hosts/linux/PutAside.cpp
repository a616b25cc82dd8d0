#include "hosts/linux/PutAside.h"

#include <array>
#include <ctime>
#include <utility>

namespace zephyl::linux_host {

namespace {

constexpr int kMaximumCopiesASecond = 1000;

// In the user's time zone.
std::string timestamp(double now) {
  const auto seconds = static_cast<std::time_t>(now);
  std::tm parts{};
  std::array<char, 32> text{};
  if (::localtime_r(&seconds, &parts) == nullptr) {
    return "undated";
  }
  return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &parts)};
}

}  // namespace

KeptAside putAside(const std::string& realPath, const std::string& contents, double now) {
  const std::string base = realPath + ".unreadable-" + timestamp(now);
  for (int number = 1;; ++number) {
    const std::string path = number == 1 ? base : base + "-" + std::to_string(number);
    NewFileOutcome outcome = writeNewFile(path, contents);
    if (!outcome.existed || number == kMaximumCopiesASecond) {
      return {path, std::move(outcome.failure)};
    }
  }
}

}  // namespace zephyl::linux_host
