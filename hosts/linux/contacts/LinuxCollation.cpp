#include "hosts/linux/contacts/LinuxCollation.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include <unicode/alphaindex.h>
#include <unicode/coleitr.h>
#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/tblcoll.h>
#include <unicode/unistr.h>

namespace zephyl::linux_host {

namespace {

icu::UnicodeString unicodeOf(const std::string& text) {
  return icu::UnicodeString::fromUTF8(text);
}

// English for what is no language tag.
icu::Locale localeOf(const std::string& language) {
  UErrorCode status = U_ZERO_ERROR;
  auto locale = icu::Locale::forLanguageTag(language, status);
  return U_FAILURE(status) || locale.isBogus() ? icu::Locale::getEnglish() : locale;
}

// How many letters the text is to the collator.
int lettersOf(const icu::RuleBasedCollator& collator, const icu::UnicodeString& text) {
  const std::unique_ptr<icu::CollationElementIterator> elements(
      collator.createCollationElementIterator(text));
  UErrorCode status = U_ZERO_ERROR;
  int letters = 0;
  for (std::int32_t element = elements->next(status);
       U_SUCCESS(status) && element != icu::CollationElementIterator::NULLORDER;
       element = elements->next(status)) {
    letters += icu::CollationElementIterator::primaryOrder(element) != 0 ? 1 : 0;
  }
  return letters;
}

}  // namespace

// What ICU makes of the languages. Null inside where ICU has no data: then texts sort by their
// bytes, and all are in "#".
class LinuxCollation::Index {
 public:
  explicit Index(const std::vector<std::string>& languages) {
    UErrorCode status = U_ZERO_ERROR;
    icu::AlphabeticIndex letters(
        languages.empty() ? icu::Locale::getEnglish() : localeOf(languages.front()), status);
    for (const std::string& language : languages) {
      letters.addLabels(localeOf(language), status);
    }
    letters.addLabels(icu::Locale::getEnglish(), status);
    if (U_SUCCESS(status)) {
      buckets_.reset(letters.buildImmutableIndex(status));
    }
    if (U_SUCCESS(status)) {
      collator_.reset(letters.getCollator().clone());
      nameSections();
    }
    titles_.emplace_back("#");
  }

  [[nodiscard]] const std::vector<std::string>& titles() const { return titles_; }
  [[nodiscard]] const icu::Collator* collator() const { return collator_.get(); }
  [[nodiscard]] bool isInOrder() const { return inOrder_; }

  // A section of ICU's, which has several that are "#".
  [[nodiscard]] std::size_t bucketOf(const std::string& text) const {
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t bucket =
        buckets_ == nullptr ? 0 : buckets_->getBucketIndex(unicodeOf(text), status);
    return U_FAILURE(status) || bucket < 0 ? 0 : static_cast<std::size_t>(bucket);
  }
  [[nodiscard]] std::size_t sectionOf(std::size_t bucket) const {
    return bucket < sections_.size() ? sections_[bucket] : titles_.size() - 1;
  }

 private:
  void nameSections() {
    const std::int32_t count = buckets_->getBucketCount();
    std::vector<bool> isLetter;
    for (std::int32_t i = 0; i < count; ++i) {
      const icu::AlphabeticIndex::Bucket* const bucket = buckets_->getBucket(i);
      isLetter.push_back(bucket->getLabelType() == U_ALPHAINDEX_NORMAL);
      sections_.push_back(titles_.size());
      if (isLetter.back()) {
        titles_.emplace_back();
        bucket->getLabel().toUTF8String(titles_.back());
      }
    }
    for (std::size_t i = 0; i < isLetter.size(); ++i) {
      sections_[i] = isLetter[i] ? sections_[i] : titles_.size();
    }
    checkOrder();
  }

  // Sections of several letters, and those of Chinese by its sounds, share one with texts that sort
  // elsewhere.
  void checkOrder() {
    const auto* const rules = dynamic_cast<const icu::RuleBasedCollator*>(collator_.get());
    inOrder_ = rules != nullptr && lettersOf(*rules, icu::UnicodeString(u"\uFDD0A")) != 1;
    for (std::size_t i = 0; inOrder_ && i < titles_.size(); ++i) {
      inOrder_ = lettersOf(*rules, unicodeOf(titles_[i])) == 1;
    }
  }

  std::unique_ptr<icu::AlphabeticIndex::ImmutableIndex> buckets_;
  std::unique_ptr<icu::Collator> collator_;
  std::vector<std::string> titles_;
  std::vector<std::size_t> sections_;
  bool inOrder_ = false;
};

LinuxCollation::LinuxCollation(std::vector<std::string> languages)
    : languages_(std::move(languages)) {}

LinuxCollation::~LinuxCollation() = default;

const LinuxCollation::Index& LinuxCollation::index() {
  std::call_once(once_, [this] { index_ = std::make_unique<Index>(languages_); });
  return *index_;
}

std::vector<std::string> LinuxCollation::sectionTitles() {
  return index().titles();
}

std::size_t LinuxCollation::sectionForString(const std::string& text) {
  return index().sectionOf(index().bucketOf(text));
}

// Of a run of one section only the ends and a few between are asked for.
std::vector<std::size_t> LinuxCollation::sectionsForSortedStrings(
    const std::vector<const std::string*>& texts) {
  const Index& all = index();
  std::vector<std::size_t> sections;
  sections.reserve(texts.size());
  while (sections.size() < texts.size()) {
    const std::size_t begin = sections.size();
    const std::size_t bucket = all.bucketOf(*texts[begin]);
    std::size_t end = begin + 1;
    if (all.isInOrder()) {
      const auto first = texts.begin() + static_cast<std::ptrdiff_t>(begin);
      end = static_cast<std::size_t>(std::partition_point(first, texts.end(),
                                                          [&](const std::string* text) {
                                                            return all.bucketOf(*text) <= bucket;
                                                          }) -
                                     texts.begin());
    }
    sections.resize(end, all.sectionOf(bucket));
  }
  return sections;
}

void LinuxCollation::appendSortKey(const std::string& text, std::string& keys) {
  const icu::Collator* const collator = index().collator();
  if (collator == nullptr) {
    for (const char each : text) {
      keys += each == '\0' ? '\1' : each;
    }
    return;
  }
  const icu::UnicodeString unicode = unicodeOf(text);
  std::array<std::uint8_t, 256> small{};
  auto size = static_cast<std::size_t>(
      collator->getSortKey(unicode, small.data(), static_cast<std::int32_t>(small.size())));
  if (size <= small.size()) {
    // Without the 0 at the end.
    keys.append(reinterpret_cast<const char*>(small.data()), size - 1);
    return;
  }
  std::vector<std::uint8_t> large(size);
  collator->getSortKey(unicode, large.data(), static_cast<std::int32_t>(large.size()));
  keys.append(reinterpret_cast<const char*>(large.data()), size - 1);
}

}  // namespace zephyl::linux_host
