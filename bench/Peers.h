// What the benchmarks are held against: other ways to do the same work.

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/chatkit/CKConversation.h"
#include "platform/foundation/Value.h"

namespace zephyl::bench {

// Writes over the file and brings it to the disk, as the device does.
void writeBytes(const std::string& path, const std::string& bytes);

// libplist with the same groups as its own tree.
class PlistPeer {
 public:
  // Of an XML property list.
  explicit PlistPeer(const std::string& xml);
  ~PlistPeer();
  PlistPeer(const PlistPeer&) = delete;
  PlistPeer& operator=(const PlistPeer&) = delete;

  [[nodiscard]] std::string xml() const;

  // Reads a file and lets go of the tree.
  static void read(const std::string& path);

 private:
  void* tree_ = nullptr;
};

// A plain loop over interned numbers: a conversation is a list of them (its GUID, the contacts of
// its participants, its first number), a group an std::unordered_set.
class InternedPeer {
 public:
  InternedPeer(const CKConversationArray& conversations, const Array& groups);

  // The conversations of every group; how many there are in all.
  [[nodiscard]] std::size_t filterAll() const;

 private:
  struct Tables;

  std::shared_ptr<const Tables> tables_;
};

}  // namespace zephyl::bench
