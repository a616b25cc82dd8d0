#include "hosts/linux/contacts/VCardDate.h"

#include <chrono>
#include <cstddef>

#include "hosts/linux/contacts/AsciiText.h"

namespace zephyl::linux_host::vcard {

namespace {

// Walks over a time stamp from its start.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  bool skip(std::string_view anyOf) {
    if (text_.empty() || anyOf.find(text_.front()) == std::string_view::npos) {
      return false;
    }
    text_.remove_prefix(1);
    return true;
  }

  // Exactly `digits` digits, or nothing is taken.
  std::optional<int> number(std::size_t digits) {
    if (text_.size() < digits) {
      return std::nullopt;
    }
    int value = 0;
    for (std::size_t i = 0; i < digits; ++i) {
      if (!ascii::isDigit(text_[i])) {
        return std::nullopt;
      }
      value = value * 10 + (text_[i] - '0');
    }
    text_.remove_prefix(digits);
    return value;
  }

  // The digits after a decimal point.
  double fraction() {
    double value = 0.0;
    double weight = 0.1;
    while (!text_.empty() && ascii::isDigit(text_.front())) {
      value += weight * (text_.front() - '0');
      weight /= 10;
      text_.remove_prefix(1);
    }
    return value;
  }

  [[nodiscard]] char front() const { return text_.empty() ? '\0' : text_.front(); }

 private:
  std::string_view text_;
};

double secondsOfDay(Scanner& scanner) {
  const int hours = scanner.number(2).value_or(0);
  scanner.skip(":");
  const int minutes = scanner.number(2).value_or(0);
  scanner.skip(":");
  double seconds = scanner.number(2).value_or(0);
  if (scanner.skip(".,")) {
    seconds += scanner.fraction();
  }
  return hours * 3600.0 + minutes * 60.0 + seconds;
}

double zoneOffset(Scanner& scanner) {
  const char sign = scanner.front();
  if (!scanner.skip("+-")) {
    return 0.0;
  }
  const int hours = scanner.number(2).value_or(0);
  scanner.skip(":");
  const int minutes = scanner.number(2).value_or(0);
  const double offset = hours * 3600.0 + minutes * 60.0;
  return sign == '-' ? -offset : offset;
}

}  // namespace

std::optional<double> secondsSince1970(std::string_view text) {
  Scanner scanner(ascii::trimmed(text));
  const auto year = scanner.number(4);
  scanner.skip("-");
  const auto month = scanner.number(2);
  scanner.skip("-");
  const auto day = scanner.number(2);
  if (!year || !month || !day) {
    return std::nullopt;
  }
  const std::chrono::year_month_day date(std::chrono::year(*year),
                                         std::chrono::month(static_cast<unsigned>(*month)),
                                         std::chrono::day(static_cast<unsigned>(*day)));
  if (!date.ok()) {
    return std::nullopt;
  }
  const auto days = std::chrono::sys_days(date).time_since_epoch().count();
  const double midnight = static_cast<double>(days) * 86400.0;
  if (!scanner.skip("Tt ")) {
    return midnight;
  }
  const double time = secondsOfDay(scanner);
  return midnight + time - zoneOffset(scanner);
}

}  // namespace zephyl::linux_host::vcard
