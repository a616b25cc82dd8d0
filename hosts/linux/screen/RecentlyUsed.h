// A map that holds so many bytes and forgets what was not asked for the longest. Not locked.

#pragma once

#include <cstddef>
#include <list>
#include <map>
#include <utility>

namespace zephyl::linux_host {

// `Key` is ordered.
template <typename Key, typename Value>
class RecentlyUsed {
 public:
  explicit RecentlyUsed(std::size_t maximumBytes) : maximumBytes_(maximumBytes) {}

  // Null when it is not there. The pointer lives until the next call.
  [[nodiscard]] Value* find(const Key& key) {
    const auto found = places_.find(key);
    if (found == places_.end()) {
      return nullptr;
    }
    entries_.splice(entries_.begin(), entries_, found->second);
    return &found->second->value;
  }

  // Replaces what was there. What is larger than the whole is not kept.
  void put(const Key& key, Value value, std::size_t bytes) {
    remove(key);
    if (bytes > maximumBytes_) {
      return;
    }
    entries_.push_front({key, std::move(value), bytes});
    places_[key] = entries_.begin();
    bytes_ += bytes;
    while (bytes_ > maximumBytes_) {
      const Key last = entries_.back().key;
      remove(last);
    }
  }

  void remove(const Key& key) {
    const auto found = places_.find(key);
    if (found == places_.end()) {
      return;
    }
    bytes_ -= found->second->bytes;
    entries_.erase(found->second);
    places_.erase(found);
  }

  void clear() {
    places_.clear();
    entries_.clear();
    bytes_ = 0;
  }

  [[nodiscard]] std::size_t size() const { return entries_.size(); }
  [[nodiscard]] std::size_t bytes() const { return bytes_; }

 private:
  struct Entry {
    Key key;
    Value value;
    std::size_t bytes = 0;
  };

  const std::size_t maximumBytes_;
  std::size_t bytes_ = 0;
  std::list<Entry> entries_;  // the last used first
  std::map<Key, typename std::list<Entry>::iterator> places_;
};

}  // namespace zephyl::linux_host
