// An invented group, made of what a picture is to show. Main thread.

#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/foundation/Dictionary.h"

#include "model/Zephyl.h"
#include "model/ZephylKeys.h"

namespace zephyl::app::render {

class SampleGroup {
 public:
  // An enabled user group.
  explicit SampleGroup(std::string title) {
    with(keys::kIdentifier, 1);
    with(keys::kTitle, std::move(title));
    with(keys::kEnabled, true);
  }

  SampleGroup& with(const char* key, Value value) {
    dictionary_.set(key, std::move(value));
    return *this;
  }
  SampleGroup& subtitle(std::string text) { return with(keys::kSubTitle, std::move(text)); }
  SampleGroup& marker(std::string text) { return with(keys::kMarkerCode, std::move(text)); }
  SampleGroup& locked() { return with(keys::kPasswordProtected, true); }
  SampleGroup& active() { return with(keys::kActive, true); }
  SampleGroup& disabled() { return with(keys::kEnabled, false); }
  SampleGroup& system(std::int64_t mode) {
    return with(keys::kSystem, true).with(keys::kZephylSystemMode, mode);
  }
  SampleGroup& unread(int count) {
    unread_ = count;
    return *this;
  }
  SampleGroup& picture(UIImageRef picture) {
    picture_ = std::move(picture);
    return *this;
  }

  [[nodiscard]] ZephylRef make() const;

 private:
  Dictionary dictionary_;
  UIImageRef picture_;
  int unread_ = 0;
};

}  // namespace zephyl::app::render
