#include "hosts/linux/safety/CopyFolder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <tuple>
#include <utility>

namespace zephyl::linux_host {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kContentEnding = ".plist";
constexpr std::string_view kReasonEnding = ".txt";

// What the names of copies sort by.
struct CopyName {
  std::string stamp;  // "20261121-101500-250"
  int number = 1;

  friend bool operator==(const CopyName&, const CopyName&) = default;

  [[nodiscard]] std::string text() const {
    return number == 1 ? stamp : stamp + "-" + std::to_string(number);
  }
};

std::string stampOf(double now) {
  const double whole = std::floor(now);
  const auto seconds = static_cast<std::time_t>(whole);
  std::tm parts{};
  if (::gmtime_r(&seconds, &parts) == nullptr) {
    parts = {};
  }
  std::array<char, 16> day{};
  static_cast<void>(std::strftime(day.data(), day.size(), "%Y%m%d-%H%M%S", &parts));
  std::array<char, 8> milliseconds{};
  static_cast<void>(std::snprintf(milliseconds.data(), milliseconds.size(), "-%03d",
                                  static_cast<int>((now - whole) * 1000.0)));
  return std::string(day.data()) + milliseconds.data();
}

std::optional<int> numberIn(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = end == text.data() + text.size() && error == std::errc();
  return isWhole && number >= 0 && text.front() != '-' ? std::optional(number) : std::nullopt;
}

std::optional<CopyName> readName(std::string_view text) {
  constexpr std::string_view kForm = "00000000-000000-000";
  if (text.size() < kForm.size()) {
    return std::nullopt;
  }
  const std::string_view stamp = text.substr(0, kForm.size());
  const auto fits = [](char c, char form) { return form == '-' ? c == '-' : c >= '0' && c <= '9'; };
  if (!std::equal(stamp.begin(), stamp.end(), kForm.begin(), fits)) {
    return std::nullopt;
  }
  CopyName name{std::string(stamp)};
  if (text.size() > kForm.size()) {
    const auto number =
        text[kForm.size()] == '-' ? numberIn(text.substr(kForm.size() + 1)) : std::nullopt;
    name.number = number.value_or(0);
  }
  return name.text() == text && name.number >= 1 ? std::optional(name) : std::nullopt;
}

double timeOf(const CopyName& name) {
  const auto part = [&](std::size_t start, std::size_t length) {
    return numberIn(std::string_view(name.stamp).substr(start, length)).value_or(0);
  };
  std::tm parts{};
  parts.tm_year = part(0, 4) - 1900;
  parts.tm_mon = part(4, 2) - 1;
  parts.tm_mday = part(6, 2);
  parts.tm_hour = part(9, 2);
  parts.tm_min = part(11, 2);
  parts.tm_sec = part(13, 2);
  return static_cast<double>(::timegm(&parts)) + part(16, 3) / 1000.0;
}

// The name of the copy that a file belongs to by its ending.
std::optional<CopyName> copyOfFile(std::string_view file, std::string_view ending) {
  return file.ends_with(ending) ? readName(file.substr(0, file.size() - ending.size()))
                                : std::nullopt;
}

std::vector<std::string> namesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    names.push_back(entry->path().filename().string());
  }
  return names;
}

// The newest first.
std::vector<CopyName> copyNamesIn(const std::string& folder) {
  std::vector<CopyName> copies;
  for (const std::string& file : namesIn(folder)) {
    if (auto name = copyOfFile(file, kContentEnding)) {
      copies.push_back(std::move(*name));
    }
  }
  std::sort(copies.begin(), copies.end(), [](const CopyName& left, const CopyName& right) {
    return std::tie(left.stamp, left.number) > std::tie(right.stamp, right.number);
  });
  return copies;
}

// A file that was to be renamed once it was whole: one of the folder's own, and six characters.
bool isHalfDone(std::string_view file) {
  constexpr std::size_t kEnding = 7;
  if (file.size() <= kEnding || file[file.size() - kEnding] != '.') {
    return false;
  }
  const std::string_view own = file.substr(0, file.size() - kEnding);
  return copyOfFile(own, kContentEnding) || copyOfFile(own, kReasonEnding);
}

}  // namespace

std::string CopyFolder::contentPath(const std::string& name) const {
  return (folder_ + "/").append(name).append(kContentEnding);
}

std::string CopyFolder::reasonPath(const std::string& name) const {
  return (folder_ + "/").append(name).append(kReasonEnding);
}

std::vector<SafetyCopy> CopyFolder::copies() const {
  std::vector<SafetyCopy> result;
  for (const CopyName& name : copyNamesIn(folder_)) {
    const std::string text = name.text();
    result.push_back({text, timeOf(name), readWholeFile(reasonPath(text)).contents.value_or("")});
  }
  return result;
}

FileReading CopyFolder::contentsOf(const std::string& name) const {
  return readName(name) ? readWholeFile(contentPath(name)) : FileReading();
}

CopyFolder::Kept CopyFolder::keep(const std::string& contents, const std::string& reason,
                                  double now) const {
  CopyName name{stampOf(now)};
  const std::vector<CopyName> names = copyNamesIn(folder_);
  if (!names.empty()) {
    const CopyName& newest = names.front();
    if (contentsOf(newest.text()).contents == contents) {
      return {newest.text(), replaceFile(reasonPath(newest.text()), reason)};
    }
    name = newest.stamp < name.stamp ? name : CopyName{newest.stamp, newest.number + 1};
  }
  // First the reason: a copy is never without it.
  FileFailure failed = replaceFile(reasonPath(name.text()), reason);
  if (!failed) {
    failed = replaceFile(contentPath(name.text()), contents);
  }
  return {name.text(), std::move(failed)};
}

void CopyFolder::removeSurplus() const {
  std::vector<CopyName> kept = copyNamesIn(folder_);
  kept.resize(std::min(kept.size(), kMostCopies));
  const auto isSurplus = [&](const std::optional<CopyName>& name) {
    return name && std::find(kept.begin(), kept.end(), *name) == kept.end();
  };
  for (const std::string& file : namesIn(folder_)) {
    if (isHalfDone(file) || isSurplus(copyOfFile(file, kContentEnding)) ||
        isSurplus(copyOfFile(file, kReasonEnding))) {
      std::error_code ignored;
      fs::remove(fs::path(folder_) / file, ignored);
    }
  }
}

}  // namespace zephyl::linux_host
