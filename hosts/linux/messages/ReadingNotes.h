// Gathers the warnings of one reading. A fault that stands in every row of a file is told a few
// times and then counted.

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zephyl::linux_host {

class ReadingNotes {
 public:
  static constexpr std::size_t kMostOfAKind = 10;

  // "chat row 3: display_name is not ..."; texts are of one kind when table and fault are equal.
  void add(std::string_view table, std::int64_t row, std::string_view fault);

  // In order of first appearance of the kind, with a line of the count behind a kind that was cut.
  [[nodiscard]] std::vector<std::string> lines() const;

 private:
  struct KindOfFault {
    std::string table;
    std::string fault;
    std::vector<std::int64_t> rows;
    std::size_t count = 0;
  };

  std::vector<KindOfFault> kinds_;
  std::map<std::string, std::size_t, std::less<>> indexes_;
};

}  // namespace zephyl::linux_host
