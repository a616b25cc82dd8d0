// Other ways to do what the picker of people does.

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "contacts/APContact.h"

namespace zephyl::bench {

// Sections by ICU's index of letters, each sorted with ICU's comparison of texts.
class IcuPartitionPeer {
 public:
  explicit IcuPartitionPeer(const std::vector<std::string>& languages);
  ~IcuPartitionPeer();
  IcuPartitionPeer(const IcuPartitionPeer&) = delete;
  IcuPartitionPeer& operator=(const IcuPartitionPeer&) = delete;

  // All in their order, section by section.
  [[nodiscard]] APContactArray partition(const APContactArray& contacts) const;

 private:
  struct Index;

  std::unique_ptr<Index> index_;
};

// A table in memory with a column for what is searched, and LIKE for each word.
class LikePeer {
 public:
  explicit LikePeer(const APContactArray& contacts);
  ~LikePeer();
  LikePeer(const LikePeer&) = delete;
  LikePeer& operator=(const LikePeer&) = delete;

  [[nodiscard]] std::size_t count(const std::vector<std::string>& words);

 private:
  struct Database;

  std::unique_ptr<Database> database_;
};

// Folded texts, a piece for each contact, and memmem for each word.
class MemmemPeer {
 public:
  explicit MemmemPeer(const APContactArray& contacts);
  [[nodiscard]] std::size_t count(const std::vector<std::string>& words) const;

 private:
  std::vector<std::string> texts_;
};

}  // namespace zephyl::bench
