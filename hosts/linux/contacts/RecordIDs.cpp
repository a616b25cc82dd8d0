#include "hosts/linux/contacts/RecordIDs.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <limits>
#include <map>
#include <system_error>
#include <utility>

#include "hosts/linux/FileContents.h"

namespace zephyl::linux_host {

namespace {

constexpr std::string_view kTitle = "zephyls record ids 1";
constexpr std::string_view kNext = "next ";
constexpr std::string_view kEnd = "end ";
// Where the next id is lost, the ids of a damaged file are passed by this much.
constexpr std::int64_t kLeap = 1'000'000;

// Line breaks in keys would end their lines.
std::string escaped(std::string_view key) {
  std::string text;
  for (const char c : key) {
    if (c == '\\' || c == '\n' || c == '\r') {
      text += '\\';
      text += c == '\n' ? 'n' : c == '\r' ? 'r' : '\\';
    } else {
      text += c;
    }
  }
  return text;
}

std::string unescapedKey(std::string_view text) {
  std::string key;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\\' || at + 1 == text.size()) {
      key += text[at];
      continue;
    }
    const char next = text[++at];
    key += next == 'n' ? '\n' : next == 'r' ? '\r' : next;
  }
  return key;
}

std::optional<std::int64_t> wholeNumber(std::string_view text) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = error == std::errc() && end == text.data() + text.size() && number >= 0;
  return isWhole ? std::optional(number) : std::nullopt;
}

// The line without its break; `text` moves on behind it. Nothing when the break is missing.
std::optional<std::string_view> takeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  if (end == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end + 1);
  return line;
}

}  // namespace

RecordIDs::RecordIDs(std::filesystem::path file, Access access)
    : file_(std::move(file)), mayWrite_(access == Access::kReadAndWrite) {
  const FileReading reading = readWholeFile(file_.string());
  if (reading.contents) {
    readText(*reading.contents);
  } else if (!reading.isMissing()) {
    onlyForThisRun(reading.reason);
  }
}

void RecordIDs::readText(std::string_view text) {
  const bool hasTitle = takeLine(text) == kTitle;
  std::optional<std::int64_t> next;
  std::optional<std::int64_t> promised;
  std::size_t broken = 0;
  while (const auto line = takeLine(text)) {
    if (line->starts_with(kNext)) {
      next = wholeNumber(line->substr(kNext.size()));
    } else if (line->starts_with(kEnd)) {
      promised = wholeNumber(line->substr(kEnd.size()));
    } else if (!readEntry(*line)) {
      ++broken;
    }
  }
  std::int64_t past = kFirst;
  for (const std::int32_t id : taken_) {
    past = std::max<std::int64_t>(past, std::int64_t{id} + 1);
  }
  next_ = next ? std::max(*next, past) : past + kLeap;
  const bool isWhole = hasTitle && text.empty() && broken == 0 && next && *next >= past &&
                       promised == std::optional<std::int64_t>(ids_.size());
  if (!isWhole) {
    putAside("the file of record ids is damaged");
  }
}

bool RecordIDs::readEntry(std::string_view line) {
  const std::size_t space = line.find(' ');
  const auto id = wholeNumber(line.substr(0, space));
  if (space == std::string_view::npos || !id || *id < kFirst ||
      *id > std::numeric_limits<std::int32_t>::max()) {
    return false;
  }
  const auto small = static_cast<std::int32_t>(*id);
  std::string key = unescapedKey(line.substr(space + 1));
  if (taken_.contains(small) || ids_.contains(key)) {
    return false;
  }
  taken_.insert(small);
  ids_.emplace(std::move(key), small);
  return true;
}

void RecordIDs::onlyForThisRun(std::string_view reason) {
  mayWrite_ = false;
  next_ = kFirstOfThisRun;
  notes_.error(file_.string(), 0,
               std::string(reason) + "; the people's ids are good for this run only");
}

void RecordIDs::putAside(std::string_view reason) {
  if (!mayWrite_) {
    notes_.error(file_.string(), 0, reason);
    return;
  }
  std::error_code error;
  for (int number = 1;; ++number) {
    const std::filesystem::path aside = file_.string() + ".damaged-" + std::to_string(number);
    if (std::filesystem::exists(std::filesystem::symlink_status(aside, error))) {
      continue;
    }
    std::filesystem::rename(file_, aside, error);
    if (error) {
      onlyForThisRun(std::string(reason) + " and cannot be put aside: " + error.message());
      return;
    }
    isChanged_ = true;
    notes_.error(file_.string(), 0,
                 std::string(reason) + "; it is kept as " + aside.filename().string() + ", and " +
                     std::to_string(ids_.size()) + " of its ids are still in use");
    return;
  }
}

void RecordIDs::reserve(const std::unordered_set<std::int32_t>& ids) {
  isChanged_ |=
      std::erase_if(ids_, [&](const auto& entry) { return ids.contains(entry.second); }) != 0;
  taken_.insert(ids.begin(), ids.end());
}

std::optional<std::int32_t> RecordIDs::idFor(const std::string& key) {
  if (const auto known = ids_.find(key); known != ids_.end()) {
    return known->second;
  }
  while (next_ <= std::numeric_limits<std::int32_t>::max() &&
         taken_.contains(static_cast<std::int32_t>(next_))) {
    ++next_;
  }
  if (next_ > std::numeric_limits<std::int32_t>::max()) {
    return std::nullopt;
  }
  const auto id = static_cast<std::int32_t>(next_++);
  taken_.insert(id);
  ids_.emplace(key, id);
  isChanged_ = true;
  return id;
}

std::string RecordIDs::text() const {
  std::map<std::int32_t, const std::string*> ordered;
  for (const auto& [key, id] : ids_) {
    ordered.emplace(id, &key);
  }
  std::string text(kTitle);
  text.append("\n").append(kNext).append(std::to_string(next_)).append("\n");
  for (const auto& [id, key] : ordered) {
    text.append(std::to_string(id)).append(" ").append(escaped(*key)).append("\n");
  }
  return text.append(kEnd).append(std::to_string(ids_.size())).append("\n");
}

void RecordIDs::save() {
  if (!isChanged_ || !mayWrite_) {
    return;
  }
  if (const auto failure = replaceFile(behindLinks(file_.string()), text())) {
    notes_.warning(file_.string(), 0,
                   *failure + "; the ids of new people are good for this run only");
    return;
  }
  isChanged_ = false;
}

ContactNotes RecordIDs::takeNotes() {
  return std::exchange(notes_, ContactNotes());
}

}  // namespace zephyl::linux_host
