// The order in which the user's languages sort texts, and the lettered sections of long lists. Any
// thread.
//
// Where sections are by letter, each letter of the user's languages has one; everything else is in
// the last, "#".

#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zephyl {

class Collation {
 public:
  virtual ~Collation() = default;

  // In the order of the sections; at least "#", which is the last.
  [[nodiscard]] virtual std::vector<std::string> sectionTitles() = 0;

  // An index into the titles. Case, and accents that make no letter of their own, do not matter.
  [[nodiscard]] virtual std::size_t sectionForString(const std::string& text) = 0;

  // The same for many at once, of which each comes before the next or sorts as it does.
  [[nodiscard]] virtual std::vector<std::size_t> sectionsForSortedStrings(
      const std::vector<const std::string*>& texts) = 0;

  // Puts bytes behind `keys`, none of them 0: of two texts the one whose bytes come first sorts
  // first; texts that sort alike have the same.
  virtual void appendSortKey(const std::string& text, std::string& keys) = 0;
};

}  // namespace zephyl
