#include "platform/foundation/Dictionary.h"

namespace zephyl {

Dictionary::Dictionary(std::initializer_list<Entry> entries) {
  for (const auto& [key, value] : entries) {
    set(key, value);
  }
}

std::size_t Dictionary::indexOf(std::string_view key) const {
  if (!index_.empty()) {
    const auto found = index_.find(std::string(key));
    return found == index_.end() ? entries_.size() : found->second;
  }
  std::size_t at = 0;
  while (at < entries_.size() && entries_[at].first != key) {
    ++at;
  }
  return at;
}

void Dictionary::set(std::string key, Value value) {
  const std::size_t at = indexOf(key);
  if (at < entries_.size()) {
    entries_[at].second = std::move(value);
    return;
  }
  entries_.emplace_back(std::move(key), std::move(value));
  if (!index_.empty()) {
    index_.emplace(entries_.back().first, at);
  } else if (entries_.size() >= kIndexedFrom) {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      index_.emplace(entries_[i].first, i);
    }
  }
}

void Dictionary::remove(std::string_view key) {
  const std::size_t at = indexOf(key);
  if (at == entries_.size()) {
    return;
  }
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(at));
  if (!index_.empty()) {
    index_.clear();
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      index_.emplace(entries_[i].first, i);
    }
  }
}

const Value* Dictionary::find(std::string_view key) const {
  const std::size_t at = indexOf(key);
  return at == entries_.size() ? nullptr : &entries_[at].second;
}

Value Dictionary::operator[](std::string_view key) const {
  const Value* value = find(key);
  return value == nullptr ? Value() : *value;
}

}  // namespace zephyl
