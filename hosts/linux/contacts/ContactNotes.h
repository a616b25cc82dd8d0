// What a reader of contacts has to say about its sources: errors (something is lost or a source
// could not be read) and warnings (something was mended or left out on purpose), each one line
// "file:line: reason".
//
// A file in which everything is wrong fills no screen: past `kMost` lines of a kind only their
// number is kept.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zephyl::linux_host {

class ContactNotes {
 public:
  static constexpr std::size_t kMost = 100;

  // `line` counts from 1; 0 names the file alone.
  void error(std::string_view file, std::size_t line, std::string_view reason);
  void warning(std::string_view file, std::size_t line, std::string_view reason);
  void append(const ContactNotes& other);

  // In the order of their coming; the last line counts those that were not kept.
  [[nodiscard]] std::vector<std::string> errors() const { return errors_.listed(); }
  [[nodiscard]] std::vector<std::string> warnings() const { return warnings_.listed(); }
  [[nodiscard]] bool empty() const { return errors_.lines.empty() && warnings_.lines.empty(); }

 private:
  struct Lines {
    std::vector<std::string> lines;
    std::size_t further = 0;

    void add(std::string line);
    void append(const Lines& other);
    [[nodiscard]] std::vector<std::string> listed() const;
  };

  Lines errors_;
  Lines warnings_;
};

}  // namespace zephyl::linux_host
