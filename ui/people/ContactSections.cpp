#include "ui/people/ContactSections.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_set>

#include "ui/people/ContactNames.h"
#include "ui/people/LRIndexedCollationWithSearch.h"

namespace zephyl {

namespace {

// Each run of neighbours with the same last name in the order of first names.
APContactArray orderedWithinRuns(const APContactArray& sorted,
                                 const LRIndexedCollationWithSearch& collation) {
  APContactArray ordered;
  ordered.reserve(sorted.size());
  for (auto begin = sorted.begin(); begin != sorted.end();) {
    const auto end = std::find_if(begin, sorted.end(), [&](const APContactRef& contact) {
      return contact->lastNameOrCompositeName() != (*begin)->lastNameOrCompositeName();
    });
    const APContactArray run = collation.sortedArrayFromArray(APContactArray(begin, end),
                                                              &APContact::firstNameOrCompositeName);
    ordered.insert(ordered.end(), run.begin(), run.end());
    begin = end;
  }
  return ordered;
}

}  // namespace

ContactSections emptyContactSections() {
  return ContactSections(LRIndexedCollationWithSearch::currentCollation()->sectionTitles().size());
}

ContactSections contactSectionsByTheRule(const APContactArray& contacts,
                                         ABPersonSortOrdering ordering) {
  const auto collation = LRIndexedCollationWithSearch::currentCollation();
  ContactSections sections = emptyContactSections();
  std::unordered_set<std::string> phones;
  for (const APContactRef& contact : contacts) {
    if (!contact->phones().empty() && !phones.insert(contact->phones().front()).second) {
      continue;
    }
    const std::int64_t section = collation->sectionForObject(
        *contact, [&](const APContact& each) { return nameForSection(each, ordering); });
    sections.at(static_cast<std::size_t>(section)).push_back(contact);
  }
  for (APContactArray& section : sections) {
    section = orderedWithinRuns(
        collation->sortedArrayFromArray(section, &APContact::lastNameOrCompositeName), *collation);
  }
  return sections;
}

}  // namespace zephyl
