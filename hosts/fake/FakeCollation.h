// Sections A to Z and "#", by the first byte of a text; texts sort by their ASCII letters without
// regard to case. Tests may set other sections: one for each text that begins with its title.

#pragma once

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

#include "platform/foundation/Collation.h"

namespace zephyl::fake {

class FakeCollation : public Collation {
 public:
  FakeCollation();

  std::vector<std::string> sectionTitles() override;
  std::size_t sectionForString(const std::string& text) override;
  std::vector<std::size_t> sectionsForSortedStrings(
      const std::vector<const std::string*>& texts) override;
  void appendSortKey(const std::string& text, std::string& keys) override;

  // Without "#", which comes along.
  void setSectionTitles(std::vector<std::string> titles);

 private:
  std::mutex mutex_;
  std::vector<std::string> titles_;
};

}  // namespace zephyl::fake
