#include "ui/people/ContactPartition.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

#include "platform/Host.h"
#include "platform/Once.h"
#include "platform/foundation/Collation.h"

#include "ui/people/CountingSort.h"

namespace zephyl {

std::shared_ptr<ContactPartition> ContactPartition::shared() {
  static Once<ContactPartition> once;
  return once.get([] { return std::make_shared<ContactPartition>(); });
}

ContactSections ContactPartition::sections(const APContactArray& contacts,
                                           ABPersonSortOrdering ordering) {
  std::vector<std::string> titles = host().collation().sectionTitles();
  if (ordering != ordering_ || titles != titles_ || !findItems(contacts)) {
    known_ = contactPlaces(contacts, ordering);
    contacts_ = contacts;
    ordering_ = ordering;
    titles_ = std::move(titles);
    phoneCalls_.assign(known_.phones, 0);
    call_ = 0;
    items_.resize(contacts.size());
    std::iota(items_.begin(), items_.end(), 0U);
    for (std::size_t i = 0; i < contacts.size(); ++i) {
      contacts[i]->setListPlace(static_cast<std::uint32_t>(i));
    }
  }
  dropRepeatedPhones();
  sortByCounting(items_, spare_, known_.orders,
                 [this](std::uint32_t item) { return known_.places[item].order; });
  sortByCounting(items_, spare_, static_cast<std::uint32_t>(titles_.size()),
                 [this](std::uint32_t item) { return known_.places[item].section; });
  if (known_.hasUnlikeNames) {
    orderUnlikeNames();
  }
  return sectionsOfItems();
}

// False when one of them is not known.
bool ContactPartition::findItems(const APContactArray& contacts) {
  items_.clear();
  items_.reserve(contacts.size());
  for (std::size_t i = 0; i < contacts.size(); ++i) {
    // The same list as before needs no look at the contacts.
    std::size_t at = i;
    if (at >= contacts_.size() || contacts_[at] != contacts[i]) {
      at = contacts[i]->listPlace();
    }
    if (at >= contacts_.size() || contacts_[at] != contacts[i]) {
      return false;
    }
    items_.push_back(static_cast<std::uint32_t>(at));
  }
  return true;
}

void ContactPartition::dropRepeatedPhones() {
  if (++call_ == 0) {
    std::fill(phoneCalls_.begin(), phoneCalls_.end(), 0U);
    call_ = 1;
  }
  std::erase_if(items_, [this](std::uint32_t item) {
    const std::uint32_t phone = known_.places[item].phone;
    if (phone == ContactPlace::kNoPhone) {
      return false;
    }
    const bool isRepeated = phoneCalls_[phone] == call_;
    phoneCalls_[phone] = call_;
    return isRepeated;
  });
}

void ContactPartition::orderUnlikeNames() {
  const auto& places = known_.places;
  for (auto begin = items_.begin(); begin != items_.end();) {
    const ContactPlace& first = places[*begin];
    const auto end = std::find_if(begin + 1, items_.end(), [&](std::uint32_t item) {
      return places[item].section != first.section || places[item].lastName != first.lastName;
    });
    if (first.isUnlike) {
      std::stable_sort(begin, end, [&](std::uint32_t left, std::uint32_t right) {
        return places[left].firstNameOrder < places[right].firstNameOrder;
      });
    }
    begin = end;
  }
}

ContactSections ContactPartition::sectionsOfItems() {
  std::vector<std::size_t> sizes(titles_.size());
  for (const std::uint32_t item : items_) {
    ++sizes[known_.places[item].section];
  }
  ContactSections sections(titles_.size());
  for (std::size_t i = 0; i < sections.size(); ++i) {
    sections[i].reserve(sizes[i]);
  }
  for (const std::uint32_t item : items_) {
    sections[known_.places[item].section].push_back(contacts_[item]);
  }
  return sections;
}

}  // namespace zephyl
