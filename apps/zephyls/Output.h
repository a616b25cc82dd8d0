// Where a command writes: plain text for people, or JSON, one object a line, for programs.
//
// Everything that comes from the user's data passes through here and is made safe for a terminal.

#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace zephyl::app {

using Json = nlohmann::ordered_json;

enum class Style { kPlain, kBold, kDim, kUnread, kGood, kWarning, kBad };

// One part of a line, shown in one style.
struct Cell {
  std::string text;
  Style style = Style::kPlain;
};

using Row = std::vector<Cell>;

class Output {
 public:
  // Colours and cutting to the width of the terminal only where `out` is one and NO_COLOR is not
  // set.
  Output(std::ostream& out, std::ostream& errors, bool json);

  [[nodiscard]] bool isJson() const { return json_; }

  // One object on a line of its own.
  void object(const Json& object);

  // Over several lines, for a file.
  void document(const Json& document);

  void line(const Row& cells);
  void line(const std::string& text) { line(Row{{text}}); }

  // Columns as wide as their widest cell, two spaces apart. On a terminal the last column is cut
  // to what is left of the line.
  void table(const std::vector<Row>& rows) { table(rows, lineWidth_); }
  // The last column whole, however long it is.
  void wholeTable(const std::vector<Row>& rows) { table(rows, 0); }

  // On standard error, after the program's name.
  void complain(const std::string& message);

  // On standard error, without a line's end: what the user is to answer on the same line.
  void prompt(const std::string& question);

  // False when something could not be written.
  [[nodiscard]] bool finish();

 private:
  // A `lineWidth` of 0 is no limit.
  void table(const std::vector<Row>& rows, std::size_t lineWidth);
  void printRow(const Row& row, const std::vector<std::size_t>& widths, std::size_t lineWidth);
  [[nodiscard]] std::string styled(const std::string& text, Style style) const;

  std::ostream& out_;
  std::ostream& errors_;
  bool json_;
  bool colours_ = false;
  std::size_t lineWidth_ = 0;  // 0: not limited
};

}  // namespace zephyl::app
