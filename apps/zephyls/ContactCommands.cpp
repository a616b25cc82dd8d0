// The command that lists the people of the address book.

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>
#include <unicode/unistr.h>

#include "platform/Host.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/addressbook/ABPhoneFormatting.h"
#include "platform/foundation/Collation.h"

#include "apps/zephyls/Commands.h"
#include "apps/zephyls/Describe.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "contacts/APContact.h"
#include "ui/people/ContactNames.h"

namespace zephyl::app {

namespace {

icu::UnicodeString folded(const std::string& text) {
  return icu::UnicodeString::fromUTF8(text).foldCase();
}

std::vector<std::string> valuesOf(const std::vector<ABLabeledText>& labelled) {
  std::vector<std::string> values;
  values.reserve(labelled.size());
  for (const ABLabeledText& one : labelled) {
    values.push_back(one.value);
  }
  return values;
}

// Everything that can be searched for, in one text: the parts cannot run into one another.
icu::UnicodeString searchText(const ABPerson& person) {
  icu::UnicodeString text = folded(nameOf(person));
  const auto add = [&](const std::string& part) { text.append(u'\n').append(folded(part)); };
  for (const std::string& part :
       {person.nickname, person.organization, person.firstName, person.lastName}) {
    add(part);
  }
  for (const auto* values : {&person.phones, &person.emails}) {
    for (const ABLabeledText& one : *values) {
      add(one.value);
    }
  }
  return text;
}

bool hasEveryWord(const ABPerson& person, const std::vector<std::string>& words) {
  if (words.empty()) {
    return true;
  }
  const icu::UnicodeString text = searchText(person);
  return std::all_of(words.begin(), words.end(),
                     [&](const std::string& word) { return text.indexOf(folded(word)) >= 0; });
}

// By the name that the user sorts by, then by the other one. Those without a name come last.
std::vector<ABPersonRef> peopleInOrder() {
  ABAddressBook& book = *host().addressBook();
  const bool byLast = book.personGetSortOrdering() == ABPersonSortOrdering::kByLastName;
  const auto other =
      byLast ? ABPersonSortOrdering::kByFirstName : ABPersonSortOrdering::kByLastName;
  constexpr APContactField kNames =
      APContactFieldFirstName | APContactFieldLastName | APContactFieldCompositeName;
  std::vector<ABPersonRef> people = book.copyArrayOfAllPeople();
  std::vector<std::pair<std::string, ABPersonRef>> keyed;
  keyed.reserve(people.size());
  for (ABPersonRef& person : people) {
    const APContactRef contact = APContact::initWithRecordRef(person, kNames);
    std::string key(1, contact->compositeName().empty() ? '\2' : '\1');
    for (const ABPersonSortOrdering ordering : {book.personGetSortOrdering(), other}) {
      host().collation().appendSortKey(nameForSection(*contact, ordering), key);
      key += '\0';
    }
    keyed.emplace_back(std::move(key), std::move(person));
  }
  std::stable_sort(keyed.begin(), keyed.end(),
                   [](const auto& left, const auto& right) { return left.first < right.first; });
  std::transform(keyed.begin(), keyed.end(), people.begin(),
                 [](auto& each) { return std::move(each.second); });
  return people;
}

Json personObject(const ABPerson& person) {
  return {{"recordID", person.recordID},
          {"name", person.compositeName ? Json(*person.compositeName) : Json(nullptr)},
          {"nickname", person.nickname},
          {"organization", person.organization},
          {"phones", valuesOf(person.phones)},
          {"emails", valuesOf(person.emails)},
          {"source", person.sourceFile}};
}

Row personRow(const ABPerson& person) {
  std::string addresses;
  for (const auto* values : {&person.phones, &person.emails}) {
    for (const ABLabeledText& one : *values) {
      addresses +=
          (addresses.empty() ? "" : ", ") +
          host().phoneFormatting().abCopyPhoneNumberFromString(one.value).value_or(one.value);
    }
  }
  return {{std::to_string(person.recordID), Style::kDim},
          {nameOf(person), Style::kBold},
          {std::move(addresses)}};
}

}  // namespace

int listContacts(Session& session, Output& output) {
  session.startDevice();
  std::vector<Row> rows;
  for (const ABPersonRef& person : peopleInOrder()) {
    if (!hasEveryWord(*person, session.options().words)) {
      continue;
    }
    if (output.isJson()) {
      output.object(personObject(*person));
    } else {
      rows.push_back(personRow(*person));
    }
  }
  output.table(rows);
  return session.exitStatus();
}

}  // namespace zephyl::app
