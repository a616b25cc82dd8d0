// For tests: the contacts of sections as a text.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "ui/people/ContactSections.h"

namespace zephyl::test {

// Names of those in the sections that are not empty: "A:Ann,Abe B:Bob".
inline std::string namesIn(const ContactSections& sections,
                           const std::vector<std::string>& titles) {
  std::string text;
  for (std::size_t i = 0; i < sections.size(); ++i) {
    if (sections[i].empty()) {
      continue;
    }
    text.append(text.empty() ? "" : " ").append(titles.at(i)).append(":");
    for (std::size_t row = 0; row < sections[i].size(); ++row) {
      text.append(row == 0 ? "" : ",").append(sections[i][row]->compositeName());
    }
  }
  return text;
}

}  // namespace zephyl::test
