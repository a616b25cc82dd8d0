#include "ui/people/ContactPlaces.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <numeric>
#include <string>
#include <string_view>

#include "platform/Host.h"
#include "platform/foundation/Collation.h"

#include "ui/people/ContactNames.h"
#include "ui/people/CountingSort.h"

namespace zephyl {

namespace {

// Gives each text a number, from 0 on. The texts must stay.
class TextNumbers {
 public:
  explicit TextNumbers(std::size_t expected) {
    std::size_t slots = 64;
    while (slots < 2 * expected) {
      slots *= 2;
    }
    slots_.resize(slots, kFree);
  }

  std::uint32_t numberOf(const std::string& text) {
    const std::size_t hash = std::hash<std::string_view>()(text);
    std::size_t slot = hash & (slots_.size() - 1);
    for (; slots_[slot] != kFree; slot = (slot + 1) & (slots_.size() - 1)) {
      const std::uint32_t number = slots_[slot];
      if (hashes_[number] == hash && *texts_[number] == text) {
        return number;
      }
    }
    slots_[slot] = count();
    texts_.push_back(&text);
    hashes_.push_back(hash);
    return slots_[slot];
  }

  [[nodiscard]] std::uint32_t count() const { return static_cast<std::uint32_t>(texts_.size()); }
  [[nodiscard]] const std::string& text(std::uint32_t number) const { return *texts_[number]; }

 private:
  static constexpr std::uint32_t kFree = 0xFFFFFFFF;

  std::vector<std::uint32_t> slots_;
  std::vector<const std::string*> texts_;
  std::vector<std::size_t> hashes_;
};

// The order of texts and their sections, of those that were asked for.
class TextOrder {
 public:
  explicit TextOrder(const TextNumbers& texts)
      : texts_(texts), ranks_(texts.count()), sections_(texts.count()) {}

  // Each number of a text once.
  void arrange(const std::vector<std::uint32_t>& numbers) {
    makeKeys(numbers);
    std::sort(keys_.begin(), keys_.end(),
              [this](const Key& left, const Key& right) { return isBefore(left, right); });
    rank();
    findSections();
  }

  // Below the count of the texts.
  [[nodiscard]] std::uint32_t rank(std::uint32_t text) const { return ranks_[text]; }
  [[nodiscard]] std::uint32_t section(std::uint32_t text) const { return sections_[text]; }
  // Whether others than the text itself have its rank.
  [[nodiscard]] bool isShared(std::uint32_t text) const { return shared_[ranks_[text]]; }

 private:
  struct Key {
    std::uint64_t start;  // its first bytes, as a number in their order
    std::size_t at;
    std::uint32_t size;
    std::uint32_t text;
  };

  void makeKeys(const std::vector<std::uint32_t>& numbers) {
    Collation& collation = host().collation();
    keys_.reserve(numbers.size());
    for (const std::uint32_t number : numbers) {
      const std::size_t at = bytes_.size();
      collation.appendSortKey(texts_.text(number), bytes_);
      keys_.push_back({startOf(at), at, static_cast<std::uint32_t>(bytes_.size() - at), number});
    }
  }

  [[nodiscard]] std::uint64_t startOf(std::size_t at) const {
    std::uint64_t start = 0;
    for (std::size_t i = at; i < at + sizeof start; ++i) {
      start = start << 8U | (i < bytes_.size() ? static_cast<unsigned char>(bytes_[i]) : 0U);
    }
    return start;
  }

  [[nodiscard]] std::string_view bytesOf(const Key& key) const {
    return std::string_view(bytes_).substr(key.at, key.size);
  }
  [[nodiscard]] bool isBefore(const Key& left, const Key& right) const {
    return left.start != right.start ? left.start < right.start : bytesOf(left) < bytesOf(right);
  }

  void rank() {
    shared_.assign(keys_.size() + 1, false);
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < keys_.size(); ++i) {
      if (i > 0 && isBefore(keys_[i - 1], keys_[i])) {
        ++rank;
      } else if (i > 0) {
        shared_[rank] = true;
      }
      ranks_[keys_[i].text] = rank;
    }
  }

  void findSections() {
    std::vector<const std::string*> sorted;
    sorted.reserve(keys_.size());
    for (const Key& key : keys_) {
      sorted.push_back(&texts_.text(key.text));
    }
    const std::vector<std::size_t> sections = host().collation().sectionsForSortedStrings(sorted);
    for (std::size_t i = 0; i < keys_.size(); ++i) {
      sections_[keys_[i].text] = static_cast<std::uint32_t>(sections[i]);
    }
  }

  const TextNumbers& texts_;
  std::string bytes_;
  std::vector<Key> keys_;
  std::vector<std::uint32_t> ranks_;
  std::vector<std::uint32_t> sections_;
  std::vector<bool> shared_;
};

// The numbers of a contact's names.
struct Names {
  std::uint32_t last;
  std::uint32_t first;
  std::uint32_t section;
};

std::vector<Names> namesOf(const APContactArray& contacts, ABPersonSortOrdering ordering,
                           TextNumbers& texts) {
  std::vector<Names> names;
  names.reserve(contacts.size());
  for (const APContactRef& contact : contacts) {
    names.push_back({texts.numberOf(contact->lastNameOrCompositeName()),
                     texts.numberOf(contact->firstNameOrCompositeName()),
                     texts.numberOf(nameForSection(*contact, ordering))});
  }
  return names;
}

// First names matter only where others have the same last name.
std::vector<std::uint32_t> namesThatMatter(const std::vector<Names>& names, std::size_t texts) {
  std::vector<std::uint32_t> bearers(texts);
  for (const Names& each : names) {
    ++bearers[each.last];
  }
  std::vector<bool> isListed(texts);
  std::vector<std::uint32_t> listed;
  const auto list = [&](std::uint32_t text) {
    if (!isListed[text]) {
      isListed[text] = true;
      listed.push_back(text);
    }
  };
  for (const Names& each : names) {
    list(each.last);
    list(each.section);
    if (bearers[each.last] > 1) {
      list(each.first);
    }
  }
  return listed;
}

// From last and first names the order of both.
std::uint32_t numberOrders(std::vector<ContactPlace>& places,
                           const std::vector<std::uint32_t>& lastRanks) {
  const auto count = static_cast<std::uint32_t>(places.size());
  const auto first = [&](std::uint32_t i) {
    return places[i].isUnlike ? 0 : places[i].firstNameOrder;
  };
  std::uint32_t bound = 1;
  for (std::uint32_t i = 0; i < count; ++i) {
    bound = std::max({bound, places[i].firstNameOrder + 1, lastRanks[i] + 1});
  }
  std::vector<std::uint32_t> items(count);
  std::iota(items.begin(), items.end(), 0U);
  std::vector<std::uint32_t> spare;
  sortByCounting(items, spare, bound, first);
  sortByCounting(items, spare, bound, [&](std::uint32_t i) { return lastRanks[i]; });
  std::uint32_t order = 0;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const std::uint32_t now = items[i];
    const std::uint32_t before = items[i > 0 ? i - 1 : 0];
    order += lastRanks[now] != lastRanks[before] || first(now) != first(before) ? 1 : 0;
    places[now].order = order;
  }
  return order + 1;
}

std::uint32_t numberPhones(const APContactArray& contacts, std::vector<ContactPlace>& places) {
  TextNumbers phones(contacts.size());
  for (std::size_t i = 0; i < contacts.size(); ++i) {
    if (!contacts[i]->phones().empty()) {
      places[i].phone = phones.numberOf(contacts[i]->phones().front());
    }
  }
  return phones.count();
}

}  // namespace

ContactPlaces contactPlaces(const APContactArray& contacts, ABPersonSortOrdering ordering) {
  TextNumbers texts(2 * contacts.size());
  const std::vector<Names> names = namesOf(contacts, ordering, texts);
  TextOrder order(texts);
  order.arrange(namesThatMatter(names, texts.count()));
  ContactPlaces all;
  all.places.resize(contacts.size());
  std::vector<std::uint32_t> lastRanks(contacts.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    ContactPlace& place = all.places[i];
    place.section = order.section(names[i].section);
    place.lastName = names[i].last;
    place.firstNameOrder = order.rank(names[i].first);
    place.isUnlike = order.isShared(names[i].last);
    all.hasUnlikeNames = all.hasUnlikeNames || place.isUnlike;
    lastRanks[i] = order.rank(names[i].last);
  }
  all.orders = numberOrders(all.places, lastRanks);
  all.phones = numberPhones(contacts, all.places);
  return all;
}

}  // namespace zephyl
