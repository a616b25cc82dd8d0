#include "bench/Peers.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <unordered_map>
#include <unordered_set>

#include <fcntl.h>
#include <plist/plist.h>
#include <unistd.h>

#include "platform/foundation/Dictionary.h"

#include "model/ContactIdentity.h"
#include "model/MemberSet.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"

namespace zephyl::bench {

void writeBytes(const std::string& path, const std::string& bytes) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  const auto written = ::write(file, bytes.data(), bytes.size());
  const bool done = written == static_cast<ssize_t>(bytes.size()) &&
                    ::ftruncate(file, written) == 0 && ::fsync(file) == 0;
  ::close(file);
  if (!done) {
    throw std::runtime_error("cannot write " + path);
  }
}

PlistPeer::PlistPeer(const std::string& xml) {
  plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &tree_);
  if (tree_ == nullptr) {
    throw std::runtime_error("libplist does not read the groups");
  }
}

PlistPeer::~PlistPeer() {
  plist_free(tree_);
}

void PlistPeer::read(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const PlistPeer peer{std::string(std::istreambuf_iterator<char>(file), {})};
}

std::string PlistPeer::xml() const {
  char* text = nullptr;
  std::uint32_t size = 0;
  plist_to_xml(tree_, &text, &size);
  std::string xml(text, size);
  std::free(text);
  return xml;
}

struct InternedPeer::Tables {
  using Number = std::uint32_t;

  struct Conversation {
    CKConversationRef conversation;
    std::vector<Number> numbers;
  };

  Number numberOf(const Member& member) {
    return numbers.emplace(member, static_cast<Number>(numbers.size())).first->second;
  }

  std::unordered_map<Member, Number> numbers;
  std::vector<Conversation> conversations;
  std::vector<std::unordered_set<Number>> groups;
};

InternedPeer::InternedPeer(const CKConversationArray& conversations, const Array& groups) {
  auto tables = std::make_shared<Tables>();
  for (const CKConversationRef& conversation : conversations) {
    Tables::Conversation row{conversation, {tables->numberOf(conversation->guid())}};
    bool hasUnknown = false;
    for (const IMHandle& handle : conversation->handles()) {
      if (const auto identity = contactIdentity(handle)) {
        row.numbers.push_back(tables->numberOf(*identity));
      } else {
        hasUnknown = true;
      }
    }
    if (hasUnknown) {
      row.numbers.push_back(
          tables->numberOf(ZPUtils::plainPhoneNumber(conversation->handles().front().displayID())));
    }
    tables->conversations.push_back(std::move(row));
  }
  for (const Value& group : groups) {
    std::unordered_set<Tables::Number> members;
    for (const Member& member : MemberSet(*(*group.ifDictionary())[keys::kContacts].ifArray())) {
      members.insert(tables->numberOf(member));
    }
    tables->groups.push_back(std::move(members));
  }
  tables_ = std::move(tables);
}

std::size_t InternedPeer::filterAll() const {
  std::size_t count = 0;
  for (const auto& members : tables_->groups) {
    CKConversationArray shown;
    for (const auto& row : tables_->conversations) {
      if (std::any_of(row.numbers.begin(), row.numbers.end(),
                      [&](Tables::Number number) { return members.contains(number); })) {
        shown.push_back(row.conversation);
      }
    }
    count += shown.size();
  }
  return count;
}

}  // namespace zephyl::bench
