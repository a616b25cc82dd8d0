// Group dictionaries for tests, built from what a test cares about.

#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>

#include "platform/foundation/Dictionary.h"

#include "model/ZephylKeys.h"

namespace zephyl::test {

// An enabled user group.
class GroupBuilder {
 public:
  GroupBuilder(std::int64_t identifier, std::string title) {
    with(keys::kIdentifier, identifier);
    with(keys::kTitle, std::move(title));
    with(keys::kEnabled, true);
  }

  GroupBuilder& with(const char* key, Value value) {
    dictionary_.set(key, std::move(value));
    return *this;
  }
  GroupBuilder& members(Array elements) { return with(keys::kContacts, std::move(elements)); }
  GroupBuilder& disabled() { return with(keys::kEnabled, false); }
  GroupBuilder& active() { return with(keys::kActive, true); }
  GroupBuilder& hiding() { return with(keys::kHidesInDefaultGroups, true); }
  GroupBuilder& system(std::int64_t mode) {
    return with(keys::kSystem, true).with(keys::kZephylSystemMode, mode);
  }

  operator Dictionary() const { return dictionary_; }
  operator Value() const { return Value(dictionary_); }

 private:
  Dictionary dictionary_;
};

}  // namespace zephyl::test
