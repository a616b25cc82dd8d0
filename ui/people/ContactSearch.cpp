#include "ui/people/ContactSearch.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

#include "platform/foundation/CaseFolding.h"
#include "platform/foundation/WhiteSpace.h"

namespace zephyl {

namespace {

// In no valid text. Words that hold it all the same are searched by the rule.
constexpr char kEnd = '\xff';

// Calls `visit` with every text that is searched; an empty one is none.
template <class Visit>
void visitTexts(const APContact& contact, Visit visit) {
  visit(contact.compositeName());
  for (const std::string& email : contact.emails()) {
    visit(email);
  }
  for (const APAddress& address : contact.addresses()) {
    for (const std::string* part :
         {&address.street, &address.city, &address.zip, &address.country, &address.countryCode}) {
      visit(*part);
    }
  }
}

bool contains(std::string_view text, std::string_view word) {
  return !word.empty() && text.find(word) != std::string_view::npos;
}

std::vector<std::string> foldedWords(const std::vector<std::string>& words) {
  std::vector<std::string> folded;
  folded.reserve(words.size());
  for (const std::string& word : words) {
    folded.push_back(caseFolded(word));
  }
  return folded;
}

}  // namespace

std::vector<std::string> searchWords(std::string_view text) {
  std::string_view rest = trimmedOfWhiteSpace(text);
  std::vector<std::string> words;
  while (!rest.empty()) {
    const std::size_t space = rest.find(' ');
    words.emplace_back(rest.substr(0, space));
    rest.remove_prefix(space == std::string_view::npos ? rest.size() : space + 1);
  }
  return words;
}

bool contactMatches(const APContact& contact, const std::vector<std::string>& words) {
  return std::all_of(words.begin(), words.end(), [&](const std::string& word) {
    const std::string folded = caseFolded(word);
    bool isFound = false;
    visitTexts(contact, [&](const std::string& text) {
      isFound = isFound || contains(caseFolded(text), folded);
    });
    return isFound;
  });
}

// A word with the two of its bytes that occur most rarely in what is searched.
struct ContactSearch::Word {
  std::string_view text;
  std::size_t rarest = 0;
  std::size_t nextRarest = 0;
};

ContactSearch::ContactSearch(APContactArray contacts)
    : contacts_(std::move(contacts)), counts_(256) {
  starts_.reserve(contacts_.size() + 1);
  for (const APContactRef& contact : contacts_) {
    starts_.push_back(texts_.size());
    visitTexts(*contact, [this](const std::string& text) { addText(text); });
  }
  starts_.push_back(texts_.size());
  for (const char each : texts_) {
    ++counts_[static_cast<unsigned char>(each)];
  }
}

void ContactSearch::addText(std::string_view text) {
  if (!text.empty()) {
    texts_ += caseFolded(text);
    texts_ += kEnd;
  }
}

ContactSearch::Word ContactSearch::prepared(const std::string& folded) const {
  const auto count = [&](std::size_t at) {
    return counts_[static_cast<unsigned char>(folded[at])];
  };
  Word word{folded};
  for (std::size_t i = 1; i < folded.size(); ++i) {
    word.rarest = count(i) < count(word.rarest) ? i : word.rarest;
  }
  word.nextRarest = word.rarest == 0 ? folded.size() - 1 : 0;
  for (std::size_t i = 0; i < folded.size(); ++i) {
    if (i != word.rarest && count(i) < count(word.nextRarest)) {
      word.nextRarest = i;
    }
  }
  return word;
}

bool ContactSearch::occurs(const std::string& folded, std::uint32_t contact) const {
  const std::size_t begin = starts_[contact];
  return std::string_view(texts_).substr(begin, starts_[contact + 1] - begin).find(folded) !=
         std::string_view::npos;
}

const std::vector<std::uint32_t>& ContactSearch::find(const std::vector<std::string>& words) {
  const std::vector<std::string> folded = foldedWords(words);
  const bool isOdd = std::any_of(folded.begin(), folded.end(), [](const std::string& word) {
    return word.empty() || word.find(kEnd) != std::string::npos;
  });
  // Among many the search of all is faster.
  const bool mayNarrow = hasSearched_ && 4 * found_.size() <= contacts_.size();
  const bool onlyGrew =
      mayNarrow && std::all_of(folded_.begin(), folded_.end(), [&](const std::string& before) {
        return std::any_of(folded.begin(), folded.end(), [&](const std::string& now) {
          return now.find(before) != std::string::npos;
        });
      });
  if (isOdd) {
    findByTheRule(words);
  } else if (onlyGrew) {
    narrow(folded);
  } else {
    findAnew(folded);
  }
  folded_ = folded;
  hasSearched_ = !isOdd;
  return found_;
}

APContactArray ContactSearch::contactsMatching(const std::vector<std::string>& words) {
  APContactArray matching;
  const std::vector<std::uint32_t>& found = find(words);
  matching.reserve(found.size());
  for (const std::uint32_t contact : found) {
    matching.push_back(contacts_[contact]);
  }
  return matching;
}

void ContactSearch::findByTheRule(const std::vector<std::string>& words) {
  found_.clear();
  for (std::uint32_t contact = 0; contact < contacts_.size(); ++contact) {
    if (contactMatches(*contacts_[contact], words)) {
      found_.push_back(contact);
    }
  }
}

void ContactSearch::findAnew(const std::vector<std::string>& folded) {
  found_.clear();
  if (folded.empty()) {
    found_.resize(contacts_.size());
    std::iota(found_.begin(), found_.end(), 0U);
    return;
  }
  const auto longest = std::max_element(
      folded.begin(), folded.end(),
      [](const auto& left, const auto& right) { return left.size() < right.size(); });
  scan(*longest);
  for (auto word = folded.begin(); word != folded.end(); ++word) {
    if (word != longest) {
      std::erase_if(found_, [&](std::uint32_t contact) { return !occurs(*word, contact); });
    }
  }
}

void ContactSearch::scan(const std::string& folded) {
  const Word word = prepared(folded);
  std::uint32_t contact = 0;
  std::size_t at = 0;
  while ((at = nextOccurrence(word, at)) < texts_.size()) {
    while (starts_[contact + 1] <= at) {
      ++contact;
    }
    found_.push_back(contact);
    at = starts_[contact + 1];
  }
}

// Looks for the two rarest bytes at their distance, at many places at once, and at the whole word
// only where both are.
std::size_t ContactSearch::nextOccurrence(const Word& word, std::size_t from) const {
  constexpr std::size_t kBlock = 64;
  const std::size_t size = word.text.size();
  const std::size_t end = texts_.size() < size ? 0 : texts_.size() - size + 1;
  const char first = word.text[word.rarest];
  const char second = word.text[word.nextRarest];
  const char* const firsts = texts_.data() + word.rarest;
  const char* const seconds = texts_.data() + word.nextRarest;
  for (std::size_t at = from; at < end; at += kBlock) {
    const std::size_t count = std::min(kBlock, end - at);
    if (count == kBlock) {
      unsigned char any = 0;
      for (std::size_t i = 0; i < kBlock; ++i) {
        any |= static_cast<unsigned char>(static_cast<unsigned char>(firsts[at + i] == first) &
                                          static_cast<unsigned char>(seconds[at + i] == second));
      }
      if (any == 0) {
        continue;
      }
    }
    const char* const limit = firsts + at + count;
    for (const char* found = firsts + at; found < limit; ++found) {
      found = static_cast<const char*>(
          std::memchr(found, first, static_cast<std::size_t>(limit - found)));
      if (found == nullptr) {
        break;
      }
      const auto place = static_cast<std::size_t>(found - firsts);
      if (seconds[place] == second &&
          std::memcmp(texts_.data() + place, word.text.data(), size) == 0) {
        return place;
      }
    }
  }
  return texts_.size();
}

void ContactSearch::narrow(const std::vector<std::string>& folded) {
  for (const std::string& word : folded) {
    if (std::find(folded_.begin(), folded_.end(), word) == folded_.end()) {
      std::erase_if(found_, [&](std::uint32_t contact) { return !occurs(word, contact); });
    }
  }
}

}  // namespace zephyl
