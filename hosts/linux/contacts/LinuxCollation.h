// Sorting and sections by ICU, in the first of the user's languages, with a section for each letter
// of any of them and of the Latin alphabet. Any thread.

#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/foundation/Collation.h"

namespace zephyl::linux_host {

class LinuxCollation : public Collation {
 public:
  // Language tags, the best first. Costs nothing before it is asked.
  explicit LinuxCollation(std::vector<std::string> languages);
  ~LinuxCollation() override;
  LinuxCollation(const LinuxCollation&) = delete;
  LinuxCollation& operator=(const LinuxCollation&) = delete;

  std::vector<std::string> sectionTitles() override;
  std::size_t sectionForString(const std::string& text) override;
  // Where the order of the sections is that of the texts, few of these are looked at.
  std::vector<std::size_t> sectionsForSortedStrings(
      const std::vector<const std::string*>& texts) override;
  void appendSortKey(const std::string& text, std::string& keys) override;

 private:
  class Index;

  [[nodiscard]] const Index& index();

  const std::vector<std::string> languages_;
  std::once_flag once_;
  std::unique_ptr<const Index> index_;
};

}  // namespace zephyl::linux_host
