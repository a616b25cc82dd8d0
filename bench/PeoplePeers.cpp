#include "bench/PeoplePeers.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <stdexcept>
#include <unordered_set>

#include <sqlite3.h>
#include <unicode/alphaindex.h>
#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/tblcoll.h>
#include <unicode/unistr.h>

#include "platform/foundation/CaseFolding.h"

#include "ui/people/ContactNames.h"

namespace zephyl::bench {

namespace {

std::vector<std::string> textsOf(const APContact& contact) {
  std::vector<std::string> texts{contact.compositeName()};
  texts.insert(texts.end(), contact.emails().begin(), contact.emails().end());
  for (const APAddress& address : contact.addresses()) {
    texts.insert(texts.end(),
                 {address.street, address.city, address.zip, address.country, address.countryCode});
  }
  return texts;
}

void check(bool isRight, const char* what) {
  if (!isRight) {
    throw std::runtime_error(what);
  }
}

}  // namespace

struct IcuPartitionPeer::Index {
  std::unique_ptr<icu::AlphabeticIndex::ImmutableIndex> buckets;
  std::unique_ptr<icu::Collator> collator;
  std::vector<bool> isLetter;
};

IcuPartitionPeer::IcuPartitionPeer(const std::vector<std::string>& languages)
    : index_(std::make_unique<Index>()) {
  UErrorCode status = U_ZERO_ERROR;
  icu::AlphabeticIndex letters(icu::Locale::forLanguageTag(languages.front(), status), status);
  for (const std::string& language : languages) {
    letters.addLabels(icu::Locale::forLanguageTag(language, status), status);
  }
  letters.addLabels(icu::Locale::getEnglish(), status);
  index_->buckets.reset(letters.buildImmutableIndex(status));
  check(U_SUCCESS(status), "ICU has no index of letters");
  index_->collator.reset(letters.getCollator().clone());
  for (std::int32_t i = 0; i < index_->buckets->getBucketCount(); ++i) {
    index_->isLetter.push_back(index_->buckets->getBucket(i)->getLabelType() ==
                               U_ALPHAINDEX_NORMAL);
  }
}

IcuPartitionPeer::~IcuPartitionPeer() = default;

APContactArray IcuPartitionPeer::partition(const APContactArray& contacts) const {
  struct Entry {
    icu::UnicodeString last;
    icu::UnicodeString first;
    const APContactRef* contact;
  };
  UErrorCode status = U_ZERO_ERROR;
  std::vector<std::vector<Entry>> sections(index_->isLetter.size() + 1);
  std::unordered_set<std::string> phones;
  for (const APContactRef& contact : contacts) {
    if (!contact->phones().empty() && !phones.insert(contact->phones().front()).second) {
      continue;
    }
    const auto& name = nameForSection(*contact, ABPersonSortOrdering::kByLastName);
    const auto bucket = static_cast<std::size_t>(
        index_->buckets->getBucketIndex(icu::UnicodeString::fromUTF8(name), status));
    auto& section = index_->isLetter[bucket] ? sections[bucket] : sections.back();
    section.push_back({icu::UnicodeString::fromUTF8(contact->lastNameOrCompositeName()),
                       icu::UnicodeString::fromUTF8(contact->firstNameOrCompositeName()),
                       &contact});
  }
  APContactArray ordered;
  ordered.reserve(contacts.size());
  for (auto& section : sections) {
    std::stable_sort(section.begin(), section.end(), [&](const Entry& left, const Entry& right) {
      UErrorCode ignored = U_ZERO_ERROR;
      const auto order = index_->collator->compare(left.last, right.last, ignored);
      return order != UCOL_EQUAL
                 ? order == UCOL_LESS
                 : index_->collator->compare(left.first, right.first, ignored) == UCOL_LESS;
    });
    for (const Entry& entry : section) {
      ordered.push_back(*entry.contact);
    }
  }
  return ordered;
}

struct LikePeer::Database {
  ~Database() {
    for (const auto& [words, statement] : statements) {
      sqlite3_finalize(statement);
    }
    sqlite3_close(handle);
  }
  sqlite3* handle = nullptr;
  std::map<std::size_t, sqlite3_stmt*> statements;  // by the number of words
};

LikePeer::LikePeer(const APContactArray& contacts) : database_(std::make_unique<Database>()) {
  sqlite3*& handle = database_->handle;
  check(sqlite3_open(":memory:", &handle) == SQLITE_OK, "no database");
  sqlite3_exec(handle, "CREATE TABLE people (a, b, c, d, e, f, g); BEGIN", nullptr, nullptr,
               nullptr);
  sqlite3_stmt* insert = nullptr;
  sqlite3_prepare_v2(handle, "INSERT INTO people VALUES (?, ?, ?, ?, ?, ?, ?)", -1, &insert,
                     nullptr);
  for (const APContactRef& contact : contacts) {
    int column = 1;
    for (const std::string& text : textsOf(*contact)) {
      sqlite3_bind_text(insert, column++, text.data(), static_cast<int>(text.size()),
                        SQLITE_TRANSIENT);
    }
    check(sqlite3_step(insert) == SQLITE_DONE, "a row was not taken");
    sqlite3_reset(insert);
    sqlite3_clear_bindings(insert);
  }
  sqlite3_finalize(insert);
  sqlite3_exec(handle, "COMMIT", nullptr, nullptr, nullptr);
}

LikePeer::~LikePeer() = default;

std::size_t LikePeer::count(const std::vector<std::string>& words) {
  sqlite3_stmt*& statement = database_->statements[words.size()];
  if (statement == nullptr) {
    std::string query = "SELECT count(*) FROM people WHERE 1";
    for (std::size_t i = 1; i <= words.size(); ++i) {
      const std::string word = " LIKE ?" + std::to_string(i);
      query.append(" AND (a").append(word);
      for (const char* column : {"b", "c", "d", "e", "f", "g"}) {
        query.append(" OR ").append(column).append(word);
      }
      query.append(")");
    }
    check(
        sqlite3_prepare_v2(database_->handle, query.c_str(), -1, &statement, nullptr) == SQLITE_OK,
        "no query");
  }
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string pattern = "%" + words[i] + "%";
    sqlite3_bind_text(statement, static_cast<int>(i + 1), pattern.data(),
                      static_cast<int>(pattern.size()), SQLITE_TRANSIENT);
  }
  check(sqlite3_step(statement) == SQLITE_ROW, "no answer");
  const auto count = static_cast<std::size_t>(sqlite3_column_int64(statement, 0));
  sqlite3_reset(statement);
  return count;
}

MemmemPeer::MemmemPeer(const APContactArray& contacts) {
  texts_.reserve(contacts.size());
  for (const APContactRef& contact : contacts) {
    std::string all;
    for (const std::string& text : textsOf(*contact)) {
      all.append(caseFolded(text)).append("\xff");
    }
    texts_.push_back(std::move(all));
  }
}

std::size_t MemmemPeer::count(const std::vector<std::string>& words) const {
  std::vector<std::string> folded;
  folded.reserve(words.size());
  for (const std::string& word : words) {
    folded.push_back(caseFolded(word));
  }
  return static_cast<std::size_t>(
      std::count_if(texts_.begin(), texts_.end(), [&](const std::string& text) {
        return std::all_of(folded.begin(), folded.end(), [&](const std::string& word) {
          return ::memmem(text.data(), text.size(), word.data(), word.size()) != nullptr;
        });
      }));
}

}  // namespace zephyl::bench
