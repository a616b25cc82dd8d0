// Puts contacts into their sections by the rule of contactSectionsByTheRule(), and remembers where
// those that it saw last stand among one another: given them again, or some of them, as when they
// are searched, it need not look at their names. Main thread.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/Export.h"

#include "ui/people/ContactPlaces.h"
#include "ui/people/ContactSections.h"

namespace zephyl {

class ZP_EXPORT ContactPartition {
 public:
  // One for the process.
  [[nodiscard]] static std::shared_ptr<ContactPartition> shared();

  [[nodiscard]] ContactSections sections(const APContactArray& contacts,
                                         ABPersonSortOrdering ordering);

 private:
  [[nodiscard]] bool findItems(const APContactArray& contacts);
  void dropRepeatedPhones();
  void orderUnlikeNames();
  [[nodiscard]] ContactSections sectionsOfItems();

  // Those it saw last, by what, and what it knows of each.
  APContactArray contacts_;
  ABPersonSortOrdering ordering_ = ABPersonSortOrdering::kByLastName;
  std::vector<std::string> titles_;
  ContactPlaces known_;
  // By phone: the last call in which it occurred.
  std::vector<std::uint32_t> phoneCalls_;
  std::uint32_t call_ = 0;
  // The contacts of a call, by their numbers among those it knows.
  std::vector<std::uint32_t> items_;
  std::vector<std::uint32_t> spare_;
};

}  // namespace zephyl
