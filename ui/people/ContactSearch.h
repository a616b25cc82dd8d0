// Finds contacts by words: each has to occur, without regard to case, in the name of the whole
// person, an e-mail address, or the street, city, postal code, country or country code of an
// address. Accents do matter. Main thread.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Export.h"

#include "contacts/APContact.h"

namespace zephyl {

// The text without white space around it, parted at each space. Kept: two spaces in a row make an
// empty word between them.
[[nodiscard]] ZP_EXPORT std::vector<std::string> searchWords(std::string_view text);

// The rule. Everybody for no words; nobody for an empty word, which the platform finds in no text.
[[nodiscard]] ZP_EXPORT bool contactMatches(const APContact& contact,
                                            const std::vector<std::string>& words);

// The same for many contacts, fast: what is searched is folded once and lies in one piece, and
// while words only grow, only those are looked at who were found before.
class ZP_EXPORT ContactSearch {
 public:
  explicit ContactSearch(APContactArray contacts);

  [[nodiscard]] const APContactArray& contacts() const { return contacts_; }
  // The numbers of those who match, in order; valid until the next search.
  const std::vector<std::uint32_t>& find(const std::vector<std::string>& words);
  [[nodiscard]] APContactArray contactsMatching(const std::vector<std::string>& words);

 private:
  struct Word;

  void addText(std::string_view text);
  [[nodiscard]] Word prepared(const std::string& folded) const;
  [[nodiscard]] bool occurs(const std::string& folded, std::uint32_t contact) const;
  void findByTheRule(const std::vector<std::string>& words);
  void findAnew(const std::vector<std::string>& folded);
  void narrow(const std::vector<std::string>& folded);
  // Of one word.
  void scan(const std::string& folded);
  // The size of all texts when there is none.
  [[nodiscard]] std::size_t nextOccurrence(const Word& word, std::size_t from) const;

  APContactArray contacts_;
  // All that is searched, folded, with a byte behind each text that is in no word, and where that
  // of each contact begins; then the end.
  std::string texts_;
  std::vector<std::size_t> starts_;
  // How often each byte occurs.
  std::vector<std::size_t> counts_;
  // Of the last search.
  std::vector<std::string> folded_;
  std::vector<std::uint32_t> found_;
  bool hasSearched_ = false;
};

}  // namespace zephyl
