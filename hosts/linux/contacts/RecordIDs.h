// Record ids for people whose source gives them none: the same person has the same id in every run.
//
// They are kept in a file of the caller's, a line a person. Ids start at 1,000,001 and are never
// given twice, not even after a person was removed. Belongs to one thread.

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "hosts/linux/contacts/ContactNotes.h"

namespace zephyl::linux_host {

class RecordIDs {
 public:
  static constexpr std::int32_t kFirst = 1'000'001;

  // Ids of a run that cannot see those of earlier runs start here, so that they are nobody else's.
  static constexpr std::int32_t kFirstOfThisRun = 2'000'000'001;

  // Reads the file; none is the same as an empty one. A file that is damaged is put aside under
  // another name, what can be read of it is kept, and an error tells both. A file that cannot be
  // read is left alone: ids are then given for this run only.
  // With kReadOnly nothing is ever written or put aside.
  enum class Access { kReadAndWrite, kReadOnly };
  explicit RecordIDs(std::filesystem::path file, Access access = Access::kReadAndWrite);

  // Ids that another source gives its people; none of them is given out from now on.
  void reserve(const std::unordered_set<std::int32_t>& ids);

  // `key` is the person's lasting identifier, any bytes. nullopt when no id is left.
  [[nodiscard]] std::optional<std::int32_t> idFor(const std::string& key);

  // Writes the file, whole or not at all, if there is something new. Failure is a warning: the ids
  // are good for this run.
  void save();

  // What went wrong since the last call.
  [[nodiscard]] ContactNotes takeNotes();

 private:
  void readText(std::string_view text);
  [[nodiscard]] bool readEntry(std::string_view line);
  void onlyForThisRun(std::string_view reason);
  void putAside(std::string_view reason);
  [[nodiscard]] std::string text() const;

  std::filesystem::path file_;
  std::unordered_map<std::string, std::int32_t> ids_;
  // Every id that was given or is reserved.
  std::unordered_set<std::int32_t> taken_;
  // 64 bits, so that it can lie past the last id.
  std::int64_t next_ = kFirst;
  bool isChanged_ = false;
  bool mayWrite_ = true;
  ContactNotes notes_;
};

}  // namespace zephyl::linux_host
