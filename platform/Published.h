// A value that one thread publishes whole and any thread may read: no lock, the last writer wins.
// What was read stays as it is for as long as the reader holds it.

#pragma once

#include <atomic>
#include <memory>
#include <utility>

namespace zephyl {

template <class T>
class Published {
 public:
  Published() = default;
  explicit Published(std::shared_ptr<T> value) : value_(std::move(value)) {}
  Published(const Published&) = delete;
  Published& operator=(const Published&) = delete;

  // Null until something was stored.
  [[nodiscard]] std::shared_ptr<T> load() const { return std::atomic_load(&value_); }
  void store(std::shared_ptr<T> value) { std::atomic_store(&value_, std::move(value)); }

 private:
  std::shared_ptr<T> value_;
};

}  // namespace zephyl
